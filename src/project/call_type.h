// SPDX-License-Identifier: MIT
// Call types of formulas in words.
#pragma once

#include <cstdint>
#include <string>

#include "store/formula_records.h"
#include "texts/text_table.h"

namespace project {

// The name of a call type; its number when there is none, as other programs can write.
std::string CallTypeName(std::int32_t type, const texts::TextTable& texts);

// "asynchronous, every 500 ms".
std::string CallTypeText(const store::FormulaRecord& formula, const texts::TextTable& texts);

}  // namespace project
