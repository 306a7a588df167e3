// SPDX-License-Identifier: MIT
// Who repairs: brings the files of an interrupted change to one of their two states. What there is
// was found by Inspect (journal_inspection.h); who decides is the caller (recovery.h).
#pragma once

#include "files/journal_file.h"
#include "files/journal_inspection.h"

namespace files::journal {

// Finishes a change that is complete, puts back any other. Raises as CheckRecoverable does, with
// nothing changed. The journal is locked.
void Repair(FileSystem& system, JournalFile& journal, const std::string& database,
            const Inspection& inspection);

// Brings every file of a journal to its state before the change, makes that last, removes
// temporary files and marks the journal idle. Files that are in that state are left alone. A
// version that somebody else made is kept aside first. The journal is locked and readable.
void PutBack(FileSystem& system, JournalFile& journal, const Inspection& inspection);

// Whether the file can be brought to its state after the change.
bool CanFinish(const InspectedFile& file);

// Brings every file to its state after the change, makes that last, removes temporary files and
// marks the journal idle. Every file satisfies CanFinish.
void Finish(FileSystem& system, JournalFile& journal, const Inspection& inspection);

// Gives versions of files that somebody else made, and that were just taken out of their place when
// the program died, their names again.
void PutOthersBack(FileSystem& system, const Inspection& inspection);

// Removes the temporary files of a change that is not carried on.
void RemoveTemporaries(FileSystem& system, const Inspection& inspection);

}  // namespace files::journal
