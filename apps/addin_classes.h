// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "com/served_class.h"

namespace apps {

// The classes of OVFormulaEditor.dll.
std::span<const com::ServedClass> AddInClasses();

}  // namespace apps
