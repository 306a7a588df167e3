// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include "com/automation_object.h"
#include "platform/ado.h"

namespace com {

// A field of a recordset: always of the row that is current when it is asked.
class FieldObject final : public Automation<FieldObject> {
 public:
  FieldObject(std::shared_ptr<platform::Recordset> rows, std::size_t place)
      : rows_(std::move(rows)), place_(place) {}

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Field";
  static const Member<FieldObject> kMembers[5];

 private:
  platform::Field& Field() const { return rows_->Fields(place_); }
  Value GetValue(const Arguments&) { return Value(Field().Value()); }
  void PutValue(const Arguments& arguments) { Field().SetValue(arguments.At(0)); }
  Value Name(const Arguments&) { return Value(Field().Name()); }
  Value Type(const Arguments&) { return Value(static_cast<std::int32_t>(Field().Type())); }
  Value DefinedSize(const Arguments&) { return Value(Field().DefinedSize()); }
  Value OriginalValue(const Arguments&) { return Value(Field().OriginalValue()); }

  std::shared_ptr<platform::Recordset> rows_;
  std::size_t place_;
};

// Place of a field that is named by itself or with its table; the number of fields when there is
// none.
std::size_t FieldPlace(platform::Recordset& rows, std::string_view name);

}  // namespace com
