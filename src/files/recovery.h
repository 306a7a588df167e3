// SPDX-License-Identifier: MIT
// What an interrupted change left, and the ways out.
#pragma once

#include <string>
#include <vector>

#include "files/file_identity.h"
#include "files/file_system.h"
#include "messages/message.h"

namespace files {

// What the journal beside a database says, compared with the files as they are.
enum class JournalCondition {
  kNone,         // no journal, or an idle one
  kUntouched,    // the change was interrupted before the first file was touched
  kComplete,     // everything was written; only the end was not noted
  kInterrupted,  // part was written; the state before can be put back
  kConflict,     // somebody else changed a file since; nothing is done without being told
  kElsewhere,    // the journal is of a database at another place
  kOutside,      // the journal names a file that is none of the project's
  kDamaged,      // the journal cannot be read although files may have been changed
};

// How a file stands compared with the interrupted change.
enum class FileState { kBefore, kAfter, kPartly, kEdited, kMissing };

struct RecoveryFile {
  std::string path;
  FileState state = FileState::kBefore;
  messages::Message message;  // what is to be said of its versions
};

enum class RecoveryChoice {
  kBefore,   // every file as it was before the change
  kAfter,    // every file as the change would have left it
  kDiscard,  // the files stay as they are; the journal is put aside
};

struct RecoveryPlan {
  JournalCondition condition = JournalCondition::kNone;
  std::vector<RecoveryFile> files;
  std::string journal;        // its path
  messages::Message message;  // what there is and what can be done; empty for kNone

  // What a choice would do, one sentence per step. A choice that is not possible has no steps
  // and a reason.
  struct Way {
    bool possible = false;
    messages::Message reason;
    std::vector<messages::Message> steps;
  };
  Way before;
  Way after;
  Way discard;
};

// Says what there is without changing anything. Raises kLocked while a change is under way. Of
// the files that the journal names those outside the reach are not even looked at.
RecoveryPlan ExamineJournal(FileSystem& system, const std::string& database_path,
                            const Reach& reach);

// For who only reads: raises unless the database is as before an interrupted change, or that change
// was complete. Changes nothing, and looks at no other file. Raises kConflict with what is to be
// run, kLocked while a change is under way, otherwise as Recover.
void CheckReadable(FileSystem& system, const std::string& database_path);

// Finishes or puts back an interrupted change when every file concerned is in its state before
// or after (sector by sector for a database); removes an idle journal. Returns what was found.
// Raises kConflict, with nothing changed, when somebody else changed a file or the journal is of
// another place, kOutside when it names a file outside the reach, kDamaged when the journal cannot
// be trusted, kLocked while another program changes the project or recovers it. May be repeated at
// any time, also after a crash in it. To be called before the database is opened.
RecoveryPlan Recover(FileSystem& system, const std::string& database_path, const Reach& reach);

// Does what the user chose for a change that Recover refuses. A version of a file that somebody
// else made is kept under the name <file>.edited (.edited-2, ...) before it is overwritten, a
// discarded journal as <journal>.discarded. Raises when the choice is not possible.
RecoveryPlan Resolve(FileSystem& system, const std::string& database_path, RecoveryChoice choice,
                     const Reach& reach);

}  // namespace files
