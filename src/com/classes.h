// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "com/served_class.h"

namespace com {

// The classes that scripts use: Connection, Recordset, Command, VBE.
std::span<const ServedClass> ScriptClasses();

}  // namespace com
