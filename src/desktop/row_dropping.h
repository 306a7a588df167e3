// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "desktop/project_tree.h"
#include "studio/add_in_session.h"

namespace desktop {

// What comes of rows that are dropped on a node of the tree: aliases become arguments of a formula,
// formulas move to a class, and with Ctrl are copied. All of it is shown before it is done.
class RowDropping {
 public:
  // They outlive this object. `move` moves formulas to a class, and asks before.
  using Move =
      std::function<void(const std::vector<std::int32_t>& ids, const std::string& prog_id)>;
  RowDropping(ProjectTree& tree, studio::AddInSession& session, Move move);
  // The tree takes nothing any more.
  ~RowDropping();
  RowDropping(const RowDropping&) = delete;
  RowDropping& operator=(const RowDropping&) = delete;

 private:
  wx::DropEffect Effect(const wx::DraggedRows& rows, const studio::StudioNode& node, bool copy);
  void Drop(const wx::DraggedRows& rows, const studio::StudioNode& node, bool copy);
  editor::frmtabgrid* Editor() const { return session_.add_in().EditorWindow(); }

  ProjectTree& tree_;
  studio::AddInSession& session_;
  Move move_;
};

}  // namespace desktop
