// SPDX-License-Identifier: MIT
// A module without the window: the classes for scripts.
#include "apps/addin_classes.h"
#include "com/classes.h"

namespace apps {

std::span<const com::ServedClass> AddInClasses() { return com::ScriptClasses(); }

}  // namespace apps
