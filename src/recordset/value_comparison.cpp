// SPDX-License-Identifier: MIT
#include "recordset/value_comparison.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <string_view>

#include "jet/key_encoder.h"
#include "recordset/ascii_text.h"

namespace recordset {
namespace {

using jet::ColumnType;
using jet::Value;
using jet::ValueKind;
using Bytes = std::vector<std::byte>;

constexpr double kCurrencyUnit = 10000;
constexpr std::size_t kMaxKeyedText = 255;  // characters that a key is made of

// Printable ASCII, whose characters are equal exactly when their capitals are.
bool IsPlain(std::string_view text) {
  return text.size() <= kMaxKeyedText &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// Texts with a character that the collation lacks stand behind all others, in their own order.
void AppendTextOrder(std::string_view text, Bytes& key) {
  constexpr std::byte kNoKey{0xFF};
  if (!jet::AppendKeyPart(ColumnType::kText, jet::SortOrder::kAscending, Value::Text(text), key)) {
    return;
  }
  key.push_back(kNoKey);
  for (char c : WithoutTrailingBlanks(text)) key.push_back(static_cast<std::byte>(Upper(c)));
}

std::weak_ordering CompareBytes(const Bytes& a, const Bytes& b) {
  return std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end());
}

std::weak_ordering CompareTexts(std::string_view a, std::string_view b) {
  thread_local Bytes key_a, key_b;
  key_a.clear();
  key_b.clear();
  AppendTextOrder(a, key_a);
  AppendTextOrder(b, key_b);
  const auto order = CompareBytes(key_a, key_b);
  // Keys end with the longest text that a text column can hold.
  if (std::is_eq(order) && (a.size() > kMaxKeyedText || b.size() > kMaxKeyedText)) {
    return WithoutTrailingBlanks(a) <=> WithoutTrailingBlanks(b);
  }
  return order;
}

bool EqualTexts(std::string_view a, std::string_view b) {
  if (!IsPlain(a) || !IsPlain(b)) return std::is_eq(CompareTexts(a, b));
  return SameName(WithoutTrailingBlanks(a), WithoutTrailingBlanks(b));
}

bool IsWhole(const Value& v) {
  return v.kind() == ValueKind::kInteger || v.kind() == ValueKind::kBoolean;
}

std::int64_t Whole(const Value& v) {
  if (v.kind() == ValueKind::kBoolean) return v.boolean() ? -1 : 0;
  return v.integer();
}

double Real(const Value& v) {
  switch (v.kind()) {
    case ValueKind::kCurrency:
      return static_cast<double>(v.integer()) / kCurrencyUnit;
    case ValueKind::kReal:
    case ValueKind::kDate:
      return v.real();
    default:
      return static_cast<double>(Whole(v));
  }
}

std::optional<Value> AsWhole(const Value& value, std::int64_t least, std::int64_t most) {
  if (IsWhole(value)) {
    const std::int64_t whole = Whole(value);
    if (whole < least || whole > most) return std::nullopt;
    return Value::Integer(whole);
  }
  const double real = Real(value);
  if (!(real >= static_cast<double>(least) && real <= static_cast<double>(most))) {
    return std::nullopt;
  }
  if (real != std::floor(real)) return std::nullopt;
  return Value::Integer(static_cast<std::int64_t>(real));
}

template <class Integer>
std::optional<Value> AsWhole(const Value& value) {
  return AsWhole(value, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max());
}

std::optional<Value> AsCurrency(double number) {
  const double units = std::round(number * kCurrencyUnit);
  constexpr double kLimit = 9.2e18;
  if (!(std::abs(units) < kLimit) || units / kCurrencyUnit != number) return std::nullopt;
  return Value::Currency(static_cast<std::int64_t>(units));
}

}  // namespace

bool IsSearchable(ColumnType type) {
  return FamilyOf(type) != Family::kBytes && type != ColumnType::kMemo;
}

bool CanSearch(const jet::Column& column) {
  constexpr std::uint16_t kGeneral = 0x0409;
  if (column.type != ColumnType::kText) return IsSearchable(column.type);
  return column.lcid == kGeneral && column.collation_version == 0;
}

Family FamilyOf(ColumnType type) {
  switch (type) {
    case ColumnType::kText:
    case ColumnType::kMemo:
      return Family::kText;
    case ColumnType::kBinary:
    case ColumnType::kOle:
    case ColumnType::kGuid:
    case ColumnType::kDecimal:
    case ColumnType::kOpaque:
      return Family::kBytes;
    default:
      return Family::kNumber;
  }
}

Family FamilyOf(const Value& value) {
  switch (value.kind()) {
    case ValueKind::kText:
      return Family::kText;
    case ValueKind::kBinary:
    case ValueKind::kGuid:
    case ValueKind::kDecimal:
      return Family::kBytes;
    default:
      return Family::kNumber;
  }
}

std::weak_ordering CompareValues(const Value& a, const Value& b) {
  switch (FamilyOf(a)) {
    case Family::kText:
      return CompareTexts(a.text(), b.text());
    case Family::kBytes:
      return std::lexicographical_compare_three_way(a.bytes().begin(), a.bytes().end(),
                                                    b.bytes().begin(), b.bytes().end());
    case Family::kNumber:
      break;
  }
  if (IsWhole(a) && IsWhole(b)) return Whole(a) <=> Whole(b);
  const double x = Real(a), y = Real(b);
  if (x < y) return std::weak_ordering::less;
  return x > y ? std::weak_ordering::greater : std::weak_ordering::equivalent;
}

bool EqualValues(const Value& a, const Value& b) {
  if (a.kind() == ValueKind::kText) return EqualTexts(a.text(), b.text());
  return std::is_eq(CompareValues(a, b));
}

void AppendOrderKey(ColumnType type, bool descending, const Value& value, Bytes& key) {
  const std::size_t start = key.size();
  if (FamilyOf(type) == Family::kText && !value.is_null()) {
    AppendTextOrder(value.text(), key);
    // The end must sort before every continuation.
    key.push_back(std::byte{0});
  } else if (jet::AppendKeyPart(type, jet::SortOrder::kAscending, value, key)) {
    key.push_back(std::byte{0});
  }
  if (!descending) return;
  for (std::size_t i = start; i < key.size(); ++i) key[i] = ~key[i];
}

void AppendEqualityKey(const Value& value, Bytes& key) {
  if (FamilyOf(value) == Family::kText) {
    AppendTextOrder(value.text(), key);
  } else if (FamilyOf(value) == Family::kBytes) {
    key.insert(key.end(), value.bytes().begin(), value.bytes().end());
  } else {
    const double number = Real(value) + 0.0;  // one zero
    const auto bytes = std::as_bytes(std::span(&number, 1));
    key.insert(key.end(), bytes.begin(), bytes.end());
  }
}

std::optional<Value> AsColumnValue(ColumnType type, const Value& value) {
  if (value.is_null()) return std::nullopt;
  switch (type) {
    case ColumnType::kBoolean: {
      const double number = Real(value);
      if (number != 0 && number != -1) return std::nullopt;
      return Value::Boolean(number != 0);
    }
    case ColumnType::kByte:
      return AsWhole<std::uint8_t>(value);
    case ColumnType::kInteger:
      return AsWhole<std::int16_t>(value);
    case ColumnType::kLong:
      return AsWhole<std::int32_t>(value);
    case ColumnType::kCurrency:
      return AsCurrency(Real(value));
    case ColumnType::kSingle: {
      const double number = Real(value);
      if (static_cast<double>(static_cast<float>(number)) != number) return std::nullopt;
      return Value::Real(number);
    }
    case ColumnType::kDouble:
      return Value::Real(Real(value));
    case ColumnType::kDate:
      return Value::Date(Real(value));
    case ColumnType::kText:
      return value;
    default:
      return std::nullopt;
  }
}

}  // namespace recordset
