// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "project/item_catalogue.h"
#include "texts/text_table.h"

namespace project {

// Why lines of the catalogue in `file` were skipped, a message each for the first few; a last one
// counts the rest. Empty when all lines were read.
std::vector<std::string> SkippedItems(const ItemCatalogue& catalogue, const std::string& file,
                                      const texts::TextTable& texts);

}  // namespace project
