// SPDX-License-Identifier: MIT
// What a record changed, put back in the open unit of work, and what stands in the way of that.
#pragma once

#include <string>
#include <vector>

#include "files/change_set.h"
#include "files/file_identity.h"
#include "files/file_system.h"
#include "history/record.h"
#include "history/recorder.h"
#include "jet/database.h"
#include "messages/message.h"
#include "store/operation_result.h"

namespace history {

// What is not as the record left it, each with its place and both versions.
using Obstacles = std::vector<messages::Message>;

// Looks at every row of the record, and changes none.
Obstacles CheckRows(jet::Database& database, const Record& record);
// Puts the rows back. REQUIRES: CheckRows found nothing. Raises jet::Error, such as kDuplicate.
void PutRowsBack(jet::Database& database, const Record& record);
// The rows as an operation's answer names them.
std::vector<store::RowChange> RowChangesOf(const Record& record);

// What has to become of the code that a record names.
struct CodeBack {
  std::vector<files::FileChange> files;
  std::vector<files::FileChange> open;  // of modules that an environment has open
};
// Reads the code and adds what has to be written. Raises files::Error.
Obstacles TakeCodeBack(files::FileSystem& system, const files::Reach& reach,
                       const Recorder& recorder, const Record& record, CodeBack& back);

// Rows that would hang in the air: an argument without formula or alias.
Obstacles CheckReferences(jet::Database& database, const Record& record);

// The later records that rest on the record: they changed the same rows, or rows that one side
// refers to by what the other side changed.
std::vector<const Record*> Dependants(const Record& record, const std::vector<Record>& since);

}  // namespace history
