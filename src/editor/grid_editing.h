// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/editor_context.h"
#include "editor/editor_view.h"
#include "forms/grid.h"
#include "store/operation_result.h"

namespace editor {

// What the grids do with keys, the mouse and typed values. A changed cell is written at once, by
// the operation that the dialog would call; what it refuses is said and the old value returns.
class GridEditing {
 public:
  // All of it outlives this object.
  GridEditing(EditorContext& context, GridOwner& owner, forms::Grid& arguments,
              forms::Grid& aliases);

  // Writes the pending edit of a grid. What cannot be written is dropped; why it could not be.
  std::optional<std::string> WritePending(forms::Grid& grid);

 private:
  // What the two grids do differently.
  struct GridKind {
    const char* band;  // of its commands
    std::size_t chooser_column;
  };

  void Wire(forms::Grid& grid, const GridKind& kind);
  void OnKey(forms::Grid& grid, const GridKind& kind, forms::KeyEvent& event);
  void ExtendSelection(forms::Grid& grid, bool up);
  void ChooseCell(forms::Grid& grid, std::size_t column);
  void WriteArgument(std::int64_t id, const std::vector<forms::CellChange>& changes);
  void WriteAlias(std::int64_t id, const std::vector<forms::CellChange>& changes);
  // Raises the error that OnError turns into a message.
  [[noreturn]] void Fail(std::int32_t number, const messages::Message& prompt,
                         const messages::Message& detail = {});
  void FailUnlessDone(const store::OperationResult& result);
  void OnError(forms::Grid& grid, const forms::GridError& error);
  std::string TakeDetail() { return std::exchange(detail_, {}); }

  EditorContext& context_;
  GridOwner& owner_;
  forms::Grid& aliases_;
  bool silent_ = false;  // whoever writes the row reports what fails
  std::string detail_;   // of the failure that is being raised
};

}  // namespace editor
