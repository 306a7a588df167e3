// SPDX-License-Identifier: MIT
// The way to the rows: every part opens, closes, reads and writes recordsets by these.
#pragma once

#include <string>
#include <string_view>

#include "platform/ado.h"

namespace store {

// Opens the recordset if it is closed, filters it and goes to the last row, if there is one; before
// a row is added. Raises platform::Error.
void OpenFilteredAtLast(platform::Recordset& recordset, std::string_view filter);

// The same, going to the first row; before rows are read or changed.
void OpenFilteredAtFirst(platform::Recordset& recordset, std::string_view filter);

// Closes an open recordset. An edit that is pending is written when `save` is set, and given up
// when it is not or cannot be written. Returns whether the recordset is closed. Never raises.
bool CloseRecordset(platform::Recordset& recordset, bool save) noexcept;

// The text that an input field shows for the value: empty for Null; the one character of code 0
// that stands for an empty text is shown as it is.
std::string FieldToText(const platform::Field& field);

// A text as its field holds it: the empty text is one character of code 0.
platform::Variant FieldText(std::string_view text);

// Stores the text of an input field: its leading number in a 32-bit integer field, itself in a
// text field, as FieldText gives it. Fields of other types stay as
// they are. Raises platform::Error.
void TextToField(platform::Field& field, std::string_view text);

}  // namespace store
