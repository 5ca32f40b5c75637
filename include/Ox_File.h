// Ox_File: a thin object around one file handle, with fopen-style mode
// strings, a recogniser of path kinds and static helpers that read or write
// a whole file at once. It is a base class: a derived class can override
// the virtual operations to serve other kinds of location.
//
// The handle is a file descriptor kept in a pointer-sized value; it is
// OX_INVALID_HANDLE when closed. Access, sharing and creation follow the
// model of the original platform: an open asks for read and/or write
// access, says which access others may have at the same time (the share
// mode), and says whether the file may or must be created. Sharing is kept
// between all opens of a file, in this process and in others, by
// open-file-description locks on bytes far behind the end of the file.
//
// Error numbers: a failing system call leaves its errno in `lastError`;
// the class itself sets 123 (bad name), 87 (bad parameter), 50 (not
// supported) and 32 (the file is in use with a share mode that refuses the
// access asked for).
#ifndef OX_FILE_H
#define OX_FILE_H

#include <cstdint>
#include <cstdio>

#include "Ox_Export.h"
#include "Ox_String.h"
#include "Ox_Buffer.h"

#ifndef OX_FILETIME_DEFINED
#define OX_FILETIME_DEFINED
// A moment as 100-nanosecond intervals since 1601-01-01, in two halves.
typedef struct _FILETIME {
  uint32_t dwLowDateTime;
  uint32_t dwHighDateTime;
} FILETIME;
#endif

// The handle of a closed file.
#define OX_INVALID_HANDLE (reinterpret_cast<void *>(static_cast<intptr_t>(-1)))

// Flags of Ox_File::Open(path, flags, retryReadOnly).
enum Ox_FileModeFlags {
  FILE_MODE_READ = 0x1,        // read access
  FILE_MODE_WRITE = 0x2,       // write access
  FILE_MODE_APPEND = 0x10,     // position at the end; creates a missing file
  FILE_MODE_TRUNCATE = 0x20,   // start with an empty file
  FILE_MODE_TEXT = 0x100,      // accepted, no effect
  FILE_MODE_BINARY = 0x200,    // accepted, no effect
  FILE_MODE_CREATE = 0x1000    // may create the file
};

class OX_API Ox_File {
 public:
  // Origins of Seek.
  enum Seek_Op { FILE_BEGIN = 0, FILE_CURRENT = 1, FILE_END = 2 };

  // Access rights, share bits and creation kinds kept of the last open.
  static constexpr unsigned GENERIC_READ_ACCESS = 0x80000000u;
  static constexpr unsigned GENERIC_WRITE_ACCESS = 0x40000000u;
  static constexpr unsigned SHARE_READ = 1;
  static constexpr unsigned SHARE_WRITE = 2;
  static constexpr unsigned CREATE_NEW_FILE = 1;      // fails if it exists
  static constexpr unsigned CREATE_ALWAYS_FILE = 2;   // made empty
  static constexpr unsigned OPEN_EXISTING_FILE = 3;   // fails if missing

  Ox_File();                                  // closed
  Ox_File(const char *path, int flags);       // Open(path, flags, 0)
  explicit Ox_File(int);                      // closed
  Ox_File(const Ox_File &other);              // closed: the handle stays
  Ox_File &operator=(const Ox_File &other);   // Set
  // Duplicates the other's handle (same access) and copies access, share
  // mode, fileName and workPath.
  void Set(const Ox_File &other);

  virtual ~Ox_File();

 protected:
  // The current directory with a separator behind it, in `workPath` (260
  // bytes at most); null through _file_error.
  virtual const char *GetWorkPath();
  // The kind of `path` (0 local, 1 from '/', 2 http, 3 ftp, -1 unknown)
  // and the real path to open in `real`; see the source for the steps.
  virtual int CheckPath(const char *path, int &kind, Ox_AString &real);

 public:
  // 0 open; 1 open read-only after a retry; -1.
  virtual int Open(const char *path, int flags, int retryReadOnly = 0);
  // Mode letters r, w, a, +, t, b; 0 or -1 as above.
  virtual int Open(const char *path, const char *mode);
  virtual void Close();
  // Bytes written, or -1. Each write reaches the disk before it returns.
  virtual int Write(const char *buffer, int len, int timeout = -1);
  // Bytes read, or -1; a NUL is set behind the data, so `buffer` must
  // hold len + 1 bytes. `len` takes the number read.
  virtual int Read(char *buffer, int &len, int timeout = -1);
  // The new position, or -1.
  virtual int Seek(int offset, Seek_Op op);
  // lastError = the system's last error; -1.
  virtual int _file_error();
  // 0 when closed.
  virtual int GetSize();
  // Last-write time of `handle`, or of this file when null, in local time;
  // 1 or 0.
  virtual int GetFileDate(FILETIME &out, void *handle);

  // Cuts or extends the file at the present position; 1 or 0.
  int SetEndOfFile();
  // Write of the whole buffer with timeout -1.
  int WriteBin(Ox_Buffer &buffer);
  int IsOpen() const { return handle != OX_INVALID_HANDLE; }
  int GetLastError() const { return lastError; }

  // 1 if the file can be opened for reading.
  static int IsExist(const char *path);
  // 1 when the file was deleted.
  static int Delete(const char *path);
  // 0 if it can't be opened.
  static int GetFileSize(const char *path);
  // From fstat: the size or -1; the link count or 0.
  static int GetFileSize(FILE *file);
  static int GetFileLinkCnt(FILE *file);
  // Makes the folder and the missing folders in front of it; 0 when done
  // or present, 0x80004005 on failure.
  static long MakeDir(const char *path);

  // The whole file into `out`; its length, 0 for an empty file (out
  // untouched), or -1 with the reason as the contents of `out`.
  static int ReadFile(const char *path, Ox_Buffer &out);
  static int ReadFile(const char *path, Ox_AString &out);
  static int ReadFile(const char *path, Ox_WString &out);
  // Replace the file's contents; the result of a failing Open, or Write's.
  static int WriteFile(const char *path, const char *data, int len);
  static int WriteFile(const char *path, const Ox_Buffer &data,
                       unsigned int ignored);
  static int WriteFile(const char *path, const char16_t *text, int len);
  static int WriteFile(const char *path, const char16_t *text, int len,
                       unsigned int ignored, unsigned int toCP);
  static int WriteFile(const char *path, const char *text, int len,
                       unsigned int fromCP, unsigned int toCP);

  void *handle;           // OX_INVALID_HANDLE when closed
  int lastError;          // the system's or this class's error number
  Ox_AString fileName;    // the path actually opened
  Ox_AString workPath;    // buffer of GetWorkPath
  unsigned access;        // GENERIC_*_ACCESS bits of the last open
  unsigned shareMode;     // SHARE_* bits of the last open
  unsigned creation;      // *_FILE kind of the last open
  int pathKind;           // result of CheckPath
};

// The FileVersion text of a program file's version resource, copied to
// `out` (at most 259 characters and a NUL). Returns `out`, also when the
// version has no FileVersion text; null when the file has no version
// resource, or no fixed file information, or no translation.
OX_API char *GetWinFileVersion(const char *path, char *out);

#endif
