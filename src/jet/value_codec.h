// SPDX-License-Identifier: MIT
// Values as bytes (docs/jet4.md, 6).
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "jet/bytes.h"
#include "jet/row_buffer.h"
#include "jet/schema.h"
#include "jet/text_codec.h"
#include "jet/value.h"
#include "messages/message.h"

namespace jet {

// The value of a column that is neither Yes/No nor a long value. False when the bytes cannot be
// one. Text goes into the arena; other bytes are copied there.
inline bool DecodeValue(const Column& column, std::span<const std::byte> stored, Arena& arena,
                        Value& value);
// The same, without the short way for the types that most columns have.
bool DecodeAnyValue(const Column& column, std::span<const std::byte> stored, Arena& arena,
                    Value& value);

// The value in the kind that the column reads back: an integer given for a real column becomes a
// real, a real for a single column loses what a single cannot hold. Returns why the column cannot
// hold the value, or an empty message.
messages::Message Conform(const Column& column, Value& value);

// Appends the stored bytes of a conforming value that is neither Null nor Yes/No nor a long value.
// Returns why the column cannot hold it, or an empty message.
messages::Message EncodeValue(const Column& column, const Value& value,
                              std::vector<std::byte>& out);

inline bool DecodeValue(const Column& column, std::span<const std::byte> stored, Arena& arena,
                        Value& value) {
  if (column.type == ColumnType::kText) {
    value = Value::Text(DecodeText(stored, arena));
    return true;
  }
  if (column.type == ColumnType::kLong && stored.size() == 4) {
    value = Value::Integer(static_cast<std::int32_t>(Load32(stored.data())));
    return true;
  }
  return DecodeAnyValue(column, stored, arena, value);
}

}  // namespace jet
