// SPDX-License-Identifier: MIT
#include "history/undo.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "codegen/code_sync.h"
#include "codegen/code_texts.h"
#include "history/course.h"
#include "history/messages.h"
#include "history/taking_back.h"
#include "jet/error.h"

namespace history {
namespace {

store::OperationResult Refused(messages::Message message, messages::Message detail = {}) {
  store::OperationResult result;
  result.outcome = store::Outcome::kRefused;
  result.message = std::move(message);
  result.detail = std::move(detail);
  return result;
}

messages::Message WhyNot(const Course& course, bool undo, std::optional<std::uint64_t> number,
                         const std::string& path) {
  switch (course.found) {
    case Course::Found::kNoEntry:
      return {message::kNoEntry, {{"<Number>", number.value_or(0)}}};
    case Course::Found::kAlready:
      return {undo ? message::kUndoneAlready : message::kNotUndone,
              {{"<Number>", number.value_or(0)}}};
    case Course::Found::kDamaged:
      return {message::kDamaged, {{"<Path>", path}}};
    case Course::Found::kNothing:
    case Course::Found::kYes:
      break;
  }
  return undo ? message::kNothingToUndo : message::kNothingToRedo;
}

// Numbers and titles, of many the first ones.
messages::Message NamesOf(const std::vector<const Record*>& records) {
  constexpr std::size_t kShown = 5;
  messages::Message names;
  for (std::size_t i = 0; i < std::min(records.size(), kShown); ++i) {
    const messages::Message name(
        message::kEntry, {{"<Number>", records[i]->number}, {"<Title>", records[i]->title}});
    names = names.empty()
                ? name
                : messages::Message(message::kList, {{"<First>", names}, {"<Next>", name}});
  }
  if (records.size() <= kShown) return names;
  return {message::kList, {{"<First>", names}, {"<Next>", "…"}}};
}

messages::Message AsLines(const Obstacles& obstacles) {
  messages::Message lines;
  for (const messages::Message& obstacle : obstacles) lines = messages::Lines(lines, obstacle);
  return lines;
}

// What a step raises, when somebody else took a name meanwhile.
Obstacles PutRowsBackOrSay(jet::Database& database, const Record& record) {
  try {
    PutRowsBack(database, record);
    return CheckReferences(database, record);
  } catch (const jet::Error& error) {
    if (error.kind() != jet::ErrorKind::kDuplicate) throw;
    return {messages::MessageOf(error)};
  }
}

}  // namespace

std::optional<Candidate> UndoRedo::NextUndo() {
  bool undo = true;
  Course course = FindCourse(parts_.recorder.file(), undo, std::nullopt, Detail::kHead);
  if (course.found != Course::Found::kYes) return std::nullopt;
  return Candidate{course.operation.number, course.operation.title};
}

std::optional<Candidate> UndoRedo::NextRedo() {
  bool undo = false;
  Course course = FindCourse(parts_.recorder.file(), undo, std::nullopt, Detail::kHead);
  if (course.found != Course::Found::kYes) return std::nullopt;
  return Candidate{course.operation.number, course.operation.title};
}

Reverted UndoRedo::Undo(std::optional<std::uint64_t> number,
                        const store::OperationOptions& options) {
  return Run(true, number, options);
}

Reverted UndoRedo::Redo(std::optional<std::uint64_t> number,
                        const store::OperationOptions& options) {
  return Run(false, number, options);
}

Reverted UndoRedo::Run(bool undo, std::optional<std::uint64_t> number,
                       const store::OperationOptions& options) {
  Reverted reverted;
  Record last;
  const auto steps = [&]() -> store::OperationResult {
    // Inside the unit nobody else of us adds to the history.
    Course course = FindCourse(parts_.recorder.file(), undo, number);
    if (course.found != Course::Found::kYes) {
      return Refused(WhyNot(course, undo, number, parts_.recorder.file().path()));
    }
    reverted.operation = {course.operation.number, course.operation.title};
    const messages::Message refusal(undo ? message::kCannotUndo : message::kCannotRedo,
                                    {{"<Title>", course.operation.title}});
    const auto dependants = Dependants(course.last, course.since);
    if (!dependants.empty()) {
      return Refused(refusal, {message::kDependants, {{"<List>", NamesOf(dependants)}}});
    }
    jet::Database& database = *parts_.recorder.database();
    Obstacles obstacles = CheckRows(database, course.last);
    const std::size_t rows = course.last.rows.size() - obstacles.size();
    CodeBack code;
    std::ranges::move(TakeCodeBack(parts_.system, parts_.reach, parts_.recorder, course.last, code),
                      std::back_inserter(obstacles));
    reverted.files = code.files;
    if (!obstacles.empty()) {
      const std::size_t files = code.files.size() + code.open.size();
      obstacles.push_back({message::kRest, {{"<Rows>", rows}, {"<Files>", files}}});
    } else {
      obstacles = PutRowsBackOrSay(database, course.last);
    }
    if (!obstacles.empty()) return Refused(refusal, AsLines(obstacles));
    for (const files::FileChange& change : code.open) {
      parts_.recorder.open_code()->Write(change.path, change.after ? *change.after : std::string());
    }
    last = std::move(course.last);
    parts_.recorder.Reverting(
        {undo ? Kind::kUndo : Kind::kRedo,
         reverted.operation.number,
         {undo ? message::kUndo : message::kRedo, {{"<Title>", reverted.operation.title}}},
         reverted.files});
    store::OperationResult result;
    result.rows = RowChangesOf(last);
    return result;
  };
  reverted.result = parts_.operations.AsOne({}, steps, options);
  if (!reverted.result.success()) reverted.files.clear();
  if (reverted.result.success() && !options.dry_run) {
    std::ranges::move(FollowComponents(last), std::back_inserter(reverted.result.warnings));
  }
  return reverted;
}

// The list of components names the classes that have formulas. What was undone is undone, whatever
// becomes of the list.
std::vector<messages::Message> UndoRedo::FollowComponents(const Record& record) {
  if (!parts_.code || !parts_.code->components || !parts_.code->rows) return {};
  std::set<std::string> classes;
  for (const ChangedRow& row : record.rows) {
    for (const auto* image : {&row.before, &row.after}) {
      for (const auto& [name, cell] : image->value_or(Row())) {
        if (name == "ProgID" && cell.size() > 1) classes.insert(cell.substr(1));
      }
    }
  }
  codegen::CodeSync code(*parts_.code);
  try {
    for (const std::string& prog_id : classes) {
      if (parts_.code->rows->HasFormulas(prog_id)) {
        code.RegisterClass(prog_id);
      } else {
        code.UnregisterClass(prog_id);
      }
    }
    code.CommitComponents();
  } catch (const messages::Error& error) {
    return {messages::Message({codegen::kTextComponentList}, {{"<Cause>", error.message()}})};
  }
  return code.TakeWarnings();
}

}  // namespace history
