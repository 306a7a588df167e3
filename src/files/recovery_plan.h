// SPDX-License-Identifier: MIT
// The words of a recovery: what there is and what each choice would do.
#pragma once

#include <string>

#include "files/file_system.h"
#include "files/journal_file.h"
#include "files/journal_inspection.h"
#include "files/recovery.h"

namespace files {

// `journal` and `database` are the paths of the journal that was inspected and of its database.
RecoveryPlan MakePlan(FileSystem& system, const std::string& journal, const std::string& database,
                      const journal::Inspection& inspection);

// Raises kConflict or kDamaged for a journal that is not applied without being told.
void CheckRecoverable(const std::string& journal, const std::string& database,
                      const journal::Inspection& inspection);

// Finishes or puts back what a locked journal says. Raises as CheckRecoverable does.
void RecoverLocked(FileSystem& system, JournalFile& journal, const std::string& database,
                   const journal::Inspection& inspection);

// Where a journal that is given up is kept.
std::string DiscardedName(const std::string& journal);

}  // namespace files
