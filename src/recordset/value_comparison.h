// SPDX-License-Identifier: MIT
// How the database compares values: texts by their index keys (case and trailing blanks do not
// count, ss equals the sharp s), numbers of all types by their value, true being -1.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "jet/schema.h"
#include "jet/value.h"

namespace recordset {

// Values of one family can be compared with each other.
enum class Family : std::uint8_t { kNumber, kText, kBytes };

Family FamilyOf(jet::ColumnType type);
// Not for Null, which compares with everything (and is unknown).
Family FamilyOf(const jet::Value& value);

// Both are of one family and not Null.
bool EqualValues(const jet::Value& a, const jet::Value& b);
std::weak_ordering CompareValues(const jet::Value& a, const jet::Value& b);

// Appends bytes that order rows as CompareValues does, Null first.
void AppendOrderKey(jet::ColumnType type, bool descending, const jet::Value& value,
                    std::vector<std::byte>& key);

// Appends bytes that are the same for values that are equal, whatever their types. Not for Null.
void AppendEqualityKey(const jet::Value& value, std::vector<std::byte>& key);

// Whether equal values of a column of this type have equal index keys, so that an index finds all
// that EqualValues finds.
bool IsSearchable(jet::ColumnType type);
// The same for a column, whose texts may be in another order than the database's.
bool CanSearch(const jet::Column& column);

// The value as a column of this searchable type holds it: nothing when no value of the column can
// be equal to it. The value is of the column's family or Null.
std::optional<jet::Value> AsColumnValue(jet::ColumnType type, const jet::Value& value);

}  // namespace recordset
