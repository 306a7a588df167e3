// SPDX-License-Identifier: MIT
#include "tests/support/failing_file_system.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace files {
namespace {

constexpr std::size_t kSectorSize = 512;

}  // namespace

struct FailingFileSystem::Counter {
  // Whether the operation that is about to be done fails.
  bool Fires(Operation operation) {
    if (!fault) return false;
    if (fired && fault->length == Fault::Length::kCrash) return true;
    if (!fault->kinds.empty() && !fault->kinds.contains(operation)) return false;
    ++count;
    const bool fires =
        fault->length == Fault::Length::kOnce ? count == fault->n : count >= fault->n;
    fired = fired || fires;
    return fires;
  }

  // How much of a write that fails is done.
  std::size_t ShortSize(std::uint64_t offset, std::size_t size) const {
    const std::size_t half = size / 2;
    if (fault->length == Fault::Length::kOnce) return half;
    return half - std::min<std::size_t>(half, (offset + half) % kSectorSize);
  }

  [[noreturn]] void Fail(const std::string& path) const {
    Raise(fault->error, path, message::kCannotBeUsed, message::kMediumError);
  }

  void Check(Operation operation, const std::string& path) {
    if (Fires(operation)) Fail(path);
  }

  std::optional<Fault> fault;
  int count = 0;
  bool fired = false;
  std::uint64_t bytes_written = 0;
};

class FailingFileSystem::OpenFile final : public ForwardingFile {
 public:
  OpenFile(std::unique_ptr<RandomAccessFile> inner, std::shared_ptr<Counter> counter)
      : ForwardingFile(std::move(inner)), counter_(std::move(counter)) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
    counter_->Check(Operation::kRead, path());
    return ForwardingFile::ReadAt(offset, out);
  }

  void WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
    const bool was_crashed =
        counter_->fired && counter_->fault && counter_->fault->length == Fault::Length::kCrash;
    if (counter_->Fires(Operation::kWrite)) {
      if (counter_->fault->short_writes && !was_crashed) {
        ForwardingFile::WriteAt(offset, data.first(counter_->ShortSize(offset, data.size())));
      }
      counter_->Fail(path());
    }
    ForwardingFile::WriteAt(offset, data);
    counter_->bytes_written += data.size();
  }

  void Truncate(std::uint64_t size) override {
    counter_->Check(Operation::kTruncate, path());
    ForwardingFile::Truncate(size);
  }

  void Sync() override {
    counter_->Check(Operation::kSync, path());
    ForwardingFile::Sync();
  }

  bool TryLock(std::uint64_t offset, std::uint64_t length, LockMode mode) override {
    counter_->Check(Operation::kLock, path());
    return ForwardingFile::TryLock(offset, length, mode);
  }

  bool IsLockedByOthers(std::uint64_t offset, std::uint64_t length) override {
    counter_->Check(Operation::kLock, path());
    return ForwardingFile::IsLockedByOthers(offset, length);
  }

 private:
  std::shared_ptr<Counter> counter_;
};

FailingFileSystem::FailingFileSystem(FileSystem& inner)
    : ForwardingFileSystem(inner), counter_(std::make_shared<Counter>()) {}

FailingFileSystem::~FailingFileSystem() = default;

void FailingFileSystem::Arm(const Fault& fault) { *counter_ = {fault, 0, false, 0}; }

void FailingFileSystem::Disarm() { counter_->fault.reset(); }

bool FailingFileSystem::fired() const { return counter_->fired; }

int FailingFileSystem::count() const { return counter_->count; }

std::uint64_t FailingFileSystem::bytes_written() const { return counter_->bytes_written; }

std::unique_ptr<RandomAccessFile> FailingFileSystem::OpenLike(const std::string& path,
                                                              OpenMode mode,
                                                              const std::string& like) {
  counter_->Check(Operation::kOpen, path);
  return std::make_unique<OpenFile>(ForwardingFileSystem::OpenLike(path, mode, like), counter_);
}

std::vector<DirectoryEntry> FailingFileSystem::List(const std::string& folder) {
  counter_->Check(Operation::kList, folder);
  return ForwardingFileSystem::List(folder);
}

void FailingFileSystem::Rename(const std::string& from, const std::string& to) {
  counter_->Check(Operation::kRename, from);
  ForwardingFileSystem::Rename(from, to);
}

void FailingFileSystem::RenameNew(const std::string& from, const std::string& to) {
  counter_->Check(Operation::kRename, from);
  ForwardingFileSystem::RenameNew(from, to);
}

bool FailingFileSystem::Exchange(const std::string& one, const std::string& other) {
  counter_->Check(Operation::kRename, one);
  return ForwardingFileSystem::Exchange(one, other);
}

void FailingFileSystem::Remove(const std::string& path) {
  counter_->Check(Operation::kRemove, path);
  ForwardingFileSystem::Remove(path);
}

void FailingFileSystem::CreateDirectories(const std::string& folder) {
  counter_->Check(Operation::kCreateDirectories, folder);
  ForwardingFileSystem::CreateDirectories(folder);
}

void FailingFileSystem::SyncDirectory(const std::string& folder) {
  counter_->Check(Operation::kSyncDirectory, folder);
  ForwardingFileSystem::SyncDirectory(folder);
}

void FailingFileSystem::CopyAttributes(const std::string& from, const std::string& to) {
  counter_->Check(Operation::kCopyAttributes, to);
  ForwardingFileSystem::CopyAttributes(from, to);
}

}  // namespace files
