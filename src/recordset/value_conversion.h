// SPDX-License-Identifier: MIT
// Between the engine's values and those of the platform.
#pragma once

#include "jet/schema.h"
#include "jet/value.h"
#include "platform/ado.h"
#include "platform/row_block.h"
#include "platform/variant.h"

namespace recordset {

platform::DataType DataTypeOf(jet::ColumnType type);
// Raises kErrFeatureNotAvailable for a type that no new column can have.
jet::ColumnType ColumnTypeOf(platform::DataType type);
// Characters of a text, bytes otherwise; 0 when there is no limit.
std::int32_t DefinedSizeOf(const jet::Column& column);

platform::Variant ToVariant(const jet::Value& value);
// Adds it to a block of rows.
inline void AddValue(const jet::Value& value, platform::RowBlock& rows);
// The same, without the short way for the kinds that most values have.
void AddAnyValue(const jet::Value& value, platform::RowBlock& rows);

// The value as the column holds it: numbers rounded half to even, numbers in text read, Null false
// in a Yes/No column. Raises kErrTypeMismatch or kErrDataOverflow; the description names the field.
platform::Variant Coerce(const jet::Column& column, const platform::Variant& value);
// A coerced value for the engine; refers to it.
jet::Value ToValue(const jet::Column& column, const platform::Variant& coerced);

inline void AddValue(const jet::Value& value, platform::RowBlock& rows) {
  if (value.kind() == jet::ValueKind::kText) {
    rows.Add(value.text());
  } else if (value.kind() == jet::ValueKind::kInteger) {
    rows.Add(static_cast<std::int32_t>(value.integer()));
  } else {
    AddAnyValue(value, rows);
  }
}

}  // namespace recordset
