// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "tests/window/input.h"

namespace window_tests {

int PlayInput(const std::vector<std::string>& commands) {
  std::string chain;
  for (const std::string& command : commands) {
    chain += (chain.empty() ? "xdotool " : " && sleep 0.1 && xdotool ") + command;
  }
  return std::system(chain.c_str());
}

}  // namespace window_tests
