// SPDX-License-Identifier: MIT
// Values as bytes (docs/jet4.md, 6).
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "jet/row_buffer.h"
#include "jet/schema.h"
#include "jet/value.h"

namespace jet {

// The value of a column that is neither Yes/No nor a long value. False when the bytes cannot be
// one. Text goes into the arena; other bytes are copied there.
bool DecodeValue(const Column& column, std::span<const std::byte> stored, Arena& arena,
                 Value& value);

// The value in the kind that the column reads back: an integer given for a real column becomes a
// real, a real for a single column loses what a single cannot hold. Returns why the column cannot
// hold the value, or an empty text.
std::string Conform(const Column& column, Value& value);

// Appends the stored bytes of a conforming value that is neither Null nor Yes/No nor a long value.
// Returns why the column cannot hold it, or an empty text.
std::string EncodeValue(const Column& column, const Value& value, std::vector<std::byte>& out);

}  // namespace jet
