// SPDX-License-Identifier: MIT
// The type library that is part of this module.
#pragma once

#include <string>
#include <vector>

#include "com/ole.h"
#include "com/reference.h"

namespace com {

const GUID& LibraryId();

// The library of this module. Raises Failure when the module holds none.
Reference<ITypeLib> LoadLibraryOfModule();

struct LibraryInterface {
  GUID id;
  std::wstring name;
};
// The interfaces that the library defines.
std::vector<LibraryInterface> LibraryInterfaces();

}  // namespace com
