// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "messages/message.h"
#include "platform/variant.h"

namespace store {

enum class Outcome {
  kDone,         // also when nothing had to change
  kRefused,      // the request cannot be carried out as things stand
  kFileProblem,  // a file cannot be read or written, is locked or damaged
  kCancelled,    // by the progress callback
};

// One row that an operation changed.
struct RowChange {
  enum class Kind : char { kAdded = '+', kDeleted = '-', kChanged = '~' };
  Kind kind = Kind::kAdded;
  std::string table;
  // Names and values in the table's order: of the new row, of the deleted one, or of the row as
  // it is after the change.
  std::vector<std::pair<std::string, platform::Variant>> members;
};

// What an operation came to. Unless the outcome is kDone, rows and code are as they were before.
struct OperationResult {
  Outcome outcome = Outcome::kDone;
  messages::Message message;  // why not; empty when done
  messages::Message detail;   // cause and remedy; may be empty
  std::vector<messages::Message> warnings;
  std::vector<RowChange> rows;
  std::vector<std::int32_t> ids;  // of the objects added or edited, in the order given

  bool success() const { return outcome == Outcome::kDone; }
  std::int32_t id() const { return ids.empty() ? 0 : ids.front(); }
};

struct OperationOptions {
  bool with_rows_only = false;  // --no-code: no line of code is looked at or changed
  bool dry_run = false;         // everything is put back at the end
  bool with_rows = true;        // the answer has the rows that changed; of many they take room
  // Called when all changes are made, before they are committed or put back: the place where the
  // changed code can be compared.
  std::function<void()> inspect = {};
  // Called before each object of a list; false cancels the whole operation.
  std::function<bool(std::size_t done, std::size_t total)> progress = {};
};

}  // namespace store
