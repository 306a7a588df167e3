// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace files {

// A number that no other call, thread or process is likely to get.
std::uint64_t RandomNumber();

}  // namespace files
