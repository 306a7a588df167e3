// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace com {

// Path of the add-in's log, in the user's folder of this machine; "" when there is none.
std::string LogPath();

// Adds a line to it. Never raises.
void AddToHostLog(const std::string& sentence) noexcept;

}  // namespace com
