// SPDX-License-Identifier: MIT
#pragma once

#include "com/served_class.h"

namespace embedded {

// OVFormulaEditor.Connect, the class that the studio creates.
com::ServedClass ConnectClass();

}  // namespace embedded
