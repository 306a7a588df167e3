// SPDX-License-Identifier: MIT
#include "files/hash.h"

#include <bit>
#include <cstring>

namespace files {
namespace {

constexpr std::uint64_t kPrime1 = 11400714785074694791u;
constexpr std::uint64_t kPrime2 = 14029467366897019727u;
constexpr std::uint64_t kPrime3 = 1609587929392839161u;
constexpr std::uint64_t kPrime4 = 9650029242287828579u;
constexpr std::uint64_t kPrime5 = 2870177450012600261u;

static_assert(std::endian::native == std::endian::little, "words are read in memory order");

template <typename Word>
Word ReadWord(const std::byte* at) {
  Word word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

std::uint64_t Round(std::uint64_t lane, std::uint64_t word) {
  return std::rotl(lane + word * kPrime2, 31) * kPrime1;
}

std::uint64_t MergeLane(std::uint64_t hash, std::uint64_t lane) {
  return (hash ^ Round(0, lane)) * kPrime1 + kPrime4;
}

}  // namespace

std::uint64_t Hash64(std::span<const std::byte> data, std::uint64_t seed) {
  constexpr std::size_t kStripe = 32;
  const std::byte* at = data.data();
  std::size_t left = data.size();
  std::uint64_t hash = seed + kPrime5;
  if (left >= kStripe) {
    std::uint64_t lane1 = seed + kPrime1 + kPrime2;
    std::uint64_t lane2 = seed + kPrime2;
    std::uint64_t lane3 = seed;
    std::uint64_t lane4 = seed - kPrime1;
    for (; left >= kStripe; left -= kStripe, at += kStripe) {
      lane1 = Round(lane1, ReadWord<std::uint64_t>(at));
      lane2 = Round(lane2, ReadWord<std::uint64_t>(at + 8));
      lane3 = Round(lane3, ReadWord<std::uint64_t>(at + 16));
      lane4 = Round(lane4, ReadWord<std::uint64_t>(at + 24));
    }
    hash = std::rotl(lane1, 1) + std::rotl(lane2, 7) + std::rotl(lane3, 12) + std::rotl(lane4, 18);
    for (const std::uint64_t lane : {lane1, lane2, lane3, lane4}) hash = MergeLane(hash, lane);
  }
  hash += data.size();
  for (; left >= 8; left -= 8, at += 8) {
    hash = std::rotl(hash ^ Round(0, ReadWord<std::uint64_t>(at)), 27) * kPrime1 + kPrime4;
  }
  if (left >= 4) {
    hash = std::rotl(hash ^ (ReadWord<std::uint32_t>(at) * kPrime1), 23) * kPrime2 + kPrime3;
    left -= 4;
    at += 4;
  }
  for (; left > 0; --left, ++at) {
    hash = std::rotl(hash ^ (std::to_integer<std::uint64_t>(*at) * kPrime5), 11) * kPrime1;
  }
  hash = (hash ^ (hash >> 33)) * kPrime2;
  hash = (hash ^ (hash >> 29)) * kPrime3;
  return hash ^ (hash >> 32);
}

}  // namespace files
