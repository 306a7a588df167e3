// SPDX-License-Identifier: MIT
// Rows that are dragged from one window of the program to another by the mouse.
#pragma once

#include <wx/dnd.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace wx {

struct DraggedRows {
  std::string kind;  // what the numbers are of
  std::vector<std::int64_t> ids;
};

enum class DropEffect { kNone, kMove, kCopy };

// Drags rows until the button is released; only while an event of the mouse is handled. What the
// drop does is done afterwards.
void DragRows(wxWindow& source, const DraggedRows& rows);

// The native part of DragRows: drags data of one byte in that format.
inline constexpr const char* kRowFormat = "application/x-ovformula-rows";
void RunDrag(wxWindow& source);

// What a window does with rows of this program that are dragged over it. The point is in its client
// area; `copy`: Ctrl is held.
class RowDropTarget final : public wxDropTarget {
 public:
  struct Actions {
    std::function<DropEffect(const DraggedRows& rows, const wxPoint& point, bool copy)> over;
    std::function<void()> leave;  // the pointer went on, or the rows were dropped
    std::function<void(const DraggedRows& rows, const wxPoint& point, bool copy)> drop;
  };
  explicit RowDropTarget(Actions actions);

  wxDragResult OnDragOver(wxCoord x, wxCoord y, wxDragResult suggested) override;
  void OnLeave() override { actions_.leave(); }
  wxDragResult OnData(wxCoord x, wxCoord y, wxDragResult suggested) override;

 private:
  Actions actions_;
};

}  // namespace wx
