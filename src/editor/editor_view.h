// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace editor {

// What a command asks of the window that shows the project.
class EditorView {
 public:
  virtual ~EditorView() = default;
  // The node that is shown.
  virtual const std::string& CurrentKey() const = 0;
  // The node that the next command of the tree concerns.
  virtual const std::string& ContextKey() const = 0;
  // Commits what is pending, shows the view of the node and what belongs to it.
  virtual void ShowNode(std::string_view key, std::string_view text) = 0;
  virtual void MakeMyCaption(std::string_view key, std::string_view formula_name) = 0;
  // Reads the current view again; rows and selection stay where they were.
  virtual void Reload() = 0;
  // Writes the pending edit of the grid that belongs to the key. What cannot be written is shown
  // by the studio and dropped.
  virtual void VerifyAdds(std::string_view key) = 0;
  // Shows the window's options. Whether they were confirmed and stored.
  virtual bool ChangeOptions() = 0;
};

// What a grid's keys and mouse ask of the window around it.
class GridOwner {
 public:
  virtual ~GridOwner() = default;
  virtual const std::string& CurrentKey() const = 0;
  virtual void Reload() = 0;
  // Runs a tool for what the grids show.
  virtual void RunTool(std::string_view name) = 0;
  // Opens a band at the pointer, for what the grids show.
  virtual void PopupBand(std::string_view name) = 0;
  // The toolbar follows the grids, unless a menu of the tree is about another node.
  virtual void SelectionChanged() = 0;
  // The incremental search over the current grid.
  virtual void ShowFind() = 0;
};

}  // namespace editor
