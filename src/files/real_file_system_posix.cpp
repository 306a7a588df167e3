// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "files/real_file_system.h"

namespace files::os {
namespace {

// Bytes from which on a write is on its way to the medium while its writer does other things.
constexpr std::size_t kLargeWrite = std::size_t{1} << 19;

[[noreturn]] void RaiseErrno(const std::string& path, const Failure& failure) {
  RaiseSystem(std::error_code(errno, std::generic_category()), path, failure);
}

// Repeats a call that a signal interrupted.
template <typename Call>
auto Retry(Call call) {
  decltype(call()) result;
  do {
    result = call();
  } while (result < 0 && errno == EINTR);
  return result;
}

FileStamp ToStamp(const struct stat& info) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;  // keeps equal numbers of two media apart
  return {
      static_cast<std::uint64_t>(info.st_size),
      info.st_mtim.tv_sec * kNanoseconds + info.st_mtim.tv_nsec,
      static_cast<std::uint64_t>(info.st_ino) + kSpread * static_cast<std::uint64_t>(info.st_dev)};
}

class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  int get() const { return fd_; }

 private:
  int fd_;
};

// Locks belong to the open file description, so two open files of one process exclude each other
// and closing one of them releases only its own.
class PosixFile final : public RandomAccessFile {
 public:
  PosixFile(Descriptor fd, std::string path, bool read_only)
      : fd_(std::move(fd)), path_(std::move(path)), read_only_(read_only) {}

  const std::string& path() const override { return path_; }
  bool read_only() const override { return read_only_; }

  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
    std::size_t done = 0;
    while (done < out.size()) {
      const ssize_t n = Retry([&] {
        return ::pread(fd_.get(), out.data() + done, out.size() - done,
                       static_cast<off_t>(offset + done));
      });
      if (n < 0) RaiseErrno(path_, message::kCannotBeRead);
      if (n == 0) break;
      done += static_cast<std::size_t>(n);
    }
    return done;
  }

  void WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
    const bool large = data.size() >= kLargeWrite;
    while (!data.empty()) {
      const ssize_t n = Retry([&] {
        return ::pwrite(fd_.get(), data.data(), data.size(), static_cast<off_t>(offset));
      });
      if (n < 0) RaiseErrno(path_, message::kCannotBeWritten);
      offset += static_cast<std::uint64_t>(n);
      data = data.subspan(static_cast<std::size_t>(n));
    }
    if (large) StartWriteBack();
  }

  std::uint64_t Size() override { return Stamp().size; }

  void Truncate(std::uint64_t size) override {
    if (Retry([&] { return ::ftruncate(fd_.get(), static_cast<off_t>(size)); }) < 0) {
      RaiseErrno(path_, message::kCannotBeResized);
    }
  }

  void Sync() override {
    if (Retry([&] { return ::fdatasync(fd_.get()); }) < 0) {
      RaiseErrno(path_, message::kCannotReachMedium);
    }
  }

  // Begins to bring what was written to the medium; a sync that comes later finishes it.
  void StartWriteBack() {
#ifdef SYNC_FILE_RANGE_WRITE
    ::sync_file_range(fd_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
  }

  FileStamp Stamp() override {
    struct stat info;
    if (::fstat(fd_.get(), &info) < 0) RaiseErrno(path_, message::kCannotBeExamined);
    return ToStamp(info);
  }

  bool TryLock(std::uint64_t offset, std::uint64_t length, LockMode mode) override {
    struct flock lock = Range(offset, length, mode == LockMode::kShared ? F_RDLCK : F_WRLCK);
    if (Retry([&] { return ::fcntl(fd_.get(), F_OFD_SETLK, &lock); }) == 0) return true;
    if (errno == EAGAIN || errno == EACCES) return false;
    RaiseErrno(path_, message::kCannotBeLocked);
  }

  void Unlock(std::uint64_t offset, std::uint64_t length) override {
    struct flock lock = Range(offset, length, F_UNLCK);
    if (Retry([&] { return ::fcntl(fd_.get(), F_OFD_SETLK, &lock); }) < 0) {
      RaiseErrno(path_, message::kCannotBeUnlocked);
    }
  }

  bool IsLockedByOthers(std::uint64_t offset, std::uint64_t length) override {
    struct flock lock = Range(offset, length, F_WRLCK);
    if (Retry([&] { return ::fcntl(fd_.get(), F_OFD_GETLK, &lock); }) < 0) {
      RaiseErrno(path_, message::kCannotBeAskedForLocks);
    }
    return lock.l_type != F_UNLCK;
  }

 private:
  static struct flock Range(std::uint64_t offset, std::uint64_t length, int type) {
    struct flock lock = {};
    lock.l_type = static_cast<short>(type);
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(offset);
    lock.l_len = static_cast<off_t>(length);
    return lock;
  }

  Descriptor fd_;
  std::string path_;
  bool read_only_;
};

// Nobody is to write the file. The system would let an administrator.
bool IsMarkedReadOnly(const struct stat& info) {
  return S_ISREG(info.st_mode) && (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

// O_NONBLOCK: a pipe of that name must not stop the program before it is refused.
constexpr int kCommonFlags = O_CLOEXEC | O_NONBLOCK;

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr mode_t kReadAndWrite = 0666;
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

bool CopyExtendedAttribute(const std::string& from, int to, const char* name) {
  const ssize_t size = ::getxattr(from.c_str(), name, nullptr, 0);
  if (size < 0) return false;
  std::string value(static_cast<std::size_t>(size), '\0');
  return ::getxattr(from.c_str(), name, value.data(), value.size()) == size &&
         ::fsetxattr(to, name, value.data(), value.size(), 0) == 0;
}

// Gives an open file the owner, the group and these permissions of the model. Only an
// administrator may give files away, but the group can often be kept; permissions of a group that
// cannot are no other group's.
bool GiveAccess(int fd, const struct stat& model, mode_t permissions) {
  // The owner first: changing it clears permissions.
  if (::fchown(fd, model.st_uid, model.st_gid) < 0) {
    static_cast<void>(::fchown(fd, static_cast<uid_t>(-1), model.st_gid) < 0);
  }
  struct stat now;
  if (::fstat(fd, &now) < 0) return false;
  if (now.st_gid != model.st_gid) permissions &= ~static_cast<mode_t>(S_IRWXG | S_ISGID);
  return ::fchmod(fd, permissions) == 0;
}

Descriptor OpenDescriptor(const std::string& path, int flags, mode_t permissions = 0) {
  return Descriptor(Retry([&] { return ::open(path.c_str(), kCommonFlags | flags, permissions); }));
}

// Makes a file that must not exist, with nobody else let in before its permissions are known.
Descriptor CreateFile(const std::string& path, const std::string& like) {
  constexpr int kFlags = O_RDWR | O_CREAT | O_EXCL;
  struct stat model;
  if (like.empty() || ::stat(like.c_str(), &model) < 0) {
    return OpenDescriptor(path, kFlags, kReadAndWrite);  // less the user's mask
  }
  Descriptor fd = OpenDescriptor(path, kFlags, kOwnerOnly);
  if (fd.get() >= 0 && GiveAccess(fd.get(), model, (model.st_mode & kReadAndWrite) | kOwnerOnly)) {
    CopyExtendedAttribute(like, fd.get(), kAccessList);
  }
  return fd;
}

// The file may come and go between two calls.
Descriptor CreateOrOpen(const std::string& path, const std::string& like) {
  constexpr int kAttempts = 100;
  for (int attempt = 1;; ++attempt) {
    Descriptor opened = OpenDescriptor(path, O_RDWR | O_NOFOLLOW);
    if (opened.get() >= 0 || errno != ENOENT) return opened;
    Descriptor created = CreateFile(path, like);
    if (created.get() >= 0 || errno != EEXIST || attempt == kAttempts) return created;
  }
}

// A program that is killed leaves nothing: the file has no name, or no longer.
Descriptor CreateScratch(const std::string& path, const std::string& like) {
#ifdef O_TMPFILE
  const std::string folder = FolderOf(path);
  Descriptor nameless =
      OpenDescriptor(folder.empty() ? "." : folder, O_RDWR | O_TMPFILE | O_EXCL, kOwnerOnly);
  if (nameless.get() >= 0) return nameless;
#endif
  Descriptor named = CreateFile(path, like);
  if (named.get() >= 0 && ::unlink(path.c_str()) < 0) RaiseErrno(path, message::kCannotBeRemoved);
  return named;
}

Descriptor OpenAs(OpenMode mode, const std::string& path, const std::string& like) {
  switch (mode) {
    case OpenMode::kRead:
      return OpenDescriptor(path, O_RDONLY);
    case OpenMode::kReadWrite:
      return OpenDescriptor(path, O_RDWR | O_NOFOLLOW);
    case OpenMode::kCreateNew:
      return CreateFile(path, like);
    case OpenMode::kScratch:
      return CreateScratch(path, like);
    case OpenMode::kCreateOrOpen:
      break;
  }
  return CreateOrOpen(path, like);
}

void CopyExtendedAttributes(const std::string& from, int to) {
  const ssize_t list_size = ::listxattr(from.c_str(), nullptr, 0);
  if (list_size <= 0) return;
  std::string names(static_cast<std::size_t>(list_size), '\0');
  if (::listxattr(from.c_str(), names.data(), names.size()) != list_size) return;
  for (std::size_t start = 0; start < names.size(); start = names.find('\0', start) + 1) {
    // Names of the system's own spaces may be refused; the others are allowed to the owner.
    CopyExtendedAttribute(from, to, names.c_str() + start);
  }
}

}  // namespace

std::unique_ptr<RandomAccessFile> OpenFile(const std::string& path, OpenMode mode,
                                           const std::string& like) {
  Descriptor fd = OpenAs(mode, path, like);
  if (fd.get() < 0) {
    const int error = errno;
    if (error == EISDIR)
      Raise(ErrorKind::kNotAFile, path, message::kCannotBeOpened, message::kIsFolder);
    if (error == ELOOP)
      Raise(ErrorKind::kInTheWay, path, message::kCannotBeOpened, message::kIsLink);
    errno = error;
    RaiseErrno(path, message::kCannotBeOpened);
  }
  struct stat info;
  if (::fstat(fd.get(), &info) < 0) RaiseErrno(path, message::kCannotBeExamined);
  if (!S_ISREG(info.st_mode)) {
    Raise(ErrorKind::kNotAFile, path, message::kCannotBeOpened,
          S_ISDIR(info.st_mode) ? message::kIsFolder : message::kNoRegularFile);
  }
  const bool may_be_old = mode == OpenMode::kReadWrite || mode == OpenMode::kCreateOrOpen;
  if (may_be_old && IsMarkedReadOnly(info)) {
    Raise(ErrorKind::kReadOnly, path, message::kCannotBeOpenedForWriting, message::kWriteProtected);
  }
  return std::make_unique<PosixFile>(std::move(fd), path, mode == OpenMode::kRead);
}

std::optional<FileStamp> StampOf(const std::string& path) {
  struct stat info;
  if (::stat(path.c_str(), &info) < 0) return std::nullopt;
  return ToStamp(info);
}

bool IsLink(const std::string& path) {
  struct stat info;
  return ::lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

std::uint64_t NameCount(const std::string& path) {
  struct stat info;
  if (::stat(path.c_str(), &info) < 0) return 0;
  // The others of a folder lead to it from the folders in it.
  return S_ISDIR(info.st_mode) ? 1 : static_cast<std::uint64_t>(info.st_nlink);
}

void RenameNew(const std::string& from, const std::string& to) {
  const Failure failure{message::kCannotBeRenamed, "<Name>", to};
#ifdef RENAME_NOREPLACE
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) RaiseErrno(from, failure);
#endif
  // A second name does not replace a file either.
  if (::link(from.c_str(), to.c_str()) == 0) {
    if (::unlink(from.c_str()) < 0) RaiseErrno(from, message::kCannotBeRemoved);
    return;
  }
  if (errno == EEXIST || ::access(to.c_str(), F_OK) == 0) {
    Raise(ErrorKind::kExists, to, message::kCannotBeCreated, message::kExistsAlready);
  }
  if (::rename(from.c_str(), to.c_str()) < 0) RaiseErrno(from, failure);
}

bool Exchange(const std::string& one, const std::string& other) {
#ifdef RENAME_EXCHANGE
  if (::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0) {
    return true;
  }
  if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) {
    RaiseErrno(one, {message::kCannotBeExchanged, "<Other>", other});
  }
#endif
  return false;
}

void SyncFolder(const std::string& folder) {
  const Descriptor fd(
      Retry([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
  if (fd.get() < 0) RaiseErrno(folder, message::kCannotBeOpened);
  // EINVAL: the file system does not sync folders.
  if (Retry([&] { return ::fsync(fd.get()); }) < 0 && errno != EINVAL) {
    RaiseErrno(folder, message::kCannotReachMedium);
  }
}

bool MayWrite(const std::string& path) {
  struct stat info;
  if (::stat(path.c_str(), &info) == 0 && IsMarkedReadOnly(info)) return false;
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

void CopyFileAttributes(const std::string& from, const std::string& to) {
  struct stat info;
  if (::stat(from.c_str(), &info) < 0) RaiseErrno(from, message::kCannotBeExamined);
  const Descriptor fd = OpenDescriptor(to, O_RDONLY | O_NOFOLLOW);
  constexpr mode_t kPermissions = 07777;
  if (fd.get() < 0 || !GiveAccess(fd.get(), info, info.st_mode & kPermissions)) {
    RaiseErrno(to, {message::kCannotBeGivenPermissions, "<Other>", from});
  }
  CopyExtendedAttributes(from, fd.get());
}

std::string_view Separators() { return "/"; }

bool TakesNameAtOnce(std::string_view folder) { return folder.ends_with('/'); }

}  // namespace files::os
