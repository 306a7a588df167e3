// SPDX-License-Identifier: MIT
#include "jet/key_encoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <span>

#include "jet/bytes.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

using Bytes = std::vector<std::byte>;
using Fault = std::optional<KeyFault>;

constexpr std::byte kAscendingValue{0x7F};
constexpr std::byte kDescendingValue{0x80};
constexpr std::byte kAscendingNull{0x00};
constexpr std::byte kDescendingNull{0xFF};

// Binary values are cut into groups of 8 bytes, each followed by this or, after the last, by the
// number of its bytes.
constexpr std::size_t kGroup = 8;
constexpr std::byte kGroupGoesOn{9};

Fault WrongKind() { return KeyFault{KeyFault::Reason::kWrongKind, 0}; }

void Append(std::span<const std::byte> bytes, SortOrder order, Bytes& key) {
  const std::size_t start = key.size();
  key.insert(key.end(), bytes.begin(), bytes.end());
  if (order == SortOrder::kAscending) return;
  for (std::size_t i = start; i < key.size(); ++i) key[i] = ~key[i];
}

// The `size` low bytes of a number, most significant first.
void AppendBig(std::uint64_t bits, std::size_t size, SortOrder order, Bytes& key) {
  std::array<std::byte, 8> big;
  StoreBig64(big.data(), bits);
  Append(std::span(big).last(size), order, key);
}

// A signed number of `size` bytes: the sign bit is flipped.
Fault AppendSigned(const Value& value, ValueKind kind, std::size_t size, SortOrder order,
                   Bytes& key) {
  if (value.kind() != kind) return WrongKind();
  const auto bits = static_cast<std::uint64_t>(value.integer());
  const std::uint64_t sign = std::uint64_t{1} << (8 * size - 1);
  if (size < 8) {
    const auto limit = static_cast<std::int64_t>(sign);
    if (value.integer() < -limit || value.integer() >= limit) {
      return KeyFault{KeyFault::Reason::kOutOfRange, 0};
    }
  }
  AppendBig(bits ^ sign, size, order, key);
  return std::nullopt;
}

Fault AppendByte(const Value& value, SortOrder order, Bytes& key) {
  if (value.kind() != ValueKind::kInteger) return WrongKind();
  if (value.integer() < 0 || value.integer() > 0xFF) {
    return KeyFault{KeyFault::Reason::kOutOfRange, 0};
  }
  AppendBig(static_cast<std::uint64_t>(value.integer()), 1, order, key);
  return std::nullopt;
}

// An IEEE number of `size` bytes: the sign bit is flipped, negative numbers are inverted whole.
void AppendReal(std::uint64_t bits, std::size_t size, SortOrder order, Bytes& key) {
  const std::uint64_t sign = std::uint64_t{1} << (8 * size - 1);
  AppendBig((bits & sign) != 0 ? ~bits : bits ^ sign, size, order, key);
}

Fault AppendSingle(const Value& value, SortOrder order, Bytes& key) {
  if (value.kind() != ValueKind::kReal) return WrongKind();
  const double real = value.real();
  if (std::isfinite(real) && std::abs(real) > std::numeric_limits<float>::max()) {
    return KeyFault{KeyFault::Reason::kOutOfRange, 0};
  }
  AppendReal(std::bit_cast<std::uint32_t>(static_cast<float>(real)), 4, order, key);
  return std::nullopt;
}

void AppendBinary(std::span<const std::byte> bytes, SortOrder order, Bytes& key) {
  while (bytes.size() > kGroup) {
    Append(bytes.first(kGroup), order, key);
    key.push_back(kGroupGoesOn);  // in both orders
    bytes = bytes.subspan(kGroup);
  }
  if (bytes.empty()) return;
  std::array<std::byte, kGroup + 1> last = {};
  std::copy(bytes.begin(), bytes.end(), last.begin());
  last[kGroup] = static_cast<std::byte>(bytes.size());
  Append(last, order, key);
}

// Stored as u32, u16, u16, 8 bytes; the key has them in the order in which they are written.
void AppendGuid(std::span<const std::byte> stored, SortOrder order, Bytes& key) {
  std::array<std::byte, 16> big;
  std::copy(stored.begin(), stored.end(), big.begin());
  std::reverse(big.begin(), big.begin() + 4);
  std::reverse(big.begin() + 4, big.begin() + 6);
  std::reverse(big.begin() + 6, big.begin() + 8);
  AppendBinary(big, order, key);
}

// Stored as a sign byte and four little-endian u32, most significant first. The sign byte of the
// key tells negative from other numbers in both orders.
void AppendDecimal(std::span<const std::byte> stored, SortOrder order, Bytes& key) {
  const bool negative = stored[0] != std::byte{0};
  std::array<std::byte, 17> big;
  for (std::size_t i = 1; i < big.size(); i += 4) StoreBig32(&big[i], Load32(&stored[i]));
  const bool ascending = order == SortOrder::kAscending;
  const std::size_t start = key.size();
  Append(big, negative == ascending ? SortOrder::kDescending : SortOrder::kAscending, key);
  key[start] = std::byte{negative ? std::uint8_t{0x00} : std::uint8_t{0xFF}};
}

bool IsAscii(std::string_view text) {
  unsigned char all = 0;
  for (const char c : text) all |= static_cast<unsigned char>(c);
  return all < 0x80;
}

std::optional<char32_t> AppendUtf8Key(std::string_view text, SortOrder order, Bytes& key) {
  if (IsAscii(text)) return AppendTextKey(text, order, key);
  // One more than count, so that a character that is refused is known whole.
  std::array<char16_t, kTextKeyUnits + 1> units;
  const std::size_t size = FirstUtf16Units(text, units);
  return AppendTextKey(std::u16string_view(units.data(), size), order, key);
}

Fault AppendText(const Value& value, SortOrder order, Bytes& key) {
  if (value.kind() != ValueKind::kText) return WrongKind();
  const auto character = AppendUtf8Key(value.text(), order, key);
  if (!character) return std::nullopt;
  return KeyFault{KeyFault::Reason::kNoCharacter, *character};
}

Fault AppendBytes(ColumnType type, const Value& value, SortOrder order, Bytes& key) {
  switch (type) {
    case ColumnType::kBinary:
    case ColumnType::kOpaque:
      if (value.kind() != ValueKind::kBinary) return WrongKind();
      AppendBinary(value.bytes(), order, key);
      return std::nullopt;
    case ColumnType::kGuid:
      if (value.kind() != ValueKind::kGuid || value.bytes().size() != 16) return WrongKind();
      AppendGuid(value.bytes(), order, key);
      return std::nullopt;
    case ColumnType::kDecimal:
      if (value.kind() != ValueKind::kDecimal || value.bytes().size() != 17) return WrongKind();
      AppendDecimal(value.bytes(), order, key);
      return std::nullopt;
    default:
      return KeyFault{KeyFault::Reason::kNoIndex, 0};
  }
}

Fault AppendValue(ColumnType type, SortOrder order, const Value& value, Bytes& key) {
  switch (type) {
    case ColumnType::kBoolean:
      if (value.kind() != ValueKind::kBoolean) return WrongKind();
      AppendBig(value.boolean() ? 0x00 : 0xFF, 1, order, key);
      return std::nullopt;
    case ColumnType::kByte:
      return AppendByte(value, order, key);
    case ColumnType::kInteger:
      return AppendSigned(value, ValueKind::kInteger, 2, order, key);
    case ColumnType::kLong:
      return AppendSigned(value, ValueKind::kInteger, 4, order, key);
    case ColumnType::kCurrency:
      return AppendSigned(value, ValueKind::kCurrency, 8, order, key);
    case ColumnType::kSingle:
      return AppendSingle(value, order, key);
    case ColumnType::kDouble:
      if (value.kind() != ValueKind::kReal) return WrongKind();
      AppendReal(std::bit_cast<std::uint64_t>(value.real()), 8, order, key);
      return std::nullopt;
    case ColumnType::kDate:
      if (value.kind() != ValueKind::kDate) return WrongKind();
      AppendReal(std::bit_cast<std::uint64_t>(value.real()), 8, order, key);
      return std::nullopt;
    case ColumnType::kText:
    case ColumnType::kMemo:
      return AppendText(value, order, key);
    default:
      return AppendBytes(type, value, order, key);
  }
}

}  // namespace

std::optional<KeyFault> AppendKeyPart(ColumnType type, SortOrder order, const Value& value,
                                      std::vector<std::byte>& key) {
  const bool ascending = order == SortOrder::kAscending;
  if (value.is_null()) {
    key.push_back(ascending ? kAscendingNull : kDescendingNull);
    return std::nullopt;
  }
  key.push_back(ascending ? kAscendingValue : kDescendingValue);
  Fault fault = AppendValue(type, order, value, key);
  if (fault) key.pop_back();
  return fault;
}

}  // namespace jet
