// The static helpers of Ox_File: existence, size, folders, and reading or
// writing a whole file at once.
#include <errno.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "Ox_File.h"
#include "Ox_Result.h"
#include "foundation/ox_result_fs.h"
#include "system/ox_file_internal.h"

namespace {

// Deeper folder chains than this are refused rather than walked.
const size_t kMaxMakeDirPath = 4096;

// Opens an existing file for reading, shared for reading and writing;
// -1 when it cannot be opened.
int OpenExistingShared(const char *path) {
  int error = 0;
  return OxFileOpenShared(OxOsPath(path).c_str(), Ox_File::GENERIC_READ_ACCESS,
                          Ox_File::SHARE_READ | Ox_File::SHARE_WRITE,
                          Ox_File::OPEN_EXISTING_FILE, error);
}

void SetText(Ox_Buffer &out, const Ox_AString &text) {
  out.Set(reinterpret_cast<const unsigned char *>(text.GetString()),
          text.GetLength());
}

}  // namespace

int Ox_File::IsExist(const char *path) {
  if (!path || !*path) return 0;
  // Open for reading, shared for reading and writing, the file existing.
  const int fd = OpenExistingShared(path);
  if (fd < 0) return 0;
  close(fd);
  return 1;
}

int Ox_File::Delete(const char *path) {
  if (!path || !*path) return 0;
  return unlink(OxOsPath(path).c_str()) == 0 ? 1 : 0;
}

int Ox_File::GetFileSize(const char *path) {
  if (!path || !*path) return 0;
  const int fd = OpenExistingShared(path);
  if (fd < 0) return 0;
  struct stat info;
  const int size = fstat(fd, &info) == 0 ? static_cast<int>(info.st_size) : 0;
  close(fd);
  return size;
}

int Ox_File::GetFileSize(FILE *file) {
  struct stat info;
  if (!file || fstat(fileno(file), &info) != 0) return -1;
  return static_cast<int>(info.st_size);
}

int Ox_File::GetFileLinkCnt(FILE *file) {
  struct stat info;
  if (!file || fstat(fileno(file), &info) != 0) return 0;
  return static_cast<int>(info.st_nlink);
}

long Ox_File::MakeDir(const char *path) {
  const size_t length = path ? strlen(path) : 0;
  if (length <= 1) return 0;
  if (length > kMaxMakeDirPath) return 0x80004005L;
  const std::string os = OxOsPath(path);
  if (::access(os.c_str(), F_OK) == 0) return 0;  // there already
  // Walk back from the last byte: at a separator, make the folder in front
  // of it first, then this one. A drive colon ends the walk.
  for (size_t i = length - 1; i >= 1; --i) {
    const char c = path[i];
    if (c == ':') return 0;
    if (c != '\\' && c != '/') continue;
    const std::string parent(path, i);
    if (MakeDir(parent.c_str()) != 0) return 0x80004005L;
    if (::access(os.c_str(), F_OK) != 0) {
      return mkdir(os.c_str(), 0777) == 0 ? 0 : 0x80004005L;
    }
  }
  return 0;
}

// ------------------------------------------------------------ whole files

int Ox_File::ReadFile(const char *path, Ox_Buffer &out) {
  const char *name = path ? path : "";
  // 1. A missing file: the reason becomes the contents.
  if (!IsExist(path)) {
    Ox_AString message;
    message.Format("File Not Exist: %s", name);
    SetText(out, message);
    return -1;
  }
  // 2. Nothing to read.
  const int size = GetFileSize(path);
  if (size < 1) return 0;
  // 3. Read it all; Read sets a NUL behind the data, hence one byte more.
  Ox_File file;
  int error = 0;
  int got = -1;
  unsigned char *data = out.GetSafeBuffer(static_cast<long>(size) + 1);
  if (!data) {
    error = ENOMEM;
  } else if (file.Open(path, "rb") != 0) {
    error = file.lastError;
  } else {
    int length = size;
    got = file.Read(reinterpret_cast<char *>(data), length, -1);
    error = file.lastError;
  }
  file.Close();
  // 4. The reason of a failure becomes the contents.
  if (got < 0) {
    Ox_AString message;
    message.Format("File: %s, %s", name, OxSysErrorStr(error).GetString());
    SetText(out, message);
    return -1;
  }
  out.SetSize(got);
  return got;
}

int Ox_File::ReadFile(const char *path, Ox_AString &out) {
  Ox_Buffer buffer;
  const int result = ReadFile(path, buffer);
  out.Set(reinterpret_cast<const char *>(buffer.GetData()),
          static_cast<int>(buffer.GetSize()));
  return result;
}

int Ox_File::ReadFile(const char *path, Ox_WString &out) {
  Ox_Buffer buffer;
  const int result = ReadFile(path, buffer);
  out.Set(reinterpret_cast<const char *>(buffer.GetData()),
          static_cast<int>(buffer.GetSize()), 0);
  return result;
}

namespace {

int WriteWhole(const char *path, const char *mode, const char *data,
               int len) {
  Ox_File file;
  const int opened = file.Open(path, mode);
  if (opened != 0) return opened;
  const int written = file.Write(data, len, -1);
  file.Close();
  return written;
}

}  // namespace

int Ox_File::WriteFile(const char *path, const char *data, int len) {
  return WriteWhole(path, "w", data, len);
}

int Ox_File::WriteFile(const char *path, const Ox_Buffer &data,
                       unsigned int /*ignored*/) {
  return WriteWhole(path, "wb", reinterpret_cast<const char *>(data.GetData()),
                    static_cast<int>(data.GetSize()));
}

int Ox_File::WriteFile(const char *path, const char16_t *text, int len) {
  const Ox_AString converted(text, len, 0);
  return WriteWhole(path, "w", converted.GetString(), converted.GetLength());
}

int Ox_File::WriteFile(const char *path, const char16_t *text, int len,
                       unsigned int /*ignored*/, unsigned int toCP) {
  const Ox_AString converted(text, len, toCP);
  return WriteWhole(path, "w", converted.GetString(), converted.GetLength());
}

int Ox_File::WriteFile(const char *path, const char *text, int len,
                       unsigned int fromCP, unsigned int toCP) {
  Ox_AString converted;
  converted.ConvertCodePageFrom(fromCP, text, len, toCP);
  return WriteWhole(path, "w", converted.GetString(), converted.GetLength());
}
