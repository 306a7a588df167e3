// SPDX-License-Identifier: MIT
#pragma once

#include "jet/page.h"
#include "jet/pager.h"
#include "messages/message.h"

namespace jet {

// The map of free pages, named by the header. Unlike the other maps a set bit means "not in use",
// and pages behind the end of the file are marked as well, so that taking a page and growing the
// file are one operation (docs/jet4.md, 3.2).
class FreePageMap {
 public:
  explicit FreePageMap(Pager& pager);

  bool IsFree(PageNumber page) const;
  // The lowest free page that is not below `from`; it is no longer free. May lie behind the end
  // of the file.
  PageNumber Acquire(PageNumber from);
  // Marks a page free. Raises kDamaged when it is marked already.
  void Release(PageNumber page);

 private:
  PageNumber TakeInline(PageNumber from);
  PageNumber TakeReferenced(PageNumber from);
  bool Lengthen();
  void ConvertToReferences();
  PageNumber AddBitmap(std::size_t index);
  // Raises kDamaged for a page far behind the end of the file.
  void RequireNear(PageNumber page) const;

  Pager& pager_;
  RowId record_;
};

}  // namespace jet
