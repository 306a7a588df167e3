// SPDX-License-Identifier: MIT
// Late-bound access to the properties of models by name and by path.
#pragma once

#include <optional>
#include <string_view>

#include "platform/variant.h"

namespace forms {

// An object whose properties are reached by name at run time. Names compare without regard to
// case. The defaults know no property.
class PropertyObject {
 public:
  virtual ~PropertyObject() = default;

  // Value of a plain property; nothing when the object has no property of that name.
  virtual std::optional<platform::Variant> GetProperty(std::string_view name) const;
  // False when the object has no such property, it is read-only or the value does not fit.
  virtual bool SetProperty(std::string_view name, const platform::Variant& value);
  // The object behind a property such as `Font` or, with an argument, `Columns("In")`; null when
  // there is none. The object lives as long as its owner's structure is unchanged.
  virtual PropertyObject* SubObject(std::string_view name,
                                    const std::optional<platform::Variant>& argument);
};

// Reads the property at the end of a path such as `Splits(0).Columns("In").Width`, whose
// components are separated by points. An argument in double quotes is text, any other a number.
std::optional<platform::Variant> GetByPath(PropertyObject& object, std::string_view path);

// Sets the property at the end of a path; false when the path or the property does not exist or
// refuses the value. Nothing is changed then.
bool SetByPath(PropertyObject& object, std::string_view path, const platform::Variant& value);

}  // namespace forms
