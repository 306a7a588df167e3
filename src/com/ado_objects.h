// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "com/late_bound.h"

namespace com {

// Where the objects of ADO's model come from: the system's, or others with the same members.
struct AdoObjects {
  // A new "Connection", "Recordset" or "Command". Raises Failure.
  std::function<LateBound(const std::string& kind)> make;
  // As messages call it.
  std::string provider;

  // Those of the system, for the provider of Access files.
  static AdoObjects Installed();
};

}  // namespace com
