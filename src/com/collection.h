// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "com/automation_object.h"

namespace com {

// A collection of an object model: Count, Item by name or number, For Each. It shows what is there
// at each call.
class Collection final : public Automation<Collection> {
 public:
  struct Source {
    std::function<std::size_t()> count;
    std::function<Value(std::size_t place)> at;  // from 0 on
    // Place of a name; `count` when there is none. Empty: elements have no names.
    std::function<std::size_t(const std::string& name)> find;
    std::int32_t base = 0;       // the number of the first element
    std::int32_t not_found = 0;  // number of the error for what is not there
  };
  explicit Collection(Source source) : source_(std::move(source)) {}

  // What a property answers that can be given the name or number of an element: that element, or
  // the whole collection.
  static Value Answer(Source source, const Arguments& arguments);
  // The element that an argument names. Raises the collection's own error.
  static Value Find(const Source& source, const platform::Variant& which);

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.Collection";
  static const Member<Collection> kMembers[2];

 private:
  Value Item(const Arguments& arguments);
  Value Count(const Arguments&) { return Value(static_cast<std::int32_t>(source_.count())); }
  std::vector<Value> Elements() override;

  Source source_;
};

}  // namespace com
