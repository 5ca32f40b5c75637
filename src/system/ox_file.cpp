// Ox_File: one file handle, its mode strings and its path kinds.
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_File.h"
#include "foundation/ox_result_fs.h"
#include "system/ox_file_internal.h"

namespace {

// The size of the buffer of GetWorkPath, separator and NUL included.
const int kWorkPathSize = 260;

bool PathExists(const Ox_AString &path) {
  struct stat info;
  return stat(OxOsPath(path).c_str(), &info) == 0;
}

}  // namespace

// ------------------------------------------------------------ life cycle

Ox_File::Ox_File()
    : handle(OX_INVALID_HANDLE), lastError(0), access(0), shareMode(0),
      creation(0), pathKind(-1) {}

Ox_File::Ox_File(const char *path, int flags) : Ox_File() {
  Open(path, flags, 0);
}

Ox_File::Ox_File(int) : Ox_File() {}

Ox_File::Ox_File(const Ox_File &) : Ox_File() {}

Ox_File &Ox_File::operator=(const Ox_File &other) {
  Set(other);
  return *this;
}

void Ox_File::Set(const Ox_File &other) {
  if (this == &other) return;
  Close();
  if (other.handle != OX_INVALID_HANDLE) {
    // The duplicate shares the open file, its position and its access.
    const int fd = fcntl(OxFileFd(other.handle), F_DUPFD_CLOEXEC, 0);
    if (fd < 0) {
      _file_error();
    } else {
      handle = OxFileHandle(fd);
    }
  }
  access = other.access;
  shareMode = other.shareMode;
  fileName = other.fileName;
  workPath = other.workPath;
}

Ox_File::~Ox_File() { Close(); }

// ------------------------------------------------------------ paths

const char *Ox_File::GetWorkPath() {
  char *buffer = workPath.GetSafeBuffer(kWorkPathSize);
  if (!buffer) return nullptr;
  if (!getcwd(buffer, kWorkPathSize - 1)) {
    buffer[0] = '\0';
    workPath.FreeExtra(-1);
    _file_error();
    return nullptr;
  }
  // The directory ends with its separator, so that a name can follow.
  const size_t length = strlen(buffer);
  if (length == 0 || buffer[length - 1] != '/') {
    buffer[length] = '/';
    buffer[length + 1] = '\0';
  }
  workPath.FreeExtra(-1);
  return workPath.GetString();
}

int Ox_File::CheckPath(const char *path, int &kind, Ox_AString &real) {
  int k = kind;
  // 1. Nothing to check.
  if (!path) {
    kind = -1;
    return -1;
  }
  real = path;
  // 2. Web addresses.
  if (ox_strnicmpA(path, "http://", 7) == 0) {
    kind = 2;
    return 2;
  }
  // 3. Seven bytes, the NUL included: only the bare "ftp://" is taken
  // here; longer ftp addresses go on as relative paths.
  if (ox_strnicmpA(path, "ftp://", 7) == 0) {
    kind = 3;
    return 3;
  }
  const char *local = nullptr;
  if (strncmp(path, "file://", 7) == 0) {
    local = path + 7;  // 4. a file address: its path
  } else if ((path[0] && path[1] == ':') || path[0] == '\\') {
    local = path;  // 5. a drive or a leading backslash
  } else if (path[0] == '/') {
    real = path;  // 6. a path from the root
    k = 1;
  } else {
    // 7. A relative path, completed from the current directory unless the
    // caller gave no kind.
    if (k != -1) {
      Ox_AString copy(path);
      if (k == 1 || k == 2) {
        copy.Replace('\\', '/');
      } else {
        copy.Replace('/', '\\');
        k = 0;
      }
      if (!GetWorkPath()) return -1;
      real = workPath;
      const char *text = copy.GetString();
      if (text[0] == '.' && (text[1] == '/' || text[1] == '\\')) {
        real += copy.Mid(2);
      } else if (text[0] == '.' && text[1] == '.' &&
                 (text[2] == '/' || text[2] == '\\')) {
        // One folder up: drop the separator behind the directory, then
        // its last step.
        Ox_AString up = real.Left(real.GetLength() - 1);
        int cut = up.GetLength() - 1;
        while (cut >= 0 && up[cut] != '/' && up[cut] != '\\') --cut;
        real = up.Left(cut + 1);
        real += copy.Mid(3);
      } else {
        real += copy;
      }
    }
    if (k != 0 && k != 1) {
      kind = k;
      return k;
    }
  }
  if (local) {
    // 8. A local path in its backslash form.
    real = local;
    real.Replace('/', '\\');
    k = 0;
  }
  // 9. It must exist.
  if (!PathExists(real)) return _file_error();
  kind = k;
  return k;
}

// ------------------------------------------------------------ open, close

int Ox_File::Open(const char *path, const char *mode) {
  if (!path || !*path) {
    lastError = OX_FILE_ERR_BAD_NAME;
    return -1;
  }
  if (!mode) {
    lastError = OX_FILE_ERR_PARAMETER;
    return -1;
  }
  const size_t length = strlen(mode);
  if (length < 1 || length > 3 || !strchr("rwatb", mode[0])) {
    lastError = OX_FILE_ERR_PARAMETER;
    return -1;
  }
  int flags = 0;
  bool hasA = false, hasW = false, hasT = false, hasB = false;
  for (size_t i = 0; i < length; ++i) {
    switch (mode[i]) {
      case 'r': flags |= 0x1; break;
      case 'w': flags |= 0x1022; hasW = true; break;
      case 'a': flags |= 0x1012; hasA = true; break;
      case '+': flags |= 0x3; break;
      case 't': flags |= 0x100; hasT = true; break;
      case 'b': flags |= 0x200; hasB = true; break;
      default:
        lastError = OX_FILE_ERR_PARAMETER;
        return -1;
    }
  }
  if ((hasA && hasW) || (hasT && hasB)) {
    lastError = OX_FILE_ERR_PARAMETER;
    return -1;
  }
  return Open(path, flags, 0);
}

int Ox_File::Open(const char *path, int flags, int retryReadOnly) {
  // 1. Arguments.
  if (!path || !*path) {
    lastError = OX_FILE_ERR_BAD_NAME;
    return -1;
  }
  if ((flags & (FILE_MODE_APPEND | FILE_MODE_TRUNCATE)) ==
          (FILE_MODE_APPEND | FILE_MODE_TRUNCATE) ||
      (flags & (FILE_MODE_TEXT | FILE_MODE_BINARY)) ==
          (FILE_MODE_TEXT | FILE_MODE_BINARY)) {
    lastError = OX_FILE_ERR_PARAMETER;
    return -1;
  }
  // 2. The kind of path: web addresses and unknown kinds are not opened
  // here. A path that fails the check may still be created for writing.
  const bool writing = (flags & FILE_MODE_WRITE) != 0;
  pathKind = -1;
  Ox_AString real;
  const int checked = CheckPath(path, pathKind, real);
  if (checked >= 0 && (pathKind == 2 || pathKind == 3 || pathKind == -1)) {
    lastError = OX_FILE_ERR_NOT_SUPPORTED;
    return -1;
  }
  if (checked < 0 && !writing) return -1;

  // 3. Access, sharing and creation.
  access = 0;
  if (flags & FILE_MODE_READ) access |= GENERIC_READ_ACCESS;
  if (writing) access |= GENERIC_WRITE_ACCESS;
  shareMode = writing ? SHARE_READ : (SHARE_READ | SHARE_WRITE);
  if (!(flags & FILE_MODE_CREATE)) {
    creation = OPEN_EXISTING_FILE;
  } else if (flags & FILE_MODE_TRUNCATE) {
    creation = CREATE_ALWAYS_FILE;
  } else if (flags & FILE_MODE_APPEND) {
    creation = PathExists(real) ? OPEN_EXISTING_FILE : CREATE_NEW_FILE;
  } else {
    creation = CREATE_NEW_FILE;
  }

  // 4. Open; a file in use or denied may be opened for reading instead.
  int error = 0;
  const int fd = OxFileOpenShared(OxOsPath(real).c_str(), access, shareMode,
                                  creation, error);
  if (fd < 0) {
    lastError = error;
    const bool inUse = error == OX_FILE_ERR_SHARING || error == EACCES ||
                       error == EPERM;
    if (inUse && retryReadOnly && Open(path, FILE_MODE_READ, 0) == 0) {
      return 1;
    }
    return -1;
  }

  // 5. Position and keep.
  if (flags & FILE_MODE_APPEND) lseek(fd, 0, SEEK_END);
  if (handle != OX_INVALID_HANDLE) close(OxFileFd(handle));
  fileName = real;
  handle = OxFileHandle(fd);
  return 0;
}

void Ox_File::Close() {
  if (handle != OX_INVALID_HANDLE) {
    if (close(OxFileFd(handle)) != 0) _file_error();
  }
  handle = OX_INVALID_HANDLE;
  access = 0;
  shareMode = 0;
  creation = 0;
  lastError = 0;
}

// ------------------------------------------------------------ data

namespace {

// Moves `len` bytes by `step(at)`, one system call each, again after
// EINTR. A step that moves nothing ends the loop: the end of a file for a
// read (a write of a positive count never moves nothing). Gives the count
// moved, or -1 with errno left by the failing call.
template <class Step>
int TransferAll(int len, Step step) {
  int done = 0;
  while (done < len) {
    const ssize_t n = step(done);
    if (n < 0) {
      if (errno == EINTR) continue;
      return -1;
    }
    if (n == 0) break;
    done += static_cast<int>(n);
  }
  return done;
}

}  // namespace

int Ox_File::Write(const char *buffer, int len, int /*timeout*/) {
  if (!buffer || len < 0) {
    lastError = OX_FILE_ERR_PARAMETER;
    return -1;
  }
  if (len == 0) return 0;
  if (!(access & GENERIC_WRITE_ACCESS)) {
    lastError = EBADF;
    return -1;
  }
  const int fd = OxFileFd(handle);
  const int done = TransferAll(len, [&](int at) {
    return ::write(fd, buffer + at, static_cast<size_t>(len - at));
  });
  if (done < 0) return _file_error();
  // Each write reaches the disk before the call returns.
  if (fsync(fd) != 0 && errno != EINVAL && errno != EROFS) {
    return _file_error();
  }
  return done;
}

int Ox_File::Read(char *buffer, int &len, int /*timeout*/) {
  if (!buffer || len < 0) {
    lastError = OX_FILE_ERR_PARAMETER;
    return -1;
  }
  if (len == 0) return 0;
  if (handle != OX_INVALID_HANDLE && !(access & GENERIC_READ_ACCESS)) {
    lastError = EBADF;
    return -1;
  }
  const int fd = OxFileFd(handle);
  const int done = TransferAll(len, [&](int at) {
    return ::read(fd, buffer + at, static_cast<size_t>(len - at));
  });
  if (done < 0) return _file_error();
  // The byte behind the data is set to NUL.
  buffer[done] = '\0';
  len = done;
  return done;
}

int Ox_File::Seek(int offset, Seek_Op op) {
  if (handle == OX_INVALID_HANDLE) return -1;
  int whence = SEEK_SET;
  if (op == FILE_CURRENT) whence = SEEK_CUR;
  if (op == FILE_END) whence = SEEK_END;
  const off_t position = lseek(OxFileFd(handle), offset, whence);
  if (position < 0) return _file_error();
  return static_cast<int>(position);
}

int Ox_File::SetEndOfFile() {
  if (handle == OX_INVALID_HANDLE) {
    lastError = EBADF;
    return 0;
  }
  const int fd = OxFileFd(handle);
  const off_t position = lseek(fd, 0, SEEK_CUR);
  if (position < 0 || ftruncate(fd, position) != 0) {
    _file_error();
    return 0;
  }
  return 1;
}

int Ox_File::_file_error() {
  lastError = errno;
  return -1;
}

int Ox_File::GetSize() {
  if (handle == OX_INVALID_HANDLE) return 0;
  struct stat info;
  if (fstat(OxFileFd(handle), &info) != 0) return _file_error();
  return static_cast<int>(info.st_size);
}

int Ox_File::GetFileDate(FILETIME &out, void *other) {
  // A null handle means this file.
  void *which = other ? other : handle;
  if (which == OX_INVALID_HANDLE) {
    lastError = EBADF;
    return 0;
  }
  struct stat info;
  if (fstat(OxFileFd(which), &info) != 0) {
    _file_error();
    return 0;
  }
  // 100-nanosecond steps since 1601-01-01, moved to local time.
  const time_t when = info.st_mtim.tv_sec;
  struct tm local;
  long offset = 0;
  if (localtime_r(&when, &local)) offset = local.tm_gmtoff;
  const long long seconds =
      static_cast<long long>(when) + 11644473600LL + offset;
  const unsigned long long ticks =
      static_cast<unsigned long long>(seconds) * 10000000ULL +
      static_cast<unsigned long long>(info.st_mtim.tv_nsec / 100);
  out.dwLowDateTime = static_cast<uint32_t>(ticks & 0xffffffffULL);
  out.dwHighDateTime = static_cast<uint32_t>(ticks >> 32);
  return 1;
}

int Ox_File::WriteBin(Ox_Buffer &buffer) {
  return Write(reinterpret_cast<const char *>(buffer.GetData()),
               static_cast<int>(buffer.GetSize()), -1);
}
