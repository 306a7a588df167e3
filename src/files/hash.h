// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace files {

// The 64-bit hash XXH64: finds damage and tells states of files apart; no protection against
// somebody who forges it.
std::uint64_t Hash64(std::span<const std::byte> data, std::uint64_t seed = 0);

}  // namespace files
