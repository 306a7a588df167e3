// SPDX-License-Identifier: MIT
#include "files/memory_file_system.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace files {
namespace {

// Absolute, without "." and ".." and doubled separators.
std::string Normal(std::string_view path) {
  std::vector<std::string_view> names;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (name == ".." && !names.empty()) names.pop_back();
    if (!name.empty() && name != "." && name != "..") names.push_back(name);
  }
  std::string normal;
  for (const std::string_view name : names) normal.append("/").append(name);
  return normal.empty() ? "/" : normal;
}

bool IsInside(std::string_view path, std::string_view folder) {
  if (folder == "/") return path != "/";
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

struct Lock {
  const void* owner;
  std::uint64_t begin;
  std::uint64_t end;
  LockMode mode;
};

}  // namespace

// What all files share: room, clock and numbers.
struct MemoryFileSystem::Medium {
  std::uint64_t capacity = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t used = 0;
  std::int64_t clock = 0;
  std::uint64_t last_identity = 0;
};

struct MemoryFileSystem::Node {
  explicit Node(std::shared_ptr<Medium> on, bool folder = false)
      : medium(std::move(on)), is_folder(folder), identity(++medium->last_identity) {}
  ~Node() { medium->used -= contents.size(); }
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  void Resize(std::uint64_t size, const std::string& path) {
    const std::uint64_t used = medium->used - contents.size() + size;
    if (size > contents.size() && used > medium->capacity) {
      Raise(ErrorKind::kFull, path, message::kCannotBeWritten, message::kNoSpace);
    }
    contents.resize(size);
    medium->used = used;
    modified = ++medium->clock;
  }

  FileStamp Stamp() const { return {contents.size(), modified, identity}; }

  std::shared_ptr<Medium> medium;
  bool is_folder;
  std::uint64_t identity;
  bool read_only = false;
  std::string contents;
  std::string link;  // where a symbolic link leads; "" for everything else
  std::int64_t modified = ++medium->clock;
  std::vector<Lock> locks;
};

class MemoryFileSystem::OpenFile final : public RandomAccessFile {
 public:
  OpenFile(std::shared_ptr<Node> node, std::string path, bool read_only)
      : node_(std::move(node)), path_(std::move(path)), read_only_(read_only) {}
  ~OpenFile() override { Unlock(0, std::numeric_limits<std::uint64_t>::max()); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  const std::string& path() const override { return path_; }
  bool read_only() const override { return read_only_; }

  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
    const std::string& contents = node_->contents;
    if (out.empty() || offset >= contents.size()) return 0;
    const std::size_t count = std::min<std::size_t>(out.size(), contents.size() - offset);
    std::memcpy(out.data(), contents.data() + offset, count);
    return count;
  }

  void WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
    CheckWritable(message::kCannotBeWritten);
    if (data.empty()) return;
    node_->Resize(std::max<std::uint64_t>(node_->contents.size(), offset + data.size()), path_);
    std::memcpy(node_->contents.data() + offset, data.data(), data.size());
  }

  std::uint64_t Size() override { return node_->contents.size(); }

  void Truncate(std::uint64_t size) override {
    CheckWritable(message::kCannotBeResized);
    node_->Resize(size, path_);
  }

  void Sync() override {}
  FileStamp Stamp() override { return node_->Stamp(); }

  bool TryLock(std::uint64_t offset, std::uint64_t length, LockMode mode) override {
    if (mode == LockMode::kExclusive) CheckWritable(message::kCannotBeLocked);
    if (Conflicts(offset, length, mode)) return false;
    Unlock(offset, length);
    node_->locks.push_back({this, offset, End(offset, length), mode});
    return true;
  }

  void Unlock(std::uint64_t offset, std::uint64_t length) override {
    const std::uint64_t end = End(offset, length);
    std::vector<Lock> kept;
    for (const Lock& lock : node_->locks) {
      if (lock.owner != this || lock.end <= offset || lock.begin >= end) {
        kept.push_back(lock);
        continue;
      }
      if (lock.begin < offset) kept.push_back({this, lock.begin, offset, lock.mode});
      if (lock.end > end) kept.push_back({this, end, lock.end, lock.mode});
    }
    node_->locks = std::move(kept);
  }

  bool IsLockedByOthers(std::uint64_t offset, std::uint64_t length) override {
    return Conflicts(offset, length, LockMode::kExclusive);
  }

 private:
  static std::uint64_t End(std::uint64_t offset, std::uint64_t length) {
    return length > std::numeric_limits<std::uint64_t>::max() - offset
               ? std::numeric_limits<std::uint64_t>::max()
               : offset + length;
  }

  void CheckWritable(const Failure& failure) const {
    if (read_only_) Raise(ErrorKind::kReadOnly, path_, failure, message::kOpenForReadingOnly);
  }

  bool Conflicts(std::uint64_t offset, std::uint64_t length, LockMode mode) const {
    const std::uint64_t end = End(offset, length);
    return std::any_of(node_->locks.begin(), node_->locks.end(), [&](const Lock& lock) {
      return lock.owner != this && lock.begin < end && offset < lock.end &&
             (mode == LockMode::kExclusive || lock.mode == LockMode::kExclusive);
    });
  }

  std::shared_ptr<Node> node_;
  std::string path_;
  bool read_only_;
};

MemoryFileSystem::MemoryFileSystem() : medium_(std::make_shared<Medium>()) {
  nodes_["/"] = std::make_shared<Node>(medium_, true);
}

MemoryFileSystem::~MemoryFileSystem() = default;

std::string MemoryFileSystem::Resolve(const std::string& path, LastStep last) const {
  constexpr int kMaxLinks = 40;
  std::string rest = Normal(path);
  std::string resolved = "/";
  for (int links = 0; !rest.empty();) {
    const std::size_t end = std::min(rest.find('/', 1), rest.size());
    const std::string at = Join(resolved, rest.substr(1, end - 1));
    rest.erase(0, end);
    const auto it = nodes_.find(at);
    const bool follow = it != nodes_.end() && !it->second->link.empty() &&
                        (!rest.empty() || last == LastStep::kFollow) && ++links < kMaxLinks;
    if (!follow) {
      resolved = at == "/" ? at : Normal(at);
      continue;
    }
    const std::string& target = it->second->link;
    rest = Normal((target.starts_with('/') ? target : Join(resolved, target)) + rest);
    resolved = "/";
  }
  return resolved;
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::Find(const std::string& path,
                                                               LastStep last) const {
  const auto it = nodes_.find(Resolve(path, last));
  return it == nodes_.end() ? nullptr : it->second;
}

void MemoryFileSystem::MakeLink(const std::string& target, const std::string& path) {
  const std::string name = Resolve(path, LastStep::kKeep);
  CheckFolder(name, message::kCannotBeCreated);
  if (nodes_.contains(name)) Raise(ErrorKind::kExists, path, message::kCannotBeCreated);
  nodes_[name] = std::make_shared<Node>(medium_);
  nodes_[name]->link = target;
}

void MemoryFileSystem::AddName(const std::string& file, const std::string& name) {
  const std::shared_ptr<Node> node = Find(file);
  if (!node) Raise(ErrorKind::kNotFound, file, message::kCannotBeUsed);
  const std::string path = Resolve(name, LastStep::kKeep);
  CheckFolder(path, message::kCannotBeCreated);
  if (nodes_.contains(path)) Raise(ErrorKind::kExists, name, message::kCannotBeCreated);
  nodes_[path] = node;
}

bool MemoryFileSystem::IsLink(const std::string& path) {
  const std::shared_ptr<Node> node = Find(path, LastStep::kKeep);
  return node && !node->link.empty();
}

std::uint64_t MemoryFileSystem::NameCount(const std::string& path) {
  const std::shared_ptr<Node> node = Find(path);
  return static_cast<std::uint64_t>(std::count_if(
      nodes_.begin(), nodes_.end(), [&](const auto& entry) { return entry.second == node; }));
}

// Raises unless names in the folder of `path` may be changed.
void MemoryFileSystem::CheckFolder(const std::string& path, const Failure& failure) const {
  const std::shared_ptr<Node> folder = Find(Folder(Normal(path)));
  if (!folder || !folder->is_folder) {
    Raise(ErrorKind::kNotFound, path, failure, message::kNoSuchFile);
  }
  if (folder->read_only) {
    Raise(ErrorKind::kReadOnly, path, failure, message::kWriteProtected);
  }
}

void MemoryFileSystem::Put(const std::string& path, std::string_view contents) {
  CreateDirectories(Folder(Normal(path)));
  const auto file = Open(path, OpenMode::kCreateOrOpen);
  file->Truncate(0);
  file->WriteAt(0, std::as_bytes(std::span(contents)));
}

std::string MemoryFileSystem::Get(const std::string& path) { return ReadFile(*this, path); }

std::map<std::string, std::string> MemoryFileSystem::Snapshot() const {
  std::map<std::string, std::string> all;
  for (const auto& [path, node] : nodes_) {
    if (!node->is_folder && node->link.empty()) all[path] = node->contents;
  }
  return all;
}

void MemoryFileSystem::SetReadOnly(const std::string& path, bool read_only) {
  const std::shared_ptr<Node> node = Find(path);
  if (!node) Raise(ErrorKind::kNotFound, path, message::kCannotBeUsed);
  node->read_only = read_only;
}

void MemoryFileSystem::SetModified(const std::string& path, std::int64_t modified_ns) {
  const std::shared_ptr<Node> node = Find(path);
  if (!node) Raise(ErrorKind::kNotFound, path, message::kCannotBeUsed);
  node->modified = modified_ns;
}

void MemoryFileSystem::SetCapacity(std::uint64_t bytes) { medium_->capacity = bytes; }

void MemoryFileSystem::RemoveTree(const std::string& folder) {
  const std::string root = Normal(folder);
  std::erase_if(nodes_, [&](const auto& entry) {
    return entry.first == root || IsInside(entry.first, root);
  });
}

// Everybody is one user here: there are no permissions to take from `like`.
std::unique_ptr<RandomAccessFile> MemoryFileSystem::OpenLike(const std::string& path, OpenMode mode,
                                                             const std::string& /*like*/) {
  if (mode == OpenMode::kScratch) {
    CheckFolder(path, message::kCannotBeCreated);
    return std::make_unique<OpenFile>(std::make_shared<Node>(medium_), path, false);
  }
  if (mode != OpenMode::kRead && mode != OpenMode::kCreateNew && IsLink(path)) {
    Raise(ErrorKind::kInTheWay, path, message::kCannotBeOpened, message::kIsLink);
  }
  std::shared_ptr<Node> node =
      Find(path, mode == OpenMode::kCreateNew ? LastStep::kKeep : LastStep::kFollow);
  if (node && mode == OpenMode::kCreateNew) {
    Raise(ErrorKind::kExists, path, message::kCannotBeCreated, message::kExistsAlready);
  }
  if (!node) {
    if (mode == OpenMode::kRead || mode == OpenMode::kReadWrite) {
      Raise(ErrorKind::kNotFound, path, message::kCannotBeOpened, message::kDoesNotExist);
    }
    CheckFolder(path, message::kCannotBeCreated);
    node = nodes_[Resolve(path)] = std::make_shared<Node>(medium_);
  }
  if (node->is_folder)
    Raise(ErrorKind::kNotAFile, path, message::kCannotBeOpened, message::kIsFolder);
  if (node->read_only && mode != OpenMode::kRead) {
    Raise(ErrorKind::kReadOnly, path, message::kCannotBeOpenedForWriting, message::kWriteProtected);
  }
  return std::make_unique<OpenFile>(node, path, mode == OpenMode::kRead);
}

bool MemoryFileSystem::Exists(const std::string& path) { return Find(path) != nullptr; }

bool MemoryFileSystem::IsDirectory(const std::string& path) {
  const std::shared_ptr<Node> node = Find(path);
  return node && node->is_folder;
}

std::optional<FileStamp> MemoryFileSystem::Stamp(const std::string& path) {
  const std::shared_ptr<Node> node = Find(path);
  if (!node) return std::nullopt;
  return node->Stamp();
}

std::vector<DirectoryEntry> MemoryFileSystem::List(const std::string& folder) {
  if (!IsDirectory(folder)) Raise(ErrorKind::kNotFound, folder, message::kCannotBeListed);
  const std::string root = Resolve(folder);
  std::vector<DirectoryEntry> entries;
  for (const auto& [path, node] : nodes_) {
    if (path != "/" && Folder(path) == root) {
      entries.push_back({FileName(path), IsDirectory(path), !node->link.empty()});
    }
  }
  return entries;
}

void MemoryFileSystem::Rename(const std::string& from, const std::string& to) {
  const Failure failure{message::kCannotBeRenamed, "<Name>", to};
  const std::shared_ptr<Node> node = Find(from, LastStep::kKeep);
  if (!node) Raise(ErrorKind::kNotFound, from, failure, message::kDoesNotExist);
  CheckFolder(from, failure);
  CheckFolder(to, failure);
  const std::string source = Resolve(from, LastStep::kKeep);
  const std::string target = Resolve(to, LastStep::kKeep);
  if (source == target) return;
  if (!IsLink(to) && IsDirectory(to)) Raise(ErrorKind::kExists, from, failure, message::kIsFolder);
  std::map<std::string, std::shared_ptr<Node>> moved;
  for (const auto& [path, inner] : nodes_) {
    if (path == source || IsInside(path, source)) {
      moved[target + path.substr(source.size())] = inner;
    }
  }
  std::erase_if(nodes_, [&](const auto& entry) {
    return entry.first == source || IsInside(entry.first, source);
  });
  for (auto& [path, inner] : moved) nodes_[path] = std::move(inner);
}

void MemoryFileSystem::RenameNew(const std::string& from, const std::string& to) {
  if (Find(to)) {
    Raise(ErrorKind::kExists, from, {message::kCannotBeRenamed, "<Name>", to},
          message::kExistsAlready);
  }
  Rename(from, to);
}

bool MemoryFileSystem::Exchange(const std::string& one, const std::string& other) {
  if (!others_.empty()) {
    const std::function<void()> act = std::move(others_.front());
    others_.pop_front();
    act();
  }
  const Failure failure{message::kCannotBeExchanged, "<Other>", other};
  for (const std::string& path : {one, other}) {
    if (!Find(path)) Raise(ErrorKind::kNotFound, path, failure, message::kDoesNotExist);
    CheckFolder(path, failure);
  }
  std::swap(nodes_[Normal(one)], nodes_[Normal(other)]);
  return true;
}

void MemoryFileSystem::Remove(const std::string& path) {
  if (!Find(path, LastStep::kKeep)) {
    Raise(ErrorKind::kNotFound, path, message::kCannotBeRemoved, message::kDoesNotExist);
  }
  CheckFolder(path, message::kCannotBeRemoved);
  if (!IsLink(path) && IsDirectory(path) && !List(path).empty()) {
    Raise(ErrorKind::kIo, path, message::kCannotBeRemoved, message::kFolderNotEmpty);
  }
  nodes_.erase(Resolve(path, LastStep::kKeep));
}

void MemoryFileSystem::CreateDirectories(const std::string& folder) {
  const std::string path = Normal(folder);
  if (const std::shared_ptr<Node> node = Find(path)) {
    if (!node->is_folder) {
      Raise(ErrorKind::kExists, folder, message::kCannotBeCreated, message::kExistsAlready);
    }
    return;
  }
  CreateDirectories(Folder(path));
  CheckFolder(path, message::kCannotBeCreated);
  nodes_[Resolve(path)] = std::make_shared<Node>(medium_, true);
}

void MemoryFileSystem::SyncDirectory(const std::string& folder) {
  if (!IsDirectory(folder)) Raise(ErrorKind::kNotFound, folder, message::kCannotReachMedium);
}

std::string MemoryFileSystem::Canonical(const std::string& path) {
  if (!Find(path))
    Raise(ErrorKind::kNotFound, path, message::kCannotBeFound, message::kDoesNotExist);
  return Resolve(path);
}

bool MemoryFileSystem::IsWritable(const std::string& path) {
  const std::shared_ptr<Node> node = Find(path);
  return node && !node->read_only;
}

void MemoryFileSystem::CopyAttributes(const std::string& from, const std::string& to) {
  const std::shared_ptr<Node> source = Find(from);
  const std::shared_ptr<Node> target = Find(to);
  if (!source || !target) Raise(ErrorKind::kNotFound, source ? to : from, message::kCannotBeFound);
  target->read_only = source->read_only;
}

std::string MemoryFileSystem::Join(std::string_view folder, std::string_view name) const {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path += '/';
  return path.append(name);
}

std::string MemoryFileSystem::Folder(std::string_view path) const {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return "";
  return std::string(path.substr(0, std::max<std::size_t>(slash, 1)));
}

std::string MemoryFileSystem::FileName(std::string_view path) const {
  const std::size_t slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

}  // namespace files
