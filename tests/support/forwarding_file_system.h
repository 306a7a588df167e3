// SPDX-License-Identifier: MIT
// Hand everything on to others. What stands in front of real ones overrides what it changes.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "files/file_system.h"

namespace files {

class ForwardingFile : public RandomAccessFile {
 public:
  explicit ForwardingFile(std::unique_ptr<RandomAccessFile> inner) : inner_(std::move(inner)) {}

  const std::string& path() const override { return inner_->path(); }
  bool read_only() const override { return inner_->read_only(); }
  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
    return inner_->ReadAt(offset, out);
  }
  void WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
    inner_->WriteAt(offset, data);
  }
  std::uint64_t Size() override { return inner_->Size(); }
  void Truncate(std::uint64_t size) override { inner_->Truncate(size); }
  void Sync() override { inner_->Sync(); }
  FileStamp Stamp() override { return inner_->Stamp(); }
  bool TryLock(std::uint64_t offset, std::uint64_t length, LockMode mode) override {
    return inner_->TryLock(offset, length, mode);
  }
  void Unlock(std::uint64_t offset, std::uint64_t length) override {
    inner_->Unlock(offset, length);
  }
  bool IsLockedByOthers(std::uint64_t offset, std::uint64_t length) override {
    return inner_->IsLockedByOthers(offset, length);
  }

 private:
  std::unique_ptr<RandomAccessFile> inner_;
};

// The other file system outlives it.
class ForwardingFileSystem : public FileSystem {
 public:
  explicit ForwardingFileSystem(FileSystem& inner) : inner_(inner) {}

  std::unique_ptr<RandomAccessFile> OpenLike(const std::string& path, OpenMode mode,
                                             const std::string& like) override {
    return inner_.OpenLike(path, mode, like);
  }
  bool Exists(const std::string& path) override { return inner_.Exists(path); }
  bool IsLink(const std::string& path) override { return inner_.IsLink(path); }
  std::uint64_t NameCount(const std::string& path) override { return inner_.NameCount(path); }
  bool IsDirectory(const std::string& path) override { return inner_.IsDirectory(path); }
  std::optional<FileStamp> Stamp(const std::string& path) override { return inner_.Stamp(path); }
  std::vector<DirectoryEntry> List(const std::string& folder) override {
    return inner_.List(folder);
  }
  void Rename(const std::string& from, const std::string& to) override { inner_.Rename(from, to); }
  void RenameNew(const std::string& from, const std::string& to) override {
    inner_.RenameNew(from, to);
  }
  bool Exchange(const std::string& one, const std::string& other) override {
    return inner_.Exchange(one, other);
  }
  void Remove(const std::string& path) override { inner_.Remove(path); }
  void CreateDirectories(const std::string& folder) override { inner_.CreateDirectories(folder); }
  void SyncDirectory(const std::string& folder) override { inner_.SyncDirectory(folder); }
  std::string Canonical(const std::string& path) override { return inner_.Canonical(path); }
  bool IsWritable(const std::string& path) override { return inner_.IsWritable(path); }
  void CopyAttributes(const std::string& from, const std::string& to) override {
    inner_.CopyAttributes(from, to);
  }

  std::string Join(std::string_view folder, std::string_view name) const override {
    return inner_.Join(folder, name);
  }
  std::string Folder(std::string_view path) const override { return inner_.Folder(path); }
  std::string FileName(std::string_view path) const override { return inner_.FileName(path); }

 private:
  FileSystem& inner_;
};

}  // namespace files
