// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "desktop/code_pane.h"
#include "desktop/window_messages.h"
#include "desktop/window_parts.h"

namespace desktop {

// Shows what the user and somebody else made of the same place of a module, and asks which of it
// is to stand in the file. The user's text may be kept in a file of its own before.
class CodeConflict {
 public:
  // All of it outlives this object.
  CodeConflict(wxWindow& window, const WindowParts& parts, const WindowMessages& messages)
      : window_(window), parts_(parts), messages_(messages) {}

  // `folder`: where a copy is proposed to be kept.
  CodePane::Conflict Ask(const CodePane::Versions& versions, const std::string& folder) const;

 private:
  std::string Compare(const CodePane::Versions& versions) const;
  // False when the user did not, or it could not be written, which is told.
  bool KeepCopy(const CodePane::Versions& versions, const std::string& folder) const;

  wxWindow& window_;
  const WindowParts& parts_;
  const WindowMessages& messages_;
};

}  // namespace desktop
