// SPDX-License-Identifier: MIT
#include "tests/support/forgetting_file_system.h"

#include <algorithm>

namespace files {
namespace {

constexpr std::uint64_t kSector = 512;

// A sector's new bytes, or a new size.
struct Change {
  std::uint64_t offset = 0;
  std::string bytes;
  std::optional<std::uint64_t> size;

  void Apply(std::string& contents) const {
    if (size) {
      contents.resize(*size);
      return;
    }
    contents.resize(std::max<std::size_t>(contents.size(), offset + bytes.size()));
    contents.replace(offset, bytes.size(), bytes);
  }
};

struct Contents {
  std::string on_medium;
  std::int64_t modified_ns = 0;
  std::vector<Change> pending;
};

// Decides for each change whether it reached the medium: none, few, half, most or all of them.
class Luck {
 public:
  explicit Luck(std::mt19937& random) : random_(random), tenths_(kTenths[random() % 5]) {}
  bool operator()() { return random_() % 10 < tenths_; }

 private:
  static constexpr std::uint32_t kTenths[] = {0, 1, 5, 9, 10};
  std::mt19937& random_;
  std::uint32_t tenths_;
};

}  // namespace

struct ForgettingFileSystem::Log {
  std::map<Identity, Contents> files;
};

class ForgettingFileSystem::OpenFile final : public ForwardingFile {
 public:
  OpenFile(std::unique_ptr<RandomAccessFile> now, std::shared_ptr<Log> log)
      : ForwardingFile(std::move(now)), log_(std::move(log)), identity_(Stamp().identity) {}

  void WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
    ForwardingFile::WriteAt(offset, data);
    while (!data.empty()) {
      const std::uint64_t count = std::min(kSector - offset % kSector, std::uint64_t{data.size()});
      Change change;
      change.offset = offset;
      for (const std::byte byte : data.first(count)) change.bytes += static_cast<char>(byte);
      contents().pending.push_back(std::move(change));
      data = data.subspan(count);
      offset += count;
    }
  }

  void Truncate(std::uint64_t size) override {
    ForwardingFile::Truncate(size);
    Change change;
    change.size = size;
    contents().pending.push_back(change);
  }

  void Sync() override {
    ForwardingFile::Sync();
    for (const Change& change : contents().pending) change.Apply(contents().on_medium);
    contents().pending.clear();
    contents().modified_ns = Stamp().modified_ns;
  }

 private:
  Contents& contents() { return log_->files[identity_]; }

  std::shared_ptr<Log> log_;
  Identity identity_;
};

ForgettingFileSystem::ForgettingFileSystem()
    : ForwardingFileSystem(now_), log_(std::make_shared<Log>()) {}

ForgettingFileSystem::~ForgettingFileSystem() = default;

void ForgettingFileSystem::Put(const std::string& path, std::string_view contents) {
  CreateDirectories(Folder(path));
  const auto file = Open(path, OpenMode::kCreateOrOpen);
  file->Truncate(0);
  file->WriteAt(0, std::as_bytes(std::span(contents)));
  file->Sync();
  SyncDirectory(Folder(path));
}

std::unique_ptr<RandomAccessFile> ForgettingFileSystem::OpenLike(const std::string& path,
                                                                 OpenMode mode,
                                                                 const std::string& like) {
  if (mode == OpenMode::kScratch) return now_.OpenLike(path, mode, like);  // of this program alone
  const bool existed = now_.Exists(path);
  auto file = now_.OpenLike(path, mode, like);
  if (!existed) pending_names_.push_back({{now_.Canonical(path), file->Stamp().identity}});
  return std::make_unique<OpenFile>(std::move(file), log_);
}

void ForgettingFileSystem::Rename(const std::string& from, const std::string& to) {
  const std::string source = now_.Canonical(from);
  now_.Rename(from, to);
  const std::string target = now_.Canonical(to);
  pending_names_.push_back({{source, std::nullopt}, {target, now_.Stamp(to)->identity}});
}

void ForgettingFileSystem::RenameNew(const std::string& from, const std::string& to) {
  if (!now_.Exists(to)) return Rename(from, to);
  now_.RenameNew(from, to);
}

bool ForgettingFileSystem::Exchange(const std::string& one, const std::string& other) {
  now_.Exchange(one, other);
  pending_names_.push_back({{now_.Canonical(one), now_.Stamp(one)->identity},
                            {now_.Canonical(other), now_.Stamp(other)->identity}});
  return true;
}

void ForgettingFileSystem::Remove(const std::string& path) {
  const std::string name = now_.Canonical(path);
  now_.Remove(path);
  pending_names_.push_back({{name, std::nullopt}});
}

namespace {

template <typename Names, typename NameChange>
void ApplyNames(const NameChange& change, Names& names) {
  for (const auto& [path, identity] : change) {
    if (identity) {
      names[path] = *identity;
    } else {
      names.erase(path);
    }
  }
}

}  // namespace

void ForgettingFileSystem::SyncDirectory(const std::string& folder) {
  now_.SyncDirectory(folder);
  const std::string synced = now_.Canonical(folder);
  std::erase_if(pending_names_, [&](const NameChange& change) {
    const bool here = std::any_of(change.begin(), change.end(), [&](const auto& name) {
      return now_.Folder(name.first) == synced;
    });
    if (here) ApplyNames(change, names_);
    return here;
  });
}

std::unique_ptr<MemoryFileSystem> ForgettingFileSystem::AfterPowerCut(std::mt19937& random) const {
  std::map<std::string, Identity> names = names_;
  Luck names_luck(random);
  for (const NameChange& change : pending_names_) {
    if (names_luck()) ApplyNames(change, names);
  }
  std::map<Identity, Contents> found = log_->files;
  for (auto& [identity, contents] : found) {
    Luck luck(random);
    for (const Change& change : contents.pending) {
      if (luck()) change.Apply(contents.on_medium);
    }
  }
  auto medium = std::make_unique<MemoryFileSystem>();
  for (const auto& [path, identity] : names) {
    medium->Put(path, found[identity].on_medium);
    medium->SetModified(path, found[identity].modified_ns);
  }
  return medium;
}

}  // namespace files
