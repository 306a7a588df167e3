// SPDX-License-Identifier: MIT
#include "files/hash.h"

#include <gtest/gtest.h>

#include <string_view>

TEST(Hash64, KnownAnswers) {
  const auto hash = [](std::string_view text) {
    return files::Hash64(std::as_bytes(std::span(text)));
  };
  EXPECT_EQ(hash(""), 0xEF46DB3751D8E999u);
  EXPECT_EQ(hash("a"), 0xD24EC4F1A98C6E5Bu);
  EXPECT_EQ(hash("abc"), 0x44BC2CF5AD770999u);
  EXPECT_EQ(hash("Nobody inspects the spammish repetition"), 0xFBCEA83C8A378BF1u);
}
