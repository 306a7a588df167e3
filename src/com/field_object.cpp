// SPDX-License-Identifier: MIT
#include "com/field_object.h"

namespace com {

const Member<FieldObject> FieldObject::kMembers[5] = {
    {L"Value", &FieldObject::GetValue, &FieldObject::PutValue},
    {L"Name", &FieldObject::Name},
    {L"Type", &FieldObject::Type},
    {L"DefinedSize", &FieldObject::DefinedSize},
    {L"OriginalValue", &FieldObject::OriginalValue},
};

std::size_t FieldPlace(platform::Recordset& rows, std::string_view name) {
  const platform::Field& wanted = rows.Fields(name);
  const std::size_t count = rows.FieldCount();
  for (std::size_t place = 0; place < count; ++place) {
    if (&rows.Fields(place) == &wanted) return place;
  }
  return count;
}

}  // namespace com
