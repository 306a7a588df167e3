// SPDX-License-Identifier: MIT
// Usage maps: sets of pages, kept as a row on a data page (docs/jet4.md, 3).
#pragma once

#include <optional>

#include "jet/page.h"
#include "jet/pager.h"

namespace jet {

// The set of pages that the map record at `record` holds: inline bitmap or references to bitmap
// pages. A record of slot 0 on page 0 stands for "no map": always empty, never changed.
class UsageMap {
 public:
  UsageMap(Pager& pager, RowId record) : pager_(pager), record_(record) {}

  bool Contains(PageNumber page) const;
  // The lowest member that is not below `from`.
  std::optional<PageNumber> Next(PageNumber from) const;
  // The map grows (longer inline bitmap, then references to bitmap pages) as needed.
  void Add(PageNumber page);
  void Remove(PageNumber page);

 private:
  void Set(PageNumber page, bool member);
  bool SetInline(PageNumber page, bool member);
  bool Lengthen(PageEdit& page, std::size_t bit);
  void ConvertToReferences();
  void SetReferenced(PageNumber page, bool member);
  [[noreturn]] void ThrowTooShort() const;

  Pager& pager_;
  RowId record_;
};

}  // namespace jet
