// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files/file_system.h"

namespace files {

// Files that live in memory, with the meaning of the operating system's: open files survive their
// removal and renaming, locks exclude other open files, a write-protected file or folder refuses.
// Paths are separated by "/"; those that do not begin with "/" are below "/". Folders are made
// implicitly by Put and by CreateDirectories. Not for use by several threads at once.
class MemoryFileSystem final : public FileSystem {
 public:
  MemoryFileSystem();
  ~MemoryFileSystem() override;

  // Creates or overwrites a file and its folders.
  void Put(const std::string& path, std::string_view contents);
  // Contents of a file; raises kNotFound.
  std::string Get(const std::string& path);
  // Paths and contents of all files.
  std::map<std::string, std::string> Snapshot() const;
  // Makes a file refuse to be opened for writing, or a folder refuse changes of its names.
  void SetReadOnly(const std::string& path, bool read_only);
  // Sets the time of a file's last change.
  void SetModified(const std::string& path, std::int64_t modified_ns);
  // Bytes that all files together may have; more is "no space left".
  void SetCapacity(std::uint64_t bytes);
  // Somebody else acts directly before each of the next exchanges, one action each.
  void BeforeExchange(std::deque<std::function<void()>> actions) { others_ = std::move(actions); }
  // Removes a folder with all that is in it, as when a medium is pulled out.
  void RemoveTree(const std::string& folder);

  // Makes a symbolic link; the target need not exist and may be relative to the link's folder.
  void MakeLink(const std::string& target, const std::string& path);
  // Gives a file a second name. Raises kNotFound, kExists.
  void AddName(const std::string& file, const std::string& name);

  std::unique_ptr<RandomAccessFile> OpenLike(const std::string& path, OpenMode mode,
                                             const std::string& like) override;
  bool IsLink(const std::string& path) override;
  std::uint64_t NameCount(const std::string& path) override;
  bool Exists(const std::string& path) override;
  bool IsDirectory(const std::string& path) override;
  std::optional<FileStamp> Stamp(const std::string& path) override;
  std::vector<DirectoryEntry> List(const std::string& folder) override;
  void Rename(const std::string& from, const std::string& to) override;
  void RenameNew(const std::string& from, const std::string& to) override;
  bool Exchange(const std::string& one, const std::string& other) override;
  void Remove(const std::string& path) override;
  void CreateDirectories(const std::string& folder) override;
  void SyncDirectory(const std::string& folder) override;
  std::string Canonical(const std::string& path) override;
  bool IsWritable(const std::string& path) override;
  void CopyAttributes(const std::string& from, const std::string& to) override;

  std::string Join(std::string_view folder, std::string_view name) const override;
  std::string Folder(std::string_view path) const override;
  std::string FileName(std::string_view path) const override;

 private:
  struct Node;
  struct Medium;
  class OpenFile;

  enum class LastStep { kFollow, kKeep };

  // The key of nodes_ that a path means, links followed; there need not be such a file.
  std::string Resolve(const std::string& path, LastStep last = LastStep::kFollow) const;
  std::shared_ptr<Node> Find(const std::string& path, LastStep last = LastStep::kFollow) const;
  void CheckFolder(const std::string& path, const Failure& failure) const;

  std::deque<std::function<void()>> others_;
  std::shared_ptr<Medium> medium_;
  std::map<std::string, std::shared_ptr<Node>> nodes_;  // by absolute path, folders included
};

}  // namespace files
