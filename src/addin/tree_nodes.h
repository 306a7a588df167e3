// SPDX-License-Identifier: MIT
// The add-in's nodes in the studio's project tree.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/studio.h"
#include "texts/text_table.h"

namespace addin {

// A formula as the tree shows it.
struct FormulaNode {
  std::int32_t id = 0;
  std::string name;
};

// Registers the three icons and adds the root.
void BuildRoot(platform::AddIn& studio, const texts::TextTable& texts);

// Adds the alias branch and the formula branch with a node for each formula.
void BuildBranches(platform::AddIn& studio, const texts::TextTable& texts,
                   const std::vector<FormulaNode>& formulas);

void RemoveRoot(platform::AddIn& studio);

// Removes what is below the root and asks the studio to draw the root again.
void RemoveBranches(platform::AddIn& studio);

}  // namespace addin
