// SPDX-License-Identifier: MIT
// Rows that come from the clipboard, of a spreadsheet or of ourselves.
#pragma once

#include <string>
#include <string_view>

#include "exchange/contents.h"

namespace exchange {

// A list with a header, or JSON, says what it says. Lines without a header are aliases: "ITEM" or
// "ITEM<Tab>ALIAS". Raises FormatError.
Contents ReadPastedAliases(std::string text);

// Arguments of the formula, unless a header names formulas. Without a header lines are an alias or
// an item, perhaps the item of the alias, In and Out. Of JSON it is all arguments. Raises
// FormatError.
Contents ReadPastedArguments(std::string text, std::string_view formula, std::string_view prog_id);

}  // namespace exchange
