// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "texts/text_table.h"
#include "workbench/project.h"

namespace workbench {

// The report on a project: one self-contained HTML document with the formulas by class, their
// arguments and code, the aliases with their uses, and counts. The same project gives the same
// bytes. Raises what the project's look-ups raise.
std::string MakeReport(Project& project, const texts::TextTable& texts);

}  // namespace workbench
