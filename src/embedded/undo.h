// SPDX-License-Identifier: MIT
#pragma once

#include "com/host_database.h"
#include "editor/undo_entries.h"
#include "studio/undo_steps.h"

namespace embedded {

// Undo and redo in the editor's menu in the studio.
class Undo final : public editor::UndoEntries {
 public:
  // All of it outlives this object. `editor` and `studio` are asked at each use.
  Undo(const texts::TextTable& texts, com::HostDatabase& database,
       std::function<editor::frmtabgrid*()> editor, platform::AddIn& studio);

  Entry Look(bool undo) override;
  void Run(bool undo) override;

 private:
  com::HostDatabase& database_;
  const texts::TextTable& texts_;
  std::function<editor::frmtabgrid*()> editor_;
  platform::AddIn& studio_;
  studio::UndoSteps steps_;
};

}  // namespace embedded
