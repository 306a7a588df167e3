// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editor/editor_context.h"
#include "editor/editor_view.h"
#include "editor/list_commands.h"
#include "editor/status_counters.h"
#include "forms/grid.h"
#include "messages/text_number.h"
#include "store/formula_records.h"

namespace editor {

// Actions of the commands of formulas (all), arguments and aliases.
enum Action : std::int16_t {
  kNew = 0,
  kEdit = 1,
  kDelete = 2,
  kShowCode = 3,
  kDuplicate = 4,
  kCopy = 5,
  kPaste = 6
};
enum GridAction : std::int16_t { kEditCell = 0, kCopyRows = 1, kPasteCell = 2 };
enum EditAction : std::int16_t { kUndo = 0, kRedo = 1 };
enum ExtraAction : std::int16_t { kRefresh = 0, kStatistics = 1, kOptions = 2, kReport = 7 };

// The commands behind the tools. Formula commands concern the node of the tree's context, argument
// and alias commands what the two grids show.
class Commands {
 public:
  // All of it outlives the commands.
  Commands(EditorContext& context, EditorView& view, ListCommands& lists, forms::Grid& arguments,
           forms::Grid& aliases, StatusCounters& counters)
      : context_(context),
        view_(view),
        lists_(lists),
        arguments_(arguments),
        aliases_(aliases),
        counters_(counters) {}

  // Runs the command of a tool; any other name does nothing.
  void Run(std::string_view tool_name);

  void mnuFunction(std::int16_t action);
  void mnuParameter(std::int16_t action);
  void mnuAlias(std::int16_t action);
  // Cells and rows of the grid that is shown.
  void mnuGrid(std::int16_t action);
  void mnuExtra(std::int16_t action);
  // Takes the last operation back or does it again, where the editor's menu offers that.
  void mnuEdit(std::int16_t action);

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
  std::string DescribeUses(const std::vector<AliasUse>& used);
  void EditCell(forms::Grid& grid);
  void CopyRows(const forms::Grid& grid);
  void PasteCell(forms::Grid& grid);
  // In the studio's status line.
  void Say(const std::string& text) const;
  std::string Counted(messages::TextNumber text_of_one, std::int64_t count) const;
  void ShowStatistics();
  void ShowReport();
  bool Confirmed(messages::TextNumber question, const std::string& detail);

  EditorContext& context_;
  EditorView& view_;
  ListCommands& lists_;
  forms::Grid& arguments_;
  forms::Grid& aliases_;
  StatusCounters& counters_;
};

}  // namespace editor
