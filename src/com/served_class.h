// SPDX-License-Identifier: MIT
#pragma once

#include "com/ole.h"
#include "com/reference.h"

namespace com {

// The names of our classes begin with this: "OVFormulaEditor.Connection".
inline constexpr wchar_t kLibraryName[] = L"OVFormulaEditor";

// A class that other programs can create.
struct ServedClass {
  const CLSID* id;
  const wchar_t* name;         // behind the point of its programmatic identifier
  const wchar_t* description;  // as tools show it
  Reference<IUnknown> (*create)();
};

}  // namespace com
