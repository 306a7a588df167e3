// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "com/value.h"

namespace com {

// What "For Each" walks: the values as they are now.
Value MakeEnumerator(std::vector<Value> values);

}  // namespace com
