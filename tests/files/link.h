// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace files {

// A symbolic link of the real file system.
void MakeLink(const std::string& target, const std::string& path);

}  // namespace files
