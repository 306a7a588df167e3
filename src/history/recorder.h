// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "files/change_set.h"
#include "files/file_system.h"
#include "files/unit_of_work.h"
#include "history/history_file.h"
#include "history/open_code.h"
#include "history/record.h"
#include "history/row_changes.h"
#include "jet/database.h"
#include "messages/message.h"

namespace history {

// The computer's clock, in seconds since 1970-01-01 UTC.
std::int64_t SecondsNow();

// Who makes the records, and when.
struct Author {
  std::string who;      // account@computer
  std::string program;  // "ovformula"
  std::function<std::int64_t()> now = SecondsNow;
};

// Keeps what every unit of work changes: takes part in it behind all others, sees the rows that its
// database changed and the files that they want written, and appends the record of that to the
// history in the same commit. It never makes a unit fail.
class Recorder final : public files::Participant {
 public:
  // `database`: the open database of the unit; null while it is closed. What it refers to must
  // outlive it.
  Recorder(files::FileSystem& system, const std::string& database_path,
           const files::JournalledUnitOfWork& unit, std::function<jet::Database*()> database,
           Author author);
  // Code that changes elsewhere than in files belongs into the records, too. Null: there is none.
  void RecordCodeOf(OpenCode* code) { open_code_ = code; }
  OpenCode* open_code() const { return open_code_; }

  // Off: operations leave no record from now on.
  void SwitchOff() { on_ = false; }
  bool on() const { return on_; }
  HistoryFile& file() { return file_; }
  // Path of a file that a record names.
  std::string PathOf(const ChangedFile& file) const;

  // What the open unit is to the history, when it is no operation of its own, and what it writes of
  // files besides what the other participants do. Until the unit ends.
  struct Revert {
    Kind kind = Kind::kOperation;
    std::uint64_t target = 0;
    messages::Message title;
    std::vector<files::FileChange> files;
  };
  void Reverting(Revert revert) { revert_ = std::move(revert); }
  // Of the open unit; null when it is closed.
  jet::Database* database() const { return database_(); }

  // The last operation that left a record here since the last call; undo and redo are none.
  struct Done {
    std::uint64_t number = 0;
    messages::Message title;
  };
  std::optional<Done> TakeDone() { return std::exchange(done_, std::nullopt); }

  // Why no record could be kept, or what became of the history, since the last call; each once.
  std::vector<messages::Message> TakeProblems();

  void Save() override;
  void Collect(files::ChangeSet& changes) override;
  void Committed() noexcept override;
  void Restore() noexcept override { Forget(); }

 private:
  // Without its rows.
  Record MakeRecord(const files::ChangeSet& changes, std::size_t row_count) const;
  void Append(std::shared_ptr<const RowChanges> rows, Record record, files::ChangeSet& changes);
  // Of a history that another record may follow: one that is damaged makes way, a long one is
  // shortened.
  Ends EndsForNext();
  messages::Message TitleOf(const Record& record, std::size_t row_count) const;
  std::string Shown(const std::string& path) const;
  void Forget() noexcept;
  void Tell(const messages::Message& problem);

  files::FileSystem& system_;
  const files::JournalledUnitOfWork& unit_;
  std::function<jet::Database*()> database_;
  Author author_;
  HistoryFile file_;
  std::string folder_;  // of the database
  OpenCode* open_code_ = nullptr;
  bool on_ = true;
  Revert revert_;
  std::optional<Done> appended_;  // in the open unit
  std::optional<Done> done_;      // and committed
  std::vector<messages::Message> problems_;
  std::vector<std::string> told_;
};

}  // namespace history
