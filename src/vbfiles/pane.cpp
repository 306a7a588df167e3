// SPDX-License-Identifier: MIT
#include "vbfiles/pane.h"

#include <algorithm>

#include "vbfiles/errors.h"
#include "vbfiles/messages.h"

namespace vbfiles {

void Pane::SetTopLine(std::int32_t line) {
  if (line < 1) throw SubscriptError(message::kFirstPaneLine);
  top_line_ = std::clamp(line, 1, std::max(1, component_.Module()->CountOfLines()));
  Tell(PaneEvent::Kind::kScrolled);
}

void Pane::SetSelection(const platform::CodeSelection& selection) {
  if (selection.start_line < 1 || selection.start_column < 1 || selection.end_line < 1 ||
      selection.end_column < 0) {
    throw SubscriptError(message::kFirstSelectionLine);
  }
  selection_ = selection;
  Tell(PaneEvent::Kind::kSelected);
}

void Pane::Show() { Tell(PaneEvent::Kind::kShown); }

void Pane::Tell(PaneEvent::Kind kind) {
  if (state_.options.on_pane) state_.options.on_pane(PaneEvent{kind, component_});
}

}  // namespace vbfiles
