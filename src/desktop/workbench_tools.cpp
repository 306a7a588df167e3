// SPDX-License-Identifier: MIT
#include "desktop/workbench_tools.h"

#include <algorithm>
#include <utility>

#include "desktop/crash_log.h"
#include "forms/menu_control.h"

namespace desktop {

void WorkbenchTools::Add(const char* band, const char* before, std::vector<Command> commands) {
  groups_.push_back({band, before, std::move(commands)});
}

void WorkbenchTools::Equip(editor::frmtabgrid& editor) const {
  for (const Group& group : groups_) {
    forms::Band& band = *editor.abr.FindBand(group.band);
    const auto found = std::ranges::find(band.Tools(), group.before, &forms::Tool::Name);
    auto place = static_cast<std::size_t>(found - band.Tools().begin());
    band.InsertTool(place++, group.commands.front().name + "Sep", forms::ToolKind::kSeparator);
    for (const Command& command : group.commands) {
      band.InsertTool(place++, command.name).SetCaption(command.caption).SetShortcut(command.key);
    }
  }
  editor.abr.on_tool_click = [this, own = editor.abr.on_tool_click](forms::Tool& tool) {
    if (!Run(tool.Name())) own(tool);
  };
}

bool WorkbenchTools::Run(const std::string& tool) const {
  for (const Group& group : groups_) {
    for (const Command& command : group.commands) {
      if (command.name != tool) continue;
      RememberStep("tool " + tool);
      const auto run = command.run;
      run();
      return true;
    }
  }
  return false;
}

}  // namespace desktop
