// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "cli/invocation.h"
#include "store/formula_records.h"

namespace cli {

// Aliases that are to be added, as they were given; without an alias one is to be proposed.
struct AliasList {
  std::vector<store::AliasValues> values;
  std::vector<Given> given;  // goes with the values
};

// Reads the lines of standard input: "ITEM", "ITEM<Tab>ALIAS", or a table whose header names the
// columns item and alias (also ItemID and VBAlias), separated by comma, semicolon or tab. Raises
// CommandError with the line for what is neither.
AliasList ReadAliasList(Invocation& invocation);

}  // namespace cli
