// SPDX-License-Identifier: MIT
// The words of a recovery: what there is and what each choice would do. Changes nothing.
#pragma once

#include <string>

#include "files/file_system.h"
#include "files/journal_inspection.h"
#include "files/recovery.h"

namespace files {

// `journal` and `database` are the paths of the journal that was inspected and of its database.
RecoveryPlan MakePlan(FileSystem& system, const std::string& journal, const std::string& database,
                      const journal::Inspection& inspection);

// Raises kConflict or kDamaged for a journal that is not applied without being told.
void CheckRecoverable(const std::string& journal, const std::string& database,
                      const journal::Inspection& inspection);

// Where a journal that is given up is kept.
std::string DiscardedName(const std::string& journal);

}  // namespace files
