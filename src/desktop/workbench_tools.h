// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "editor/frmtabgrid.h"

namespace desktop {

// Commands of the workbench among those of the editor in its menus.
class WorkbenchTools {
 public:
  struct Command {
    std::string name;  // of its tool
    std::string caption;
    std::string key;  // that the menu shows; the window acts on it
    std::function<void()> run;
  };

  // In front of a tool of the band (at its end when it has none of that name), behind a separator
  // line of their own.
  void Add(const char* band, const char* before, std::vector<Command> commands);
  // Puts all of them into an editor's menus. This object outlives the editor.
  void Equip(editor::frmtabgrid& editor) const;

 private:
  struct Group {
    std::string band;
    std::string before;
    std::vector<Command> commands;
  };

  bool Run(const std::string& tool) const;

  std::vector<Group> groups_;
};

}  // namespace desktop
