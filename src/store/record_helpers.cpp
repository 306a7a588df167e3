// SPDX-License-Identifier: MIT
#include "store/record_helpers.h"

#include <exception>

namespace store {
namespace {

// Returns false when there are no rows.
bool OpenFiltered(platform::Recordset& recordset, std::string_view filter) {
  if (recordset.State() == platform::ObjectState::kClosed) recordset.Open();
  recordset.SetFilter(filter);
  return !(recordset.BOF() && recordset.EOF_());
}

template <class Action>
bool Succeeds(Action action) noexcept {
  try {
    action();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

void OpenFilteredAtLast(platform::Recordset& recordset, std::string_view filter) {
  if (OpenFiltered(recordset, filter)) recordset.MoveLast();
}

void OpenFilteredAtFirst(platform::Recordset& recordset, std::string_view filter) {
  if (OpenFiltered(recordset, filter)) recordset.MoveFirst();
}

bool CloseRecordset(platform::Recordset& recordset, bool save) noexcept {
  auto is_closed = [&] { return recordset.State() == platform::ObjectState::kClosed; };
  if (is_closed() || Succeeds([&] { recordset.Close(); })) return is_closed();
  const bool saved = save && Succeeds([&] {
                       recordset.Update();
                       recordset.Close();
                     });
  if (!saved) {
    Succeeds([&] { recordset.CancelUpdate(); });
    Succeeds([&] { recordset.Close(); });
  }
  return is_closed();
}

std::string FieldToText(const platform::Field& field) {
  return field.Value().ToText();  // Null is the empty text
}

platform::Variant FieldText(std::string_view text) {
  return text.empty() ? platform::Variant(std::string(1, '\0')) : platform::Variant(text);
}

void TextToField(platform::Field& field, std::string_view text) {
  switch (field.Type()) {
    case platform::DataType::kInteger:
      field.SetValue(platform::Val(text));
      break;
    case platform::DataType::kVarWChar:
      field.SetValue(FieldText(text));
      break;
    default:
      break;
  }
}

}  // namespace store
