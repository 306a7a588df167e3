// SPDX-License-Identifier: MIT
#include "files/real_file_system.h"

#include <utility>

namespace files {
namespace os {

ErrorKind KindOf(const std::error_code& code) {
  const auto is = [&code](std::errc condition) { return code == condition; };
  if (is(std::errc::no_such_file_or_directory) || is(std::errc::not_a_directory)) {
    return ErrorKind::kNotFound;
  }
  if (is(std::errc::file_exists)) return ErrorKind::kExists;
  if (is(std::errc::permission_denied) || is(std::errc::operation_not_permitted) ||
      is(std::errc::read_only_file_system)) {
    return ErrorKind::kReadOnly;
  }
  if (is(std::errc::resource_unavailable_try_again) || is(std::errc::text_file_busy) ||
      is(std::errc::device_or_resource_busy) || is(std::errc::no_lock_available)) {
    return ErrorKind::kLocked;
  }
  if (is(std::errc::no_space_on_device) || is(std::errc::file_too_large)) return ErrorKind::kFull;
  return ErrorKind::kIo;
}

namespace {

// The system's own words depend on its language and, on Windows, on its code page.
messages::Message Cause(const std::error_code& code) {
  static constexpr std::pair<std::errc, messages::Pattern> kCauses[] = {
      {std::errc::no_such_file_or_directory, message::kNoSuchFile},
      {std::errc::not_a_directory, message::kPartIsNoFolder},
      {std::errc::file_exists, message::kExistsAlready},
      {std::errc::permission_denied, message::kPermissionDenied},
      {std::errc::operation_not_permitted, message::kPermissionDenied},
      {std::errc::read_only_file_system, message::kMediumReadOnly},
      {std::errc::no_space_on_device, message::kNoSpace},
      {std::errc::file_too_large, message::kTooLarge},
      {std::errc::bad_file_descriptor, message::kIsClosed},
      {std::errc::is_a_directory, message::kIsFolder},
      {std::errc::directory_not_empty, message::kFolderNotEmpty},
      {std::errc::text_file_busy, message::kUsedByAnother},
      {std::errc::device_or_resource_busy, message::kUsedByAnother},
      {std::errc::too_many_files_open, message::kTooManyOpen},
      {std::errc::too_many_files_open_in_system, message::kTooManyOpen},
      {std::errc::filename_too_long, message::kNameTooLong},
      {std::errc::not_enough_memory, message::kNoMemory},
      {std::errc::io_error, message::kMediumError},
  };
  for (const auto& [condition, cause] : kCauses) {
    if (code == condition) return cause;
  }
  return messages::Message::Verbatim(code.message());
}

}  // namespace

void RaiseSystem(const std::error_code& code, const std::string& path, const Failure& failure) {
  Raise(KindOf(code), path, failure, Cause(code));
}

}  // namespace os

namespace {

class OperatingSystemFiles final : public FileSystem {
 public:
  std::unique_ptr<RandomAccessFile> OpenLike(const std::string& path, OpenMode mode,
                                             const std::string& like) override {
    return os::OpenFile(path, mode, like);
  }

  bool IsLink(const std::string& path) override { return os::IsLink(path); }

  std::uint64_t NameCount(const std::string& path) override { return os::NameCount(path); }

  bool Exists(const std::string& path) override { return os::Exists(path); }

  bool IsDirectory(const std::string& path) override { return os::IsFolder(path); }

  std::optional<FileStamp> Stamp(const std::string& path) override { return os::StampOf(path); }

  std::vector<DirectoryEntry> List(const std::string& folder) override {
    return os::ListFolder(folder.empty() ? "." : folder);
  }

  void Rename(const std::string& from, const std::string& to) override { os::RenameFile(from, to); }

  void RenameNew(const std::string& from, const std::string& to) override {
    os::RenameNew(from, to);
  }

  bool Exchange(const std::string& one, const std::string& other) override {
    return os::Exchange(one, other);
  }

  void Remove(const std::string& path) override { os::RemoveName(path); }

  void CreateDirectories(const std::string& folder) override { os::CreateFolders(folder); }

  void SyncDirectory(const std::string& folder) override {
    os::SyncFolder(folder.empty() ? "." : folder);
  }

  std::string Canonical(const std::string& path) override { return os::CanonicalPath(path); }

  bool IsWritable(const std::string& path) override { return os::MayWrite(path); }

  void CopyAttributes(const std::string& from, const std::string& to) override {
    os::CopyFileAttributes(from, to);
  }

  std::string Join(std::string_view folder, std::string_view name) const override {
    std::string path(folder);
    if (!path.empty() && !os::TakesNameAtOnce(path)) {
      path += os::Separators().front();
    }
    return path.append(name);
  }

  std::string Folder(std::string_view path) const override { return os::FolderOf(path); }

  std::string FileName(std::string_view path) const override { return os::FileNameOf(path); }
};

}  // namespace

FileSystem& RealFileSystem() {
  static OperatingSystemFiles instance;
  return instance;
}

std::string ReadFile(FileSystem& system, const std::string& path, std::uint64_t limit) {
  const std::unique_ptr<RandomAccessFile> file = system.Open(path, OpenMode::kRead);
  const std::uint64_t size = file->Size();
  if (size > limit) {
    Raise(ErrorKind::kIo, path, message::kCannotBeRead,
          {message::kTooLargeToRead, {{"<Size>", size}, {"<Limit>", limit}}});
  }
  std::string contents(size, '\0');
  contents.resize(file->ReadAt(0, std::as_writable_bytes(std::span(contents))));
  return contents;
}

bool HoldsBytes(FileSystem& system, const std::string& path, std::string_view bytes) {
  constexpr std::size_t kBlock = std::size_t{1} << 16;
  try {
    const std::unique_ptr<RandomAccessFile> file = system.Open(path, OpenMode::kRead);
    if (file->Size() != bytes.size()) return false;
    std::string block(std::min(kBlock, bytes.size()), '\0');
    for (std::size_t offset = 0; offset < bytes.size();) {
      const std::size_t count = file->ReadAt(offset, std::as_writable_bytes(std::span(block)));
      const std::string_view read = std::string_view(block).substr(0, count);
      if (count == 0 || bytes.substr(offset, count) != read) return false;
      offset += count;
    }
    return true;
  } catch (const Error& error) {
    if (error.kind() == ErrorKind::kNotFound) return false;
    throw;
  }
}

}  // namespace files
