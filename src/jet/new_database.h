// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace jet {

// The whole file of an empty database: header, maps, the four system tables and their rows
// (docs/jet4.md, 15). `created` is the date of its objects in days since 1899-12-30.
std::string NewDatabase(double created);

// The time now as a database counts it: local time, days since 1899-12-30.
double DateNow();

}  // namespace jet
