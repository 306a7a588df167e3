// SPDX-License-Identifier: MIT
#include "platform/row_block.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

using namespace std::string_literals;

void Add(const Variant& value, RowBlock& rows) {
  if (const auto v = value.Get<bool>()) return rows.Add(*v);
  if (const auto v = value.Get<std::int32_t>()) return rows.Add(*v);
  if (const auto v = value.Get<double>()) return rows.Add(*v);
  if (const auto v = value.Get<Date>()) return rows.Add(*v);
  if (const auto v = value.Get<std::string>()) return rows.Add(std::string_view(*v));
  if (const auto v = value.Get<std::vector<std::uint8_t>>()) {
    return rows.Add(std::as_bytes(std::span(*v)));
  }
  rows.Add(Null{});
}

TEST(RowBlock, ConvertsItsValuesAsAVariantDoes) {
  const std::vector<Variant> values = {Null{},
                                       true,
                                       false,
                                       -2147483647 - 1,
                                       7,
                                       2.5,
                                       -1e300,
                                       Date{-1.25},
                                       "12 a",
                                       "",
                                       "a\0b"s,
                                       "\0"s,
                                       "True",
                                       "K\xC3\xBChler",
                                       std::vector<std::uint8_t>{},
                                       std::vector<std::uint8_t>{0, 255, 1}};
  RowBlock rows(values.size());
  EXPECT_EQ(rows.RowCount(), 0u);
  for (const Variant& value : values) Add(value, rows);
  ASSERT_EQ(rows.RowCount(), 1u);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const BlockValue value = rows.At(i, 0);
    EXPECT_EQ(value.ToVariant(), values[i]) << i;
    EXPECT_EQ(value.ToText(), values[i].ToText()) << i;
    EXPECT_EQ(value.ToLong(), values[i].ToLong()) << i;
    EXPECT_EQ(value.ToBool(), values[i].ToBool()) << i;
    EXPECT_EQ(value.IsNull(), values[i].IsNull()) << i;
    EXPECT_EQ(value.Text(), values[i].IsText() ? values[i].ToText() : ""s) << i;
  }
}

// Texts of every length around those of the pieces of memory, among values that take none.
TEST(RowBlock, KeepsWhatWasAdded) {
  constexpr std::size_t kLengths[] = {0,     0,     1,     20,    255,   256,   510,
                                      511,   512,   513,   4000,  32766, 32767, 32768,
                                      32769, 65535, 65536, 70000, 98304, 250000};
  std::mt19937 random(11);
  for (int round = 0; round < 30; ++round) {
    const std::size_t fields = random() % 4 + 1;
    RowBlock rows(fields);
    if (round % 2 == 0) rows.Reserve(random() % 300);
    std::vector<Variant> model;
    for (std::size_t i = 0; i < 200 * fields; ++i) {
      const std::size_t length = kLengths[random() % (round % 3 == 0 ? 6 : std::size(kLengths))];
      const auto c = static_cast<char>(random());
      const Variant values[] = {std::string(length, c), Null{}, static_cast<std::int32_t>(random()),
                                static_cast<double>(random()) / 7};
      model.push_back(values[random() % 8 < 5 ? 0 : random() % 4]);
      Add(model.back(), rows);
    }
    const char* first = rows.At(0, 0).Text().data();
    const RowBlock moved = std::move(rows);
    EXPECT_EQ(moved.At(0, 0).Text().data(), first);
    ASSERT_EQ(moved.RowCount() * fields, model.size());
    for (std::size_t i = 0; i < model.size(); ++i) {
      ASSERT_EQ(moved.At(i % fields, i / fields).ToVariant(), model[i]) << round << ' ' << i;
    }
  }
}

TEST(RowBlock, RefusesATextThatItCannotCount) {
  RowBlock rows(1);
  const std::string_view huge("x", std::size_t{1} << 29);  // it is never read
  EXPECT_THROW(rows.Add(huge), std::length_error);
  EXPECT_EQ(rows.RowCount(), 0u);
  rows.Add(std::string_view("still usable"));
  EXPECT_EQ(rows.At(0, 0).Text(), "still usable");
}

}  // namespace
}  // namespace platform
