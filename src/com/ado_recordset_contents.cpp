// SPDX-License-Identifier: MIT
// Fields, edits and blocks of rows.
#include <optional>
#include <utility>

#include "com/ado_field.h"
#include "com/ado_recordset.h"
#include "platform/text.h"
#include "recordset/messages.h"

namespace com {

using platform::EditMode;

// --- Fields ---

const std::vector<std::string>& AdoRecordset::Names() const {
  session_->Driving([&] {
    const LateBound& rows = Rows();
    if (!names_.empty()) return;
    const LateBound fields = rows.Object(L"Fields");
    const std::int32_t count = fields.Get(L"Count").ToLong();
    std::vector<std::string> names;
    std::vector<LateBound> columns;
    for (std::int32_t i = 0; i < count; ++i) {
      columns.push_back(fields.Object(L"Item", {Value(i)}));
      names.push_back(columns.back().Get(L"Name").ToText());
    }
    names_ = std::move(names);
    columns_ = std::move(columns);
  });
  return names_;
}

const LateBound& AdoRecordset::Column(std::size_t field) const {
  Names();
  return columns_[field];
}

// The objects call a field "Table.Name" only where two have one name.
std::size_t AdoRecordset::FieldIndex(std::string_view name) const {
  const std::vector<std::string>& names = Names();
  const auto find = [&](std::string_view wanted, bool behind_point) {
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::size_t point = behind_point ? names[i].rfind('.') : std::string::npos;
      const std::string_view own = std::string_view(names[i]).substr(point + 1);
      if (!platform::EqualsIgnoringCase(own, wanted)) continue;
      if (found) return std::optional<std::size_t>();
      found = i;
    }
    return found;
  };
  std::optional<std::size_t> place = find(name, false);
  const std::size_t point = name.rfind('.');
  if (!place && point == std::string_view::npos) place = find(name, true);
  if (!place && point != std::string_view::npos) place = find(name.substr(point + 1), false);
  if (place) return *place;
  throw platform::Error(platform::ErrorKind::kNotFound, platform::kErrItemNotFound,
                        messages::Message(recordset::message::kNoField, {{"<Field>", name}}));
}

std::vector<std::string> AdoRecordset::FieldNames() const { return Names(); }

std::size_t AdoRecordset::FieldCount() const { return Names().size(); }

platform::Field& AdoRecordset::Fields(std::string_view name) { return Fields(FieldIndex(name)); }

platform::Field& AdoRecordset::Fields(std::size_t index) {
  if (index >= FieldCount()) {
    throw platform::Error(
        platform::ErrorKind::kNotFound, platform::kErrItemNotFound,
        messages::Message(recordset::message::kNoFieldNumber, {{"<Number>", index}}));
  }
  fields_.resize(FieldCount());
  if (!fields_[index]) fields_[index] = std::make_unique<AdoField>(*this, index);
  return *fields_[index];
}

// --- Edits ---

// Where there is no current row the objects raise an error instead, or call it deleted.
EditMode AdoRecordset::GetEditMode() const try {
  const auto mode = static_cast<EditMode>(Ask(L"EditMode").ToLong());
  return mode == EditMode::kInProgress || mode == EditMode::kAdd ? mode : EditMode::kNone;
} catch (const platform::Error& error) {
  if (error.number() != platform::kErrNoCurrentRecord &&
      error.number() != platform::kErrRowDeleted) {
    throw;
  }
  return EditMode::kNone;
}

// A row that cannot be added or deleted stays with the objects as an edit that is pending.
void AdoRecordset::CallOrCancel(const wchar_t* method, LateBound::Arguments arguments) {
  try {
    Call(method, std::move(arguments));
  } catch (...) {
    try {
      CancelUpdate();
    } catch (const platform::Error&) {
      // The failure that led here is the one to report.
    }
    throw;
  }
}

void AdoRecordset::AddNew() { Call(L"AddNew"); }

void AdoRecordset::AddNew(const std::vector<std::string>& fields,
                          const std::vector<platform::Variant>& values) {
  Rows();
  if (fields.size() != values.size()) {
    Refuse(platform::kErrInvalidArgument, recordset::message::kValueForEachField);
  }
  for (const std::string& field : fields) FieldIndex(field);
  std::vector<Value> contents;
  for (const platform::Variant& value : values) contents.emplace_back(value);
  CallOrCancel(L"AddNew", {Value::List(fields), Value::Array(std::move(contents))});
}

void AdoRecordset::Update() {
  if (GetEditMode() != EditMode::kNone) Call(L"Update");
}

void AdoRecordset::CancelUpdate() {
  Rows();
  cancel_failed_ = true;
  if (GetEditMode() != EditMode::kNone) Call(L"CancelUpdate");
  cancel_failed_ = false;
}

void AdoRecordset::Delete() {
  CheckNoEdit(recordset::message::kDeleting);
  CallOrCancel(L"Delete", {});
}

void AdoRecordset::Resync() {
  constexpr std::int32_t kCurrentRow = 1, kAllValues = 2;
  CheckNoEdit(recordset::message::kResyncing);
  Call(L"Resync", {Value(kCurrentRow), Value(kAllValues)});
}

platform::RowBlock AdoRecordset::GetRows(std::int32_t count,
                                         const std::vector<std::string>& fields) {
  Rows();
  std::vector<std::string> named;
  for (const std::string& field : fields) named.push_back(Names()[FieldIndex(field)]);
  return session_->Driving([&] {
    LateBound::Arguments arguments = {Value(count), Value::Missing()};
    if (!named.empty()) arguments.push_back(Value::List(named));
    return RowsOf(Rows().Get(L"GetRows", std::move(arguments)).get());
  });
}

}  // namespace com
