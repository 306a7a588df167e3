// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "dialogs/item_notes.h"
#include "forms/row_source.h"
#include "store/operations.h"

namespace editor {

// The arguments of one formula, by the names of their aliases. An index finds them, so they are
// read at once: their number is that of one procedure's arguments, not of the table's rows.
class ArgumentRows : public forms::MemoryRows {
 public:
  // Reads the arguments of the formula; no formula (0) has none. Raises platform::Error when the
  // database fails; there are no rows then.
  // With notes the cells of the own columns are followed by item, type and comment.
  void Read(store::Operations& operations, std::int32_t formula_id,
            dialogs::ItemNotes* notes = nullptr);
};

}  // namespace editor
