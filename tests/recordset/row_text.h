// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ado.h"

namespace recordset {

// The number of the error that the call raises, 0 for none.
template <class Action>
std::int32_t ErrorOf(Action action) {
  try {
    action();
  } catch (const platform::Error& error) {
    return error.number();
  }
  return 0;
}

inline std::string ValueText(const platform::Variant& value) {
  if (value.IsNull()) return "Null";
  std::string text;
  for (char c : value.ToText()) text += c == '\0' ? std::string("\\0") : std::string(1, c);
  return text;
}

// All rows from the first on, walked by MoveNext: "a|b c|d" with the named fields (all: none
// named).
inline std::string RowsText(platform::Recordset& recordset, std::vector<std::string> fields = {}) {
  if (fields.empty()) fields = recordset.FieldNames();
  std::string text;
  if (!(recordset.BOF() && recordset.EOF_())) recordset.MoveFirst();
  for (; !recordset.EOF_(); recordset.MoveNext()) {
    std::string row;
    for (const std::string& field : fields) {
      row += (row.empty() ? "" : "|") + ValueText(recordset.Fields(field).Value());
    }
    text += (text.empty() ? "" : " ") + row;
  }
  return text;
}

// The same of all fields, read as one block.
inline std::string BlockText(platform::Recordset& recordset) {
  if (recordset.EOF_()) return "";
  const platform::RowBlock rows = recordset.GetRows(-1, {});
  std::string text;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    for (std::size_t field = 0; field < rows.FieldCount(); ++field) {
      text += (field > 0 ? "|" : row > 0 ? " " : "") + ValueText(rows.At(field, row).ToVariant());
    }
  }
  return text;
}

}  // namespace recordset
