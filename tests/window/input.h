// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace window_tests {

// Plays keys and clicks from outside of the program's event loop: "key", "type", "mousemove",
// "click" and "sleep" with xdotool's words, one command after another. What `system` returns; may
// be called from any thread.
int PlayInput(const std::vector<std::string>& commands);

}  // namespace window_tests
