// SPDX-License-Identifier: MIT
#pragma once

#include "platform/vbide.h"
#include "vbfiles/session.h"

namespace vbfiles {

// The code pane of a module: keeps what it is told and tells the session's listener.
class Pane final : public platform::CodePane {
 public:
  Pane(Session& session, platform::VBComponent& component)
      : session_(session), component_(component) {}

  std::int32_t TopLine() const override { return top_line_; }
  // A line below the last one means the last one.
  void SetTopLine(std::int32_t line) override;
  platform::CodeSelection GetSelection() const override { return selection_; }
  void SetSelection(const platform::CodeSelection& selection) override;
  void Show() override;

 private:
  void Tell(PaneEvent::Kind kind);

  Session& session_;
  platform::VBComponent& component_;
  std::int32_t top_line_ = 1;
  platform::CodeSelection selection_;
};

}  // namespace vbfiles
