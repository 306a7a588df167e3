// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "forms/grid.h"
#include "store/operation_result.h"

namespace editor {

class frmtabgrid;

// What the grids do with keys, the mouse and typed values. A changed cell is written at once, by
// the operation that the dialog would call; what it refuses is said and the old value returns.
class GridEditing {
 public:
  explicit GridEditing(frmtabgrid& window);

  // While true the reports of a failing row are left to whoever writes it.
  void SetSilent(bool silent) { silent_ = silent; }
  // What the last failure has to add to its description.
  std::string TakeDetail() { return std::exchange(detail_, {}); }

 private:
  // What the two grids do differently.
  struct GridCommands {
    const char* new_tool;
    const char* edit_tool;
    const char* delete_tool;
    const char* band;
    std::size_t chooser_column;
  };

  void Wire(forms::Grid& grid, const GridCommands& commands);
  void OnKey(forms::Grid& grid, const GridCommands& commands, forms::KeyEvent& event);
  void OnMouseUp(const GridCommands& commands, const forms::MouseEvent& event);
  void Click(const char* tool_name);
  void ExtendSelection(forms::Grid& grid, bool up);
  void ChooseCell(forms::Grid& grid, std::size_t column);
  void WriteArgument(std::int64_t id, const std::vector<forms::CellChange>& changes);
  void WriteAlias(std::int64_t id, const std::vector<forms::CellChange>& changes);
  // Raises the error that OnError turns into a message.
  [[noreturn]] void Fail(std::int32_t number, const std::string& prompt, const std::string& detail);
  void FailUnlessDone(const store::OperationResult& result);
  void OnError(forms::Grid& grid, const forms::GridError& error);

  frmtabgrid& window_;
  bool silent_ = false;
  std::string detail_;  // of the failure that is being raised
};

}  // namespace editor
