// SPDX-License-Identifier: MIT
#include "jet/key_encoder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/hex.h"

namespace jet {
namespace {

using testing_support::FromHex;
using testing_support::Hex;

std::vector<std::byte> Part(ColumnType type, SortOrder order, const Value& value) {
  std::vector<std::byte> key;
  EXPECT_FALSE(AppendKeyPart(type, order, value, key));
  return key;
}

TEST(KeyEncoder, Layouts) {
  const auto kGuid = FromHex("33221100 5544 7766 8899AABBCCDDEEFF");
  const auto kBytes = FromHex("0102030405060708 090A");
  const auto kEight = FromHex("0102030405060708");
  const auto kMinusDecimal = FromHex("80 00000000 00000000 00000000 39300000");
  const auto kPlusDecimal = FromHex("00 00000000 00000000 01000000 39300000");
  const auto guid = std::span<const std::byte, 16>(kGuid);
  const auto minus = std::span<const std::byte, 17>(kMinusDecimal);
  const auto plus = std::span<const std::byte, 17>(kPlusDecimal);
  constexpr auto kUp = SortOrder::kAscending;
  constexpr auto kDown = SortOrder::kDescending;
  const struct {
    ColumnType type;
    SortOrder order;
    Value value;
    const char* key;
  } kRows[] = {
      {ColumnType::kLong, kUp, Value::Null(), "00"},
      {ColumnType::kLong, kDown, Value::Null(), "FF"},
      {ColumnType::kLong, kUp, Value::Integer(5), "7F80000005"},
      {ColumnType::kLong, kUp, Value::Integer(-1), "7F7FFFFFFF"},
      {ColumnType::kLong, kDown, Value::Integer(19), "807FFFFFEC"},
      {ColumnType::kInteger, kUp, Value::Integer(-32768), "7F0000"},
      {ColumnType::kByte, kUp, Value::Integer(200), "7FC8"},
      {ColumnType::kBoolean, kUp, Value::Boolean(true), "7F00"},
      {ColumnType::kBoolean, kDown, Value::Boolean(true), "80FF"},
      {ColumnType::kCurrency, kUp, Value::Currency(12345), "7F8000000000003039"},
      {ColumnType::kSingle, kUp, Value::Real(1.5), "7FBFC00000"},
      {ColumnType::kDouble, kUp, Value::Real(-1.5), "7F4007FFFFFFFFFFFF"},
      {ColumnType::kDate, kUp, Value::Date(1), "7FBFF0000000000000"},
      {ColumnType::kBinary, kUp, Value::Binary(kBytes), "7F010203040506070809090A00000000000002"},
      {ColumnType::kBinary, kDown, Value::Binary(kBytes), "80FEFDFCFBFAF9F8F709F6F5FFFFFFFFFFFFFD"},
      {ColumnType::kBinary, kUp, Value::Binary(kEight), "7F010203040506070808"},
      {ColumnType::kGuid, kUp, Value::Guid(guid), "7F0011223344556677098899AABBCCDDEEFF08"},
      {ColumnType::kDecimal, kUp, Value::Decimal(plus), "7FFF00000000000000000000000100003039"},
      {ColumnType::kDecimal, kUp, Value::Decimal(minus), "7F00FFFFFFFFFFFFFFFFFFFFFFFFFFFFCFC6"},
      {ColumnType::kDecimal, kDown, Value::Decimal(plus), "80FFFFFFFFFFFFFFFFFFFFFFFFFEFFFFCFC6"},
      {ColumnType::kText, kUp, Value::Text("ä"), "7F4A011300"},
      {ColumnType::kMemo, kDown, Value::Text("A"), "80B5FEFF00"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Hex(Part(row.type, row.order, row.value)), row.key)
        << "type " << static_cast<int>(row.type);
  }
}

// Keys rise as the values do, and fall in a descending column.
TEST(KeyEncoder, OrdersValues) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const std::vector<std::pair<ColumnType, std::vector<Value>>> kSorted = {
      {ColumnType::kLong,
       {Value::Null(), Value::Integer(-2147483648), Value::Integer(-1), Value::Integer(0),
        Value::Integer(256), Value::Integer(2147483647)}},
      {ColumnType::kDouble,
       {Value::Null(), Value::Real(-kInfinity), Value::Real(-1e300), Value::Real(-2),
        Value::Real(-1.5), Value::Real(0), Value::Real(5e-324), Value::Real(1),
        Value::Real(kInfinity)}},
      {ColumnType::kCurrency,
       {Value::Currency(std::numeric_limits<std::int64_t>::min()), Value::Currency(-1),
        Value::Currency(0), Value::Currency(std::numeric_limits<std::int64_t>::max())}},
      {ColumnType::kText,
       {Value::Null(), Value::Text(""), Value::Text("a"), Value::Text("AB"), Value::Text("b")}},
  };
  for (const auto& [type, values] : kSorted) {
    for (std::size_t i = 1; i < values.size(); ++i) {
      EXPECT_LT(Part(type, SortOrder::kAscending, values[i - 1]),
                Part(type, SortOrder::kAscending, values[i]));
      EXPECT_GT(Part(type, SortOrder::kDescending, values[i - 1]),
                Part(type, SortOrder::kDescending, values[i]));
    }
  }
}

TEST(KeyEncoder, RefusesValuesWithoutKey) {
  using Reason = KeyFault::Reason;
  const std::array<std::byte, 1> kByte = {};
  const struct {
    ColumnType type;
    Value value;
    Reason reason;
  } kRows[] = {
      {ColumnType::kLong, Value::Text("5"), Reason::kWrongKind},
      {ColumnType::kLong, Value::Integer(2147483648), Reason::kOutOfRange},
      {ColumnType::kByte, Value::Integer(-1), Reason::kOutOfRange},
      {ColumnType::kSingle, Value::Real(1e39), Reason::kOutOfRange},
      {ColumnType::kText, Value::Text("日"), Reason::kNoCharacter},
      {ColumnType::kText, Value::Text("a\xC3"), Reason::kNoCharacter},
      {ColumnType::kOle, Value::Binary(kByte), Reason::kNoIndex},
  };
  for (const auto& row : kRows) {
    std::vector<std::byte> key(2);
    const auto fault = AppendKeyPart(row.type, SortOrder::kAscending, row.value, key);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->reason, row.reason);
    EXPECT_EQ(key.size(), 2u);
  }
}

}  // namespace
}  // namespace jet
