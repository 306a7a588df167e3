// SPDX-License-Identifier: MIT
#include "wx/row_drag.h"

#include <wx/dataobj.h>
#include <wx/utils.h>
#include <wx/window.h>

#include <utility>

namespace wx {

namespace {

// Of the drag that goes on: the data that other programs could take holds nothing.
const DraggedRows* dragged = nullptr;
std::function<void()> after_drop;

bool IsCopy() { return wxGetKeyState(WXK_CONTROL); }

wxDragResult ToResult(DropEffect effect) {
  if (effect == DropEffect::kNone) return wxDragNone;
  return effect == DropEffect::kCopy ? wxDragCopy : wxDragMove;
}

}  // namespace

void DragRows(wxWindow& source, const DraggedRows& rows) {
  if (dragged || rows.ids.empty()) return;
  dragged = &rows;
  RunDrag(source);
  dragged = nullptr;
  if (after_drop) source.CallAfter(std::exchange(after_drop, nullptr));
}

RowDropTarget::RowDropTarget(Actions actions)
    : wxDropTarget(new wxCustomDataObject(wxDataFormat(kRowFormat))),
      actions_(std::move(actions)) {}

wxDragResult RowDropTarget::OnDragOver(wxCoord x, wxCoord y, wxDragResult) {
  return dragged ? ToResult(actions_.over(*dragged, {x, y}, IsCopy())) : wxDragNone;
}

wxDragResult RowDropTarget::OnData(wxCoord x, wxCoord y, wxDragResult) {
  actions_.leave();
  if (!dragged || !GetData()) return wxDragNone;
  const bool copy = IsCopy();
  const DropEffect effect = actions_.over(*dragged, {x, y}, copy);
  actions_.leave();
  if (effect != DropEffect::kNone) {
    after_drop = [this, rows = *dragged, point = wxPoint(x, y), copy] {
      actions_.drop(rows, point, copy);
    };
  }
  return ToResult(effect);
}

}  // namespace wx
