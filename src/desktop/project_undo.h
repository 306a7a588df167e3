// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "desktop/project_context.h"
#include "studio/undo_steps.h"

namespace desktop {

// Takes operations of the open project back and does them again, and shows what came of it.
class ProjectUndo {
 public:
  // All of it outlives this object.
  explicit ProjectUndo(const ProjectContext& own);

  // Reads the end of the history when that is another one than at the last call. True then.
  bool Look();
  const studio::UndoSteps& steps() const { return steps_; }

  // The operation of the number, or the next one. A refusal is told with what stands in the way.
  void Undo(std::optional<std::uint64_t> number = std::nullopt) { Run(true, number); }
  void Redo(std::optional<std::uint64_t> number = std::nullopt) { Run(false, number); }

  std::function<void()> on_done;  // rows and code are others now

 private:
  void Run(bool undo, std::optional<std::uint64_t> number);

  const ProjectContext own_;
  studio::UndoSteps steps_;
};

}  // namespace desktop
