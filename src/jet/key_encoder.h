// SPDX-License-Identifier: MIT
// Keys of index entries: for each column a start byte and the value, so that plain comparison of
// bytes orders rows as the index does (docs/jet4.md, 11).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "jet/text_key.h"
#include "jet/value.h"

namespace jet {

// Why a value has no key.
struct KeyFault {
  enum class Reason : std::uint8_t {
    kWrongKind,    // the column holds values of another kind
    kOutOfRange,   // the column's type cannot hold the number
    kNoCharacter,  // `character` has no place in the collation
    kNoIndex,      // columns of this type cannot be indexed
  };
  Reason reason = Reason::kWrongKind;
  char32_t character = 0;
};

// Appends the part of one column to a key. Returns why it could not; then `key` is as it was.
[[nodiscard]] std::optional<KeyFault> AppendKeyPart(ColumnType type, SortOrder order,
                                                    const Value& value,
                                                    std::vector<std::byte>& key);

}  // namespace jet
