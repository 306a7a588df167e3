// SPDX-License-Identifier: MIT
#include "cli/progress.h"

namespace cli {

void Progress::Show(std::uint64_t done, std::uint64_t total) {
  Console& console = invocation_.console();
  if (!console.err_is_terminal || Clock::now() < next_) return;
  next_ = Clock::now() + std::chrono::milliseconds(100);
  console.status << '\r'
                 << invocation_.Text(kTextProgress, {{"<Done>", std::to_string(done)},
                                                     {"<Total>", std::to_string(total)}})
                 << std::flush;
  shown_ = true;
}

void Progress::End() {
  if (shown_) invocation_.console().status << "\r\x1B[K" << std::flush;
  shown_ = false;
}

}  // namespace cli
