// Internals of Ox_File shared by its source files: the handle form, the
// open with access, sharing and creation, and the error numbers.
#ifndef OX_FILE_INTERNAL_H
#define OX_FILE_INTERNAL_H

#include <cstdint>

// Error numbers the file class sets itself.
enum {
  OX_FILE_ERR_SHARING = 32,    // in use with a share mode that refuses us
  OX_FILE_ERR_NOT_SUPPORTED = 50,
  OX_FILE_ERR_PARAMETER = 87,
  OX_FILE_ERR_BAD_NAME = 123
};

inline int OxFileFd(void *handle) {
  return static_cast<int>(reinterpret_cast<intptr_t>(handle));
}
inline void *OxFileHandle(int fd) {
  return reinterpret_cast<void *>(static_cast<intptr_t>(fd));
}

// Opens `osPath` with the access bits, share bits and creation kind of
// Ox_File. Returns the descriptor, or -1 with the error number in `error`
// (an errno, or OX_FILE_ERR_SHARING).
int OxFileOpenShared(const char *osPath, unsigned access, unsigned share,
                     unsigned creation, int &error);

#endif
