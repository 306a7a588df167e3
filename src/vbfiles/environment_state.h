// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "platform/vbide.h"
#include "vbfiles/code_page.h"

namespace vbfiles {

class ModuleDocument;

// Characters of a comment that the code page lacks and that were written as "?".
struct ReplacedCharacters {
  std::string file;
  std::int32_t line = 0;
  std::string characters;  // UTF-8, in their order
};

// What a code window has to follow.
struct PaneEvent {
  enum class Kind {
    kActivated,  // VBComponent::Activate
    kShown,      // CodePane::Show
    kScrolled,   // CodePane::SetTopLine
    kSelected,   // CodePane::SetSelection
  };
  Kind kind = Kind::kActivated;
  platform::VBComponent& component;
};

struct Options {
  int code_page = CodePage::kWestern;
  std::map<std::string, int> project_code_pages;  // by canonical path, where it is another one
  // Folders outside a group's own folder tree in which the engineer agreed to changes.
  std::vector<std::string> writable_folders;
  std::function<void(const PaneEvent&)> on_pane;  // may be empty
};

// What the objects of one environment share.
struct EnvironmentState {
  files::FileSystem& system;
  Options options;
  bool in_unit = false;  // a unit of work is open: files are looked at once
  std::vector<ReplacedCharacters> replaced;
  std::map<std::string, std::weak_ptr<ModuleDocument>> documents;  // by path
};

}  // namespace vbfiles
