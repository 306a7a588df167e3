// SPDX-License-Identifier: MIT
#include "files/hash.h"

#include <algorithm>
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
  Hasher64 hasher(seed);
  hasher.Add(data);
  return hasher.Value();
}

Hasher64::Hasher64(std::uint64_t seed)
    : seed_(seed), lanes_{seed + kPrime1 + kPrime2, seed + kPrime2, seed, seed - kPrime1} {}

void Hasher64::Mix(const std::byte* stripe) {
  for (std::size_t i = 0; i < lanes_.size(); ++i) {
    lanes_[i] = Round(lanes_[i], ReadWord<std::uint64_t>(stripe + 8 * i));
  }
}

void Hasher64::Add(std::span<const std::byte> piece) {
  if (piece.empty()) return;
  const std::size_t begun = size_ % kStripe;
  size_ += piece.size();
  if (begun > 0) {
    const std::size_t taken = std::min(kStripe - begun, piece.size());
    std::memcpy(rest_.data() + begun, piece.data(), taken);
    piece = piece.subspan(taken);
    if (begun + taken < kStripe) return;
    Mix(rest_.data());
  }
  for (; piece.size() >= kStripe; piece = piece.subspan(kStripe)) Mix(piece.data());
  if (!piece.empty()) std::memcpy(rest_.data(), piece.data(), piece.size());
}

std::uint64_t Hasher64::Value() const {
  std::uint64_t hash = seed_ + kPrime5;
  if (size_ >= kStripe) {
    hash = std::rotl(lanes_[0], 1) + std::rotl(lanes_[1], 7) + std::rotl(lanes_[2], 12) +
           std::rotl(lanes_[3], 18);
    for (const std::uint64_t lane : lanes_) hash = MergeLane(hash, lane);
  }
  hash += size_;
  const std::byte* at = rest_.data();
  std::size_t left = size_ % kStripe;
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
