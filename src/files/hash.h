// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace files {

// The 64-bit hash XXH64: finds damage and tells states of files apart; no protection against
// somebody who forges it.
std::uint64_t Hash64(std::span<const std::byte> data, std::uint64_t seed = 0);

// The same of bytes that come in pieces.
class Hasher64 {
 public:
  explicit Hasher64(std::uint64_t seed = 0);
  void Add(std::span<const std::byte> piece);
  // Of all pieces so far.
  std::uint64_t Value() const;

 private:
  static constexpr std::size_t kStripe = 32;
  void Mix(const std::byte* stripe);

  std::uint64_t seed_;
  std::uint64_t size_ = 0;
  std::array<std::uint64_t, 4> lanes_;
  std::array<std::byte, kStripe> rest_;  // size_ % kStripe bytes that make no stripe yet
};

}  // namespace files
