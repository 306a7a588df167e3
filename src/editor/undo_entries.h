// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace editor {

// What takes operations back and does them again, for the editor's own menu.
class UndoEntries {
 public:
  virtual ~UndoEntries() = default;
  // The entry as it is now; with a reason it cannot be chosen.
  struct Entry {
    std::string caption;
    std::string reason;
  };
  virtual Entry Look(bool undo) = 0;
  // Tells the user what came of it.
  virtual void Run(bool undo) = 0;
};

}  // namespace editor
