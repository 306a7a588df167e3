// SPDX-License-Identifier: MIT
#include "files/recovery_plan.h"

#include <array>
#include <chrono>
#include <cstdio>

#include "files/journal_repair.h"
#include "files/put_in_place.h"

namespace files {
namespace {

using journal::InspectedFile;
using journal::Inspection;
using messages::Message;

std::string Utc(std::int64_t nanoseconds) {
  using namespace std::chrono;
  const sys_time<seconds> time(floor<seconds>(std::chrono::nanoseconds(nanoseconds)));
  const sys_days day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss<seconds> clock(time - day);
  std::array<char, 64> text;
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d UTC",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

Message Bytes(const journal::Version& version) {
  if (!version.exists) return message::kNoFile;
  return {message::kBytes, {{"<Count>", version.size}}};
}

Message Describe(const InspectedFile& file) {
  switch (file.State()) {
    case FileState::kBefore:
      return {message::kIsAsBefore, {{"<Path>", file.path}}};
    case FileState::kAfter:
      return {message::kIsAsAfter, {{"<Path>", file.path}}};
    case FileState::kPartly:
      return {message::kWrittenInPart, {{"<Path>", file.path}}};
    case FileState::kMissing:
      return {message::kIsMissing, {{"<Path>", file.path}}};
    case FileState::kEdited:
      break;
  }
  if (file.ranged) {
    return {message::kRangesEdited,
            {{"<Path>", file.path},
             {"<Size>", file.size_now},
             {"<Before>", file.sizes.size_before},
             {"<After>", file.sizes.size_after},
             {"<Count>", file.edited_sectors},
             {"<First>", file.first_edited}}};
  }
  return {message::kFileEdited,
          {{"<Path>", file.path},
           {"<Time>", Utc(file.modified_ns)},
           {"<Now>", Bytes(file.now)},
           {"<Before>", Bytes(file.whole.before)},
           {"<After>", Bytes(file.whole.after)}}};
}

Message DescribeConflict(const std::string& database, const Inspection& inspection) {
  Message files;
  for (const InspectedFile& file : inspection.files) {
    const FileState state = file.State();
    if (state == FileState::kEdited || state == FileState::kMissing) {
      files = Joined(files, Describe(file));
    }
  }
  const Message choice = Joined(message::kNothingChanged, message::kChooseState);
  return CausedBy({message::kNotPutBackByItself, {{"<Path>", database}}}, Joined(files, choice));
}

Message Describe(const std::string& journal, const std::string& database,
                 const Inspection& inspection) {
  const auto refused = [](const Message& finding, const Message& remedy) {
    return Joined(finding, Joined(remedy, message::kNothingChanged));
  };
  switch (inspection.condition) {
    case JournalCondition::kNone:
      return {};
    case JournalCondition::kUntouched:
      return {message::kBeforeItBegan, {{"<Path>", database}}};
    case JournalCondition::kComplete:
      return {message::kWasComplete, {{"<Path>", database}}};
    case JournalCondition::kInterrupted:
      return {message::kStateBeforePutBack, {{"<Path>", database}}};
    case JournalCondition::kConflict:
      return DescribeConflict(database, inspection);
    case JournalCondition::kElsewhere:
      return refused(
          {message::kBelongsElsewhere,
           {{"<Path>", journal}, {"<Owner>", inspection.database}, {"<Database>", database}}},
          message::kMoveProjectBack);
    case JournalCondition::kOutside:
      return refused(
          {message::kJournalNamesOther, {{"<Path>", journal}, {"<Other>", inspection.outside}}},
          {message::kAgreeToFolder, {{"<Folder>", inspection.outside_folder}}});
    case JournalCondition::kDamaged:
      break;
  }
  return refused({message::kNoJournal, {{"<Path>", journal}}},
                 {message::kRestoreProject, {{"<Path>", database}}});
}

Message KeptAs(const std::string& path, const std::string& name) {
  return {message::kIsKeptAs, {{"<Path>", path}, {"<Name>", name}}};
}

void AddPreserved(FileSystem& system, const InspectedFile& file, RecoveryPlan::Way& way) {
  if (file.State() != FileState::kEdited) return;
  way.steps.push_back(KeptAs(file.path, AsideName(system, file.path)));
}

RecoveryPlan::Way Impossible(const Message& reason) { return {false, reason, {}}; }

RecoveryPlan::Way PlanBefore(FileSystem& system, const Inspection& inspection) {
  RecoveryPlan::Way way{true, {}, {}};
  for (const InspectedFile& file : inspection.files) {
    if (!file.CanPutBack()) {
      return Impossible(
          {file.is_missing ? message::kMissingAndKeptInPart : message::kChangedAndKeptInPart,
           {{"<Path>", file.path}}});
    }
    if (file.is_before) continue;
    AddPreserved(system, file, way);
    const bool stays = file.ranged || file.whole.before.exists;
    way.steps.push_back(
        {stays ? message::kIsPutBack : message::kIsRemoved, {{"<Path>", file.path}}});
  }
  return way;
}

RecoveryPlan::Way PlanAfter(FileSystem& system, const Inspection& inspection) {
  RecoveryPlan::Way way{true, {}, {}};
  for (const InspectedFile& file : inspection.files) {
    if (file.is_after) continue;
    if (!journal::CanFinish(file)) {
      return Impossible({message::kNewContentsLost, {{"<Path>", file.path}}});
    }
    AddPreserved(system, file, way);
    way.steps.push_back({file.whole.after.exists ? message::kGetsNewContents : message::kIsRemoved,
                         {{"<Path>", file.path}}});
  }
  return way;
}

}  // namespace

std::string DiscardedName(const std::string& journal) { return journal + ".discarded"; }

RecoveryPlan MakePlan(FileSystem& system, const std::string& journal, const std::string& database,
                      const Inspection& inspection) {
  RecoveryPlan plan;
  plan.condition = inspection.condition;
  plan.journal = journal;
  plan.message = Describe(journal, database, inspection);
  for (const InspectedFile& file : inspection.files) {
    plan.files.push_back({file.path, file.State(), Describe(file)});
  }
  if (plan.condition == JournalCondition::kNone) return plan;
  plan.discard = {true, {}, {message::kAllFilesStay, KeptAs(journal, DiscardedName(journal))}};
  if (plan.condition == JournalCondition::kElsewhere) {
    plan.before = plan.after = Impossible(message::kJournalElsewhere);
  } else if (plan.condition == JournalCondition::kOutside) {
    plan.before = plan.after =
        Impossible({message::kOutsideProject, {{"<Path>", inspection.outside}}});
  } else if (plan.condition == JournalCondition::kDamaged) {
    plan.before = plan.after = Impossible(message::kJournalUnreadable);
  } else {
    plan.before = PlanBefore(system, inspection);
    plan.after = inspection.readable_to_end ? PlanAfter(system, inspection)
                                            : Impossible(message::kChangeNotBegun);
  }
  return plan;
}

void CheckRecoverable(const std::string& journal, const std::string& database,
                      const Inspection& inspection) {
  switch (inspection.condition) {
    case JournalCondition::kConflict:
    case JournalCondition::kElsewhere:
      throw Error(ErrorKind::kConflict, journal, Describe(journal, database, inspection));
    case JournalCondition::kOutside:
      throw Error(ErrorKind::kOutside, journal, Describe(journal, database, inspection));
    case JournalCondition::kDamaged:
      throw Error(ErrorKind::kDamaged, journal, Describe(journal, database, inspection));
    default:
      break;
  }
}

}  // namespace files
