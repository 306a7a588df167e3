// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "codegen/vb_formula_code.h"
#include "platform/studio.h"
#include "store/operations.h"
#include "texts/text_table.h"

namespace project {

// By which a report is known, near its beginning.
inline constexpr const char* kReportMark = "<meta name=\"generator\" content=\"ovformula report\">";

// What the report is made from.
struct ReportSource {
  std::string database_path;
  store::Operations& operations;
  codegen::CVBFormulaCode& code;
  platform::OVItems& items;
  // Called step by step; false stops the report.
  std::function<bool(std::size_t done, std::size_t total)> progress = {};
};

// The report on a project: one self-contained HTML document with the formulas by class, their
// arguments and code, the aliases with their uses, and counts. The same project gives the same
// bytes. "" when it was stopped. Raises what the project's look-ups raise.
std::string MakeReport(const ReportSource& source, const texts::TextTable& texts);

}  // namespace project
