// SPDX-License-Identifier: MIT
#include "history/recorder.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "files/carried_append.h"
#include "files/error.h"
#include "files/file_identity.h"
#include "history/line_ranges.h"
#include "history/messages.h"

namespace history {
namespace {

// A database that is not there yet has no history either.
std::string Resolved(files::FileSystem& system, const std::string& database_path) {
  try {
    return files::ResolveTarget(system, database_path);
  } catch (const files::Error&) {
    return database_path;
  }
}

}  // namespace

std::int64_t SecondsNow() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

Recorder::Recorder(files::FileSystem& system, const std::string& database_path,
                   const files::JournalledUnitOfWork& unit,
                   std::function<jet::Database*()> database, Author author)
    : system_(system),
      unit_(unit),
      database_(std::move(database)),
      author_(std::move(author)),
      file_(system, files::AppendedPath(system, Resolved(system, database_path))),
      folder_(system.Folder(Resolved(system, database_path))) {}

void Recorder::Tell(const messages::Message& problem) {
  const std::string text =
      std::to_string(ToInt(problem.number())) + problem.Text("<Path>") + problem.Text("<Cause>");
  if (std::ranges::count(told_, text) > 0) return;
  told_.push_back(text);
  problems_.push_back(problem);
}

std::vector<messages::Message> Recorder::TakeProblems() { return std::exchange(problems_, {}); }

void Recorder::Save() {
  Forget();
  jet::Database* const database = on_ ? database_() : nullptr;
  if (database) database->KeepRowLog();
}

void Recorder::Collect(files::ChangeSet& changes) {
  std::ranges::copy(revert_.files, std::back_inserter(changes.files));
  if (!on_ || changes.empty()) return;
  try {
    jet::Database* const database = database_();
    static const jet::RowLog kNone;
    auto rows = std::make_shared<const RowChanges>(database ? database->row_log() : kNone);
    Record record = MakeRecord(changes, rows->size());
    if (rows->size() > 0 || !record.files.empty()) {
      Append(std::move(rows), std::move(record), changes);
    }
  } catch (const std::exception& error) {
    Tell({message::kNotKept, {{"<Path>", file_.path()}, {"<Cause>", messages::MessageOf(error)}}});
  }
}

void Recorder::Committed() noexcept {
  if (appended_) done_ = std::move(appended_);
  Forget();
}

void Recorder::Forget() noexcept {
  revert_ = {};
  appended_.reset();
}

Record Recorder::MakeRecord(const files::ChangeSet& changes, std::size_t row_count) const {
  Record record;
  record.time = author_.now();
  record.kind = revert_.kind;
  record.target = revert_.target;
  record.who = author_.who;
  record.program = author_.program;
  const auto add = [&](const files::FileChange& change) {
    if (change.before == change.after) return;
    ChangedFile file{Shown(change.path), {}, {}, RangesOf(change)};
    if (change.before) file.before = FileVersion{change.before->size(), change.before.Hash()};
    if (change.after) file.after = FileVersion{change.after->size(), change.after.Hash()};
    record.files.push_back(std::move(file));
  };
  std::ranges::for_each(changes.files, add);
  if (open_code_) std::ranges::for_each(open_code_->Changes(), add);
  record.title = unit_.title().empty() ? TitleOf(record, row_count) : unit_.title();
  if (record.kind != Kind::kOperation) record.title = revert_.title;
  return record;
}

// What nobody named.
messages::Message Recorder::TitleOf(const Record& record, std::size_t row_count) const {
  if (record.files.empty()) return {message::kEditRows, {{"<Count>", row_count}}};
  if (record.files.size() > 1) {
    return {message::kEditCodeOfMany, {{"<Count>", record.files.size()}}};
  }
  return {message::kEditCode, {{"<File>", system_.FileName(record.files.front().path)}}};
}

// So that a project that moves keeps its history.
std::string Recorder::Shown(const std::string& path) const {
  const std::string inside = system_.Join(folder_, "");
  return !folder_.empty() && path.starts_with(inside) ? path.substr(inside.size()) : path;
}

std::string Recorder::PathOf(const ChangedFile& file) const {
  const bool is_whole =
      file.path.starts_with('/') || file.path.find(':') == 1 || file.path.starts_with("\\\\");
  return is_whole ? file.path : system_.Join(folder_, file.path);
}

// Its number and place are known once the history has what earlier commits append, and the rows are
// read while the commit writes the record: the transaction is open until it is done.
void Recorder::Append(std::shared_ptr<const RowChanges> rows, Record record,
                      files::ChangeSet& changes) {
  const std::string& path = file_.path();
  if (!system_.IsWritable(path) && system_.Exists(path)) {
    return Tell({message::kIsReadOnly, {{"<Path>", path}}});
  }
  struct Next {
    Record record;
    std::shared_ptr<const RowChanges> rows;
    Ends ends;
  };
  const auto next = std::make_shared<Next>(Next{std::move(record), std::move(rows), {}});
  changes.append = files::FileAppend{
      [this, next] {
        next->ends = EndsForNext();
        next->record.number = next->ends.last_number + 1;
        if (next->record.kind == Kind::kOperation) {
          appended_ = Done{next->record.number, next->record.title};
        }
        return next->ends.size;
      },
      [next](const auto& sink) { HistoryFile::Write(next->ends, next->record, *next->rows, sink); },
      [this](const std::exception& error) {
        appended_.reset();
        Tell({message::kNotKept,
              {{"<Path>", file_.path()}, {"<Cause>", messages::MessageOf(error)}}});
      }};
}

Ends Recorder::EndsForNext() {
  const auto ends = file_.ReadEnds();
  if (!ends) {
    const std::string& path = file_.path();
    Tell({message::kSetAside, {{"<Path>", path}, {"<Name>", file_.SetAside()}}});
    return {};
  }
  if (!file_.Shorten(*ends)) return *ends;
  return file_.ReadEnds().value_or(Ends());
}

}  // namespace history
