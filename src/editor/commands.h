// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/formula_records.h"

namespace editor {

class frmtabgrid;

// The commands behind the tools. Formula commands concern the node of the tree's context, argument
// and alias commands what the window shows.
class Commands {
 public:
  explicit Commands(frmtabgrid& window) : window_(window) {}

  // Runs the command of a tool; any other name does nothing.
  void Run(std::string_view tool_name);

  // Actions: 0 new, 1 edit, 2 delete, 3 show code (formulas only).
  void mnuFunction(std::int16_t action);
  void mnuParameter(std::int16_t action);
  void mnuAlias(std::int16_t action);
  // Actions: 0 refresh, 1 statistics, 2 options, 7 report.
  void mnuExtra(std::int16_t action);

 private:
  using AliasUse = std::pair<std::int32_t, std::vector<store::FormulaRecord>>;
  struct AliasUses {
    std::vector<std::int32_t> unused;
    std::vector<AliasUse> used;
  };

  void NewFormula();
  void EditFormula(std::int32_t id);
  void DeleteFormula(std::int32_t id);
  void ShowCode(std::int32_t id);
  void NewArgument();
  void EditArgument();
  void DeleteArguments();
  void NewAlias();
  void EditAlias();
  void DeleteAliases();
  // Nothing when the user stopped the look.
  std::optional<AliasUses> FindUses(const std::vector<std::int32_t>& aliases);
  void WarnOfUses(const std::vector<AliasUse>& used);
  void ShowStatistics();
  void ShowReport();
  bool Confirmed(std::int32_t question, const std::string& detail);

  frmtabgrid& window_;
};

}  // namespace editor
