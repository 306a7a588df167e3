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

std::string Bytes(const journal::Version& version) {
  return version.exists ? std::to_string(version.size) + " bytes" : "no file";
}

std::string Describe(const InspectedFile& file) {
  switch (file.State()) {
    case FileState::kBefore:
      return "is as before the change.";
    case FileState::kAfter:
      return "is as after the change.";
    case FileState::kPartly:
      return "was written in part.";
    case FileState::kMissing:
      return "is missing.";
    case FileState::kEdited:
      break;
  }
  if (file.ranged) {
    return "was changed by another program since (" + std::to_string(file.size_now) +
           " bytes; the change was to take it from " + std::to_string(file.sizes.size_before) +
           " to " + std::to_string(file.sizes.size_after) + " bytes; " +
           std::to_string(file.edited_sectors) +
           " places are in neither state, the first at byte " + std::to_string(file.first_edited) +
           ").";
  }
  return "was changed by another program at " + Utc(file.modified_ns) + " (now " + Bytes(file.now) +
         "; " + Bytes(file.whole.before) + " before the change, " + Bytes(file.whole.after) +
         " after it).";
}

constexpr const char* kChoose =
    " Nothing was changed. Choose with recover --before, --after or --discard what is to stay.";

std::string Message(const std::string& journal, const std::string& database,
                    const Inspection& inspection) {
  std::string text;
  switch (inspection.condition) {
    case JournalCondition::kNone:
      return "";
    case JournalCondition::kUntouched:
      return "A change of " + database + " was interrupted before it began.";
    case JournalCondition::kComplete:
      return "A change of " + database + " was complete when it was interrupted.";
    case JournalCondition::kInterrupted:
      return "A change of " + database + " was interrupted; the state before it is put back.";
    case JournalCondition::kConflict:
      text = "A change of " + database + " was interrupted and is not put back by itself:";
      for (const InspectedFile& file : inspection.files) {
        const FileState state = file.State();
        if (state == FileState::kEdited || state == FileState::kMissing) {
          text += " " + file.path + " " + Describe(file);
        }
      }
      return text + kChoose;
    case JournalCondition::kElsewhere:
      return journal + " belongs to " + inspection.database + ", not to " + database +
             ". Move the project back there to put its interrupted change back, or give the"
             " journal up with recover --discard. Nothing was changed.";
    case JournalCondition::kOutside:
      return journal + " names " + inspection.outside +
             ", which is no file of this project; it is not used. If the change was yours, agree to"
             " the folder with recover --allow-folder; otherwise give the journal up with recover"
             " --discard. Nothing was changed.";
    case JournalCondition::kDamaged:
      break;
  }
  return journal + " is damaged or is no change journal; it is not used. If a change of " +
         database +
         " was interrupted, restore the project from a backup; give the journal up with recover"
         " --discard. Nothing was changed.";
}

void AddAside(FileSystem& system, const InspectedFile& file, RecoveryPlan::Way& way) {
  if (file.State() != FileState::kEdited) return;
  way.steps.push_back(file.path + " is kept as " + AsideName(system, file.path) + ".");
}

RecoveryPlan::Way PlanBefore(FileSystem& system, const Inspection& inspection) {
  RecoveryPlan::Way way;
  for (const InspectedFile& file : inspection.files) {
    if (!file.CanPutBack()) {
      way.reason = file.path + (file.is_missing ? " is missing" : " was changed since") +
                   ", and the journal holds only parts of it.";
      way.steps.clear();
      return way;
    }
    if (file.is_before) continue;
    AddAside(system, file, way);
    way.steps.push_back(file.path + (file.ranged || file.whole.before.exists
                                         ? " is put back to the state before the change."
                                         : " is removed."));
  }
  way.possible = true;
  return way;
}

RecoveryPlan::Way PlanAfter(FileSystem& system, const Inspection& inspection) {
  RecoveryPlan::Way way;
  for (const InspectedFile& file : inspection.files) {
    if (file.is_after) continue;
    if (!journal::CanFinish(file)) {
      way.reason = file.path + " was not written completely, and its new contents are not kept.";
      way.steps.clear();
      return way;
    }
    AddAside(system, file, way);
    way.steps.push_back(file.path +
                        (file.whole.after.exists ? " gets its new contents." : " is removed."));
  }
  way.possible = true;
  return way;
}

}  // namespace

std::string DiscardedName(const std::string& journal) { return journal + ".discarded"; }

RecoveryPlan MakePlan(FileSystem& system, const std::string& journal, const std::string& database,
                      const Inspection& inspection) {
  RecoveryPlan plan;
  plan.condition = inspection.condition;
  plan.journal = journal;
  plan.message = Message(journal, database, inspection);
  for (const InspectedFile& file : inspection.files) {
    plan.files.push_back({file.path, file.State(), Describe(file)});
  }
  if (plan.condition == JournalCondition::kNone) return plan;
  plan.discard.possible = true;
  plan.discard.steps = {"All files stay as they are.",
                        journal + " is kept as " + DiscardedName(journal) + "."};
  if (plan.condition == JournalCondition::kElsewhere) {
    plan.before.reason = plan.after.reason = "The journal belongs to another place.";
  } else if (plan.condition == JournalCondition::kOutside) {
    plan.before.reason = plan.after.reason =
        "The journal names " + inspection.outside + ", which is no file of this project.";
  } else if (plan.condition == JournalCondition::kDamaged) {
    plan.before.reason = plan.after.reason = "The journal cannot be read.";
  } else {
    plan.before = PlanBefore(system, inspection);
    plan.after = inspection.readable_to_end
                     ? PlanAfter(system, inspection)
                     : RecoveryPlan::Way{false, "The change was not begun.", {}};
  }
  return plan;
}

void CheckRecoverable(const std::string& journal, const std::string& database,
                      const Inspection& inspection) {
  switch (inspection.condition) {
    case JournalCondition::kConflict:
    case JournalCondition::kElsewhere:
      throw Error(ErrorKind::kConflict, journal, Message(journal, database, inspection));
    case JournalCondition::kOutside:
      throw Error(ErrorKind::kOutside, journal, Message(journal, database, inspection));
    case JournalCondition::kDamaged:
      throw Error(ErrorKind::kDamaged, journal, Message(journal, database, inspection));
    default:
      break;
  }
}

}  // namespace files
