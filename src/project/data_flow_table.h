// SPDX-License-Identifier: MIT
// A data flow in words.
#pragma once

#include <functional>
#include <string>

#include "project/data_flow.h"
#include "texts/text_table.h"

namespace project {

// "3 formulas write it".
std::string WritersText(const DataFlow::Item& item, const texts::TextTable& texts);

// An HTML table: each item that is used, the formulas that write and that read it. `show` gives the
// HTML for a formula; without it the name alone.
std::string DataFlowTable(const DataFlow& flow, const texts::TextTable& texts,
                          const std::function<std::string(const store::FormulaRecord&)>& show = {});

}  // namespace project
