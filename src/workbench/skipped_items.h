// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "texts/text_table.h"
#include "workbench/item_catalogue.h"

namespace workbench {

// Why lines of the catalogue in `file` were skipped, a message each for the first few; a last one
// counts the rest. Empty when all lines were read.
std::vector<std::string> SkippedItems(const ItemCatalogue& catalogue, const std::string& file,
                                      const texts::TextTable& texts);

}  // namespace workbench
