// Opening a file with access, sharing and creation.
//
// Sharing is kept with open-file-description locks on four bytes far
// behind any real data. Each open holds a shared lock on the bytes that
// say what it does: "reads", "writes", and "refuses readers" or "refuses
// writers" for what its share mode leaves out. An open is refused (error
// 32) when it wants an access that an open holding the matching "refuses"
// byte forbids, or when its own share mode refuses an access that another
// open holds. A shared lock of another open description conflicts with an
// exclusive test lock, which is how the holders are found. Closing the last
// descriptor of an open releases its locks.
#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Ox_File.h"
#include "system/ox_file_internal.h"

namespace {

const off_t kLockBase = static_cast<off_t>(0x7fffffff00000000LL);
enum LockByte { kReads = 0, kWrites = 1, kRefusesReaders = 2,
                kRefusesWriters = 3 };

// True when another open description holds the byte; false when none does
// or locks are not available here.
bool HeldByOther(int fd, LockByte byte) {
  struct flock probe = {};
  probe.l_type = F_WRLCK;
  probe.l_whence = SEEK_SET;
  probe.l_start = kLockBase + byte;
  probe.l_len = 1;
  if (fcntl(fd, F_OFD_GETLK, &probe) != 0) return false;
  return probe.l_type != F_UNLCK;
}

void Hold(int fd, LockByte byte) {
  struct flock lock = {};
  lock.l_type = F_RDLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockBase + byte;
  lock.l_len = 1;
  (void)fcntl(fd, F_OFD_SETLK, &lock);
}

}  // namespace

int OxFileOpenShared(const char *osPath, unsigned access, unsigned share,
                     unsigned creation, int &error) {
  error = 0;
  const bool reads = (access & Ox_File::GENERIC_READ_ACCESS) != 0;
  const bool writes = (access & Ox_File::GENERIC_WRITE_ACCESS) != 0;

  // Writers open for reading as well, so that they can hold shared locks;
  // Read refuses them by the access kept in the object.
  int flags = O_CLOEXEC | (writes ? O_RDWR : O_RDONLY);
  if (creation == Ox_File::CREATE_NEW_FILE) flags |= O_CREAT | O_EXCL;
  if (creation == Ox_File::CREATE_ALWAYS_FILE) flags |= O_CREAT;
  int fd = open(osPath, flags, 0666);
  bool lockable = true;
  if (fd < 0 && writes && errno == EACCES) {
    // No read permission: write alone, without sharing locks.
    fd = open(osPath, (flags & ~O_RDWR) | O_WRONLY, 0666);
    lockable = false;
  }
  if (fd < 0) {
    error = errno;
    return -1;
  }
  // A folder is not a file.
  struct stat info;
  if (fstat(fd, &info) != 0) {
    error = errno;
    close(fd);
    return -1;
  }
  if (S_ISDIR(info.st_mode)) {
    error = EISDIR;
    close(fd);
    return -1;
  }

  if (lockable) {
    // Refused by another open's share mode, or refusing another's access.
    const bool refused =
        (reads && HeldByOther(fd, kRefusesReaders)) ||
        (writes && HeldByOther(fd, kRefusesWriters)) ||
        (!(share & Ox_File::SHARE_READ) && HeldByOther(fd, kReads)) ||
        (!(share & Ox_File::SHARE_WRITE) && HeldByOther(fd, kWrites));
    if (refused) {
      close(fd);
      error = OX_FILE_ERR_SHARING;
      return -1;
    }
    if (reads) Hold(fd, kReads);
    if (writes) Hold(fd, kWrites);
    if (!(share & Ox_File::SHARE_READ)) Hold(fd, kRefusesReaders);
    if (!(share & Ox_File::SHARE_WRITE)) Hold(fd, kRefusesWriters);
  }

  // The file is emptied only once the open is allowed.
  if (creation == Ox_File::CREATE_ALWAYS_FILE && ftruncate(fd, 0) != 0) {
    error = errno;
    close(fd);
    return -1;
  }
  return fd;
}
