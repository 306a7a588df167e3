// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>

#include "cli/invocation.h"

namespace cli {

// A line on standard error for work over a second, when that is a terminal.
class Progress {
 public:
  explicit Progress(Invocation& invocation) : invocation_(invocation) {}
  void Show(std::uint64_t done, std::uint64_t total);
  // Takes the line away.
  void End();

 private:
  using Clock = std::chrono::steady_clock;

  Invocation& invocation_;
  Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
  bool shown_ = false;
};

}  // namespace cli
