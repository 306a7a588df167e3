// SPDX-License-Identifier: MIT
#include "history/course.h"

#include <algorithm>
#include <utility>

namespace history {
namespace {

std::uint64_t OperationOf(const Record& record) {
  return record.kind == Kind::kOperation ? record.number : record.target;
}

// Whether the operation is done behind the record.
bool IsDoneBehind(const Record& record) { return record.kind != Kind::kUndo; }

// Whether it was done in front of it.
bool IsDoneBefore(const Record& record) { return record.kind == Kind::kUndo; }

Record HeadOf(const Record& record) {
  return {record.number, record.time, record.kind, record.target, record.who, record.program,
          record.title,  {},          {}};
}

class Walk {
 public:
  Walk(bool& undo, std::optional<std::uint64_t> number) : undo_(undo), number_(number) {}

  // Takes what the record has. False when all is known.
  bool Pass(Record& record) {
    const std::uint64_t operation = OperationOf(record);
    const auto [state, is_last] = last_.emplace(operation, IsDoneBehind(record));
    if (number_ && record.number == *number_ && record.kind != Kind::kOperation) {
      // The entry of an undoing or redoing stands for its operation.
      if (record.kind == Kind::kUndo) undo_ = !undo_;
      number_ = operation;
      TakeFromPassed();
    }
    if (!wanted_ && !number_) {
      if (is_last && IsDoneBehind(record) == undo_) wanted_ = operation;
      // What was undone before another operation is not redone.
      if (!undo_ && record.kind == Kind::kOperation && state->second) return false;
    }
    if (!wanted_ && number_ && (operation == *number_)) wanted_ = operation;
    if (wanted_ == operation) return PassWanted(record);
    if (course_.found == Course::Found::kYes) return !HasOperation();
    passed_.push_back(std::move(record));
    return true;
  }

  Course Take() {
    if (course_.found == Course::Found::kNothing && number_)
      course_.found = Course::Found::kNoEntry;
    if (course_.found == Course::Found::kYes) KeepWhatCounts();
    return std::move(course_);
  }

 private:
  bool HasOperation() const { return course_.operation.number != 0; }

  // What was done of the wanted operation behind the entry that named it.
  void TakeFromPassed() {
    const auto is_wanted = [&](const Record& record) { return OperationOf(record) == *number_; };
    const auto last = std::ranges::find_if(passed_, is_wanted);
    if (last == passed_.end()) return;
    wanted_ = *number_;
    PassWanted(*last);
    passed_.erase(last, passed_.end());
  }

  bool PassWanted(Record& record) {
    if (record.kind == Kind::kOperation) course_.operation = HeadOf(record);
    if (course_.found == Course::Found::kNothing) {
      const bool done = IsDoneBehind(record);
      course_.found = done == undo_ ? Course::Found::kYes : Course::Found::kAlready;
      course_.last = std::move(record);
    }
    return !HasOperation();
  }

  // Of what was done and taken back since, nothing is left.
  void KeepWhatCounts() {
    std::map<std::uint64_t, bool> before;
    for (const Record& record : passed_) before[OperationOf(record)] = IsDoneBefore(record);
    std::map<std::uint64_t, bool> taken;
    for (Record& record : passed_) {
      const std::uint64_t operation = OperationOf(record);
      if (!taken.emplace(operation, true).second) continue;
      if (IsDoneBehind(record) != before[operation]) course_.since.push_back(std::move(record));
    }
  }

  bool& undo_;
  std::optional<std::uint64_t> number_;
  std::optional<std::uint64_t> wanted_;
  Course course_;
  std::vector<Record> passed_;          // behind what is wanted
  std::map<std::uint64_t, bool> last_;  // operations seen, and whether they are done
};

}  // namespace

Course FindCourse(HistoryFile& file, bool& undo, std::optional<std::uint64_t> number,
                  Detail detail) {
  Walk walk(undo, number);
  const bool whole = file.ForEach([&](Record& record) { return walk.Pass(record); }, detail);
  Course course = walk.Take();
  const bool complete = course.operation.number != 0;
  if (!whole && !complete) course.found = Course::Found::kDamaged;
  if (whole && course.found == Course::Found::kYes && !complete) {
    course.operation = HeadOf(course.last);  // its record went with the oldest
    course.operation.number = OperationOf(course.last);
  }
  return course;
}

}  // namespace history
