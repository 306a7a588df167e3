// SPDX-License-Identifier: MIT
#include "com/values_object.h"

#include <algorithm>

namespace com {

std::size_t ValuesObject::FindMember(std::wstring_view name) const {
  const auto found = std::ranges::find_if(
      entries_, [&](const Entry& entry) { return SameMemberName(entry.name, name); });
  return static_cast<std::size_t>(found - entries_.begin());
}

}  // namespace com
