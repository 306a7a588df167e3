// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "com/automation_object.h"

namespace com {

// An object that only has properties with values that do not change: an entry of an error
// collection, a member of a module. The first entry is its default.
class ValuesObject final : public AutomationObject {
 public:
  struct Entry {
    std::wstring name;
    Value value;
  };
  // REQUIRES: there are entries.
  explicit ValuesObject(std::vector<Entry> entries) : entries_(std::move(entries)) {}

 private:
  std::size_t FindMember(std::wstring_view name) const override;
  std::size_t MemberCount() const override { return entries_.size(); }
  Value Get(std::size_t member, const Arguments&) override { return entries_[member].value; }
  void Put(std::size_t, const Arguments&) override { Require(DISP_E_MEMBERNOTFOUND); }
  const wchar_t* ClassName() const override { return L"OVFormulaEditor"; }

  std::vector<Entry> entries_;
};

}  // namespace com
