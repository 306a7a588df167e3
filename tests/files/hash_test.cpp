// SPDX-License-Identifier: MIT
#include "files/hash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <span>
#include <string_view>
#include <vector>

TEST(Hash64, KnownAnswers) {
  const auto hash = [](std::string_view text) {
    return files::Hash64(std::as_bytes(std::span(text)));
  };
  EXPECT_EQ(hash(""), 0xEF46DB3751D8E999u);
  EXPECT_EQ(hash("a"), 0xD24EC4F1A98C6E5Bu);
  EXPECT_EQ(hash("abc"), 0x44BC2CF5AD770999u);
  EXPECT_EQ(hash("Nobody inspects the spammish repetition"), 0xFBCEA83C8A378BF1u);
}

TEST(Hasher64, TakesPiecesOfAnySize) {
  std::mt19937 random(1);
  std::vector<std::byte> bytes(1000);
  for (std::byte& byte : bytes) byte = static_cast<std::byte>(random());
  for (int round = 0; round < 1000; ++round) {
    std::span<const std::byte> left = std::span(bytes).first(random() % bytes.size());
    const std::uint64_t whole = files::Hash64(left, 7);
    files::Hasher64 hasher(7);
    while (!left.empty()) {
      const std::size_t size = std::min<std::size_t>(left.size(), random() % 80);
      hasher.Add(left.first(size));
      left = left.subspan(size);
    }
    ASSERT_EQ(hasher.Value(), whole);
  }
}
