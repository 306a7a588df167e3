// SPDX-License-Identifier: MIT
#pragma once

#include "platform/vbide.h"
#include "vbfiles/environment_state.h"

namespace vbfiles {

// The code pane of a module: keeps what it is told and tells the environment's listener.
class Pane final : public platform::CodePane {
 public:
  Pane(EnvironmentState& state, platform::VBComponent& component)
      : state_(state), component_(component) {}

  std::int32_t TopLine() const override { return top_line_; }
  // A line below the last one means the last one.
  void SetTopLine(std::int32_t line) override;
  platform::CodeSelection GetSelection() const override { return selection_; }
  void SetSelection(const platform::CodeSelection& selection) override;
  void Show() override;

 private:
  void Tell(PaneEvent::Kind kind);

  EnvironmentState& state_;
  platform::VBComponent& component_;
  std::int32_t top_line_ = 1;
  platform::CodeSelection selection_;
};

}  // namespace vbfiles
