// SPDX-License-Identifier: MIT
#include "project/backups.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <tuple>
#include <utility>

#include "files/error.h"
#include "files/replace_file.h"
#include "files/unit_of_work.h"
#include "jet/lock_file.h"
#include "project/line_diff.h"

namespace project {

namespace {

constexpr const char* kList = "files.txt";
constexpr std::string_view kNumber = "#";

std::string CopyName(std::size_t index) { return std::to_string(index) + ".bak"; }

// Replaces whole files, as part of a unit of work.
class Replacement final : public files::Participant {
 public:
  explicit Replacement(std::vector<files::FileChange> changes) : changes_(std::move(changes)) {}
  void Save() override {}
  void Collect(files::ChangeSet& changes) override {
    changes.files.insert(changes.files.end(), changes_.begin(), changes_.end());
  }
  void Committed() noexcept override {}
  void Restore() noexcept override {}

 private:
  std::vector<files::FileChange> changes_;
};

// Nobody else uses the database as long as it lives.
class SoleUser {
 public:
  SoleUser(files::FileSystem& system, const std::string& path) {
    if (!system.Exists(path)) return;
    file_ = system.Open(path, files::OpenMode::kReadWrite);
    const messages::Message foreign = jet::FindForeignUser(system, path, *file_);
    if (!foreign.empty()) {
      Refuse(path, {files::message::kOpenElsewhere, {{"<User>", foreign}}});
    }
    if (file_->IsLockedByOthers(jet::kOwnUserBase + 1, jet::kMaxUsers)) {
      Refuse(path, files::message::kOpenInAnotherWindow);
    }
    for (const std::uint64_t byte : {jet::kWriteByte, jet::kCommitByte}) {
      if (file_->TryLock(byte, 1, files::LockMode::kExclusive)) continue;
      Refuse(path, files::message::kUsedByAnother);
    }
  }

 private:
  [[noreturn]] static void Refuse(const std::string& path, const messages::Message& cause) {
    files::Raise(files::ErrorKind::kLocked, path, files::message::kCannotBePutBack, cause);
  }
  std::unique_ptr<files::RandomAccessFile> file_;
};

}  // namespace

Backups::Backups(files::FileSystem& system, std::string folder)
    : system_(system), folder_(std::move(folder)) {}

bool Backups::MakeDaily(const std::string& date, const std::vector<std::string>& files) {
  if (system_.Exists(system_.Join(system_.Join(folder_, date), kList))) return false;
  Make(date, files);
  return true;
}

void Backups::Make(const std::string& name, const std::vector<std::string>& files,
                   const std::string& kept) {
  std::string folder = system_.Join(folder_, name);
  for (int other = 2; system_.Exists(system_.Join(folder, kList)); ++other) {
    folder = system_.Join(folder_, name + " (" + std::to_string(other) + ")");
  }
  system_.CreateDirectories(folder);
  const auto earlier = List();
  const std::uint64_t number = earlier.empty() ? 1 : earlier.front().number + 1;
  std::string list = std::string(kNumber) + std::to_string(number) + "\n";
  std::size_t count = 0;
  const std::string database = files.empty() ? "" : files.front();
  for (const std::string& path : files) {
    if (!system_.Exists(path)) continue;
    files::ReplaceFile(system_, system_.Join(folder, CopyName(count++)),
                       files::ReadFile(system_, path), database);
    list += system_.Canonical(path) + "\n";
  }
  files::ReplaceFile(system_, system_.Join(folder, kList), list, database);
  const auto backups = List();
  for (std::size_t i = kKept; i < backups.size(); ++i) {
    if (backups[i].folder != kept) RemoveFolder(backups[i].folder);
  }
}

std::vector<Backups::Backup> Backups::List() {
  std::vector<Backup> backups;
  if (!system_.IsDirectory(folder_)) return backups;
  for (const files::DirectoryEntry& entry : system_.List(folder_)) {
    const std::string folder = system_.Join(folder_, entry.name);
    const std::string list = system_.Join(folder, kList);
    if (!entry.is_directory || !system_.Exists(list)) continue;
    Backup backup{entry.name, folder, {}, 0};
    const std::string text = files::ReadFile(system_, list);
    for (std::string_view line : SplitLines(text)) {
      if (line.starts_with(kNumber)) {
        line.remove_prefix(kNumber.size());
        std::from_chars(line.data(), line.data() + line.size(), backup.number);
      } else {
        backup.files.emplace_back(line);
      }
    }
    backups.push_back(std::move(backup));
  }
  std::sort(backups.begin(), backups.end(), [](const Backup& a, const Backup& b) {
    return std::tie(a.number, a.name) > std::tie(b.number, b.name);
  });
  return backups;
}

void Backups::Restore(const Backup& backup, const std::string& present) {
  if (backup.files.empty()) return;
  const SoleUser alone(system_, backup.files.front());
  std::vector<files::FileChange> changes;
  for (std::size_t i = 0; i < backup.files.size(); ++i) {
    const std::string& path = backup.files[i];
    files::Contents before;
    if (system_.Exists(path)) before = files::ReadFile(system_, path);
    files::Contents after = files::ReadFile(system_, system_.Join(backup.folder, CopyName(i)));
    if (before != after) changes.push_back({path, std::move(before), std::move(after)});
  }
  Make(present, backup.files, backup.folder);
  Replacement replacement(std::move(changes));
  const auto is_listed = [&backup](const std::string& path) {
    return std::ranges::find(backup.files, path) != backup.files.end();
  };
  files::JournalledUnitOfWork unit(system_, backup.files.front(), is_listed);
  unit.Enlist(replacement);
  platform::UnitOfWorkScope scope(unit);
  scope.Commit();
}

void Backups::RemoveFolder(const std::string& folder) {
  // The list first: what remains of a half removed folder is no backup.
  system_.Remove(system_.Join(folder, kList));
  for (const files::DirectoryEntry& entry : system_.List(folder))
    system_.Remove(system_.Join(folder, entry.name));
  system_.Remove(folder);
}

}  // namespace project
