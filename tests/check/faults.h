// SPDX-License-Identifier: MIT
// Projects with one fault each: what is done to a project in order, and what is said of it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/check/checked_project.h"

namespace check {

struct Fault {
  const char* name;
  std::function<void(CheckedProject&)> make;
  const char* findings;        // as Describe shows them
  const char* repaired = "";   // lines of rows and code that a repair changes
  const char* left = nullptr;  // findings behind it; null: the same, or none when something changed
};

std::vector<Fault> Faults();

}  // namespace check
