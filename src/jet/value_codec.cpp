// SPDX-License-Identifier: MIT
#include "jet/value_codec.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

#include "jet/bytes.h"
#include "jet/messages.h"
#include "jet/row_codec.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

constexpr std::int64_t kCurrencyUnit = 10000;

std::span<const std::byte> Keep(std::span<const std::byte> bytes, Arena& arena) {
  char* copy = arena.Reserve(bytes.size());
  if (!bytes.empty()) std::memcpy(copy, bytes.data(), bytes.size());
  arena.Keep(bytes.size());
  return {reinterpret_cast<const std::byte*>(copy), bytes.size()};
}

struct IntegerRange {
  std::int64_t least;
  std::int64_t most;
};

template <class T>
constexpr IntegerRange RangeOf() {
  return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
}

std::optional<IntegerRange> RangeOfType(ColumnType type) {
  switch (type) {
    case ColumnType::kByte:
      return RangeOf<std::uint8_t>();
    case ColumnType::kInteger:
      return RangeOf<std::int16_t>();
    case ColumnType::kLong:
      return RangeOf<std::int32_t>();
    default:
      return std::nullopt;
  }
}

ValueKind KindOf(ColumnType type) {
  switch (type) {
    case ColumnType::kBoolean:
      return ValueKind::kBoolean;
    case ColumnType::kByte:
    case ColumnType::kInteger:
    case ColumnType::kLong:
      return ValueKind::kInteger;
    case ColumnType::kCurrency:
      return ValueKind::kCurrency;
    case ColumnType::kSingle:
    case ColumnType::kDouble:
      return ValueKind::kReal;
    case ColumnType::kDate:
      return ValueKind::kDate;
    case ColumnType::kText:
    case ColumnType::kMemo:
      return ValueKind::kText;
    case ColumnType::kGuid:
      return ValueKind::kGuid;
    case ColumnType::kDecimal:
      return ValueKind::kDecimal;
    default:
      return ValueKind::kBinary;
  }
}

// Turns an integer into the kind that a column of another number type holds.
void Widen(ColumnType type, Value& value) {
  const std::int64_t v = value.integer();
  switch (type) {
    case ColumnType::kBoolean:
      value = Value::Boolean(v != 0);
      break;
    case ColumnType::kCurrency:
      if (std::abs(v) <= std::numeric_limits<std::int64_t>::max() / kCurrencyUnit) {
        value = Value::Currency(v * kCurrencyUnit);
      }
      break;
    case ColumnType::kSingle:
    case ColumnType::kDouble:
      value = Value::Real(static_cast<double>(v));
      break;
    default:
      break;
  }
}

void AppendLittle(std::uint64_t v, std::size_t size, std::vector<std::byte>& out) {
  for (std::size_t i = 0; i < size; ++i) out.push_back(static_cast<std::byte>(v >> (8 * i)));
}

messages::Message EncodeText(const Column& column, std::string_view text,
                             std::vector<std::byte>& out) {
  const std::size_t units = Utf16Length(text);
  if (units * 2 > column.length) {
    return {message::kTextTooLong, {{"<Count>", units}, {"<Limit>", column.length / 2}}};
  }
  if (column.fixed) {
    const std::size_t start = out.size();
    AppendUtf16(text, out);
    const std::size_t pad = (start + column.length - out.size()) / 2;
    for (std::size_t i = 0; i < pad; ++i) AppendLittle(' ', 2, out);
    return {};
  }
  if (!AppendStoredText(text, column.compressed, out)) {
    return message::kByteOrderMarkInText;
  }
  return {};
}

}  // namespace

bool DecodeAnyValue(const Column& column, std::span<const std::byte> stored, Arena& arena,
                    Value& value) {
  const std::byte* p = stored.data();
  switch (column.type) {
    case ColumnType::kText:
      value = Value::Text(DecodeText(stored, arena));
      return true;
    case ColumnType::kBoolean:
    case ColumnType::kMemo:
    case ColumnType::kOle:
      return false;
    case ColumnType::kByte:
    case ColumnType::kInteger:
    case ColumnType::kLong:
    case ColumnType::kCurrency:
    case ColumnType::kSingle:
    case ColumnType::kDouble:
    case ColumnType::kDate:
    case ColumnType::kGuid:
    case ColumnType::kDecimal:
      break;
    default:  // also types that this engine does not know
      value = Value::Binary(Keep(stored, arena));
      return true;
  }
  if (stored.size() != FixedSize(column)) return false;
  switch (column.type) {
    case ColumnType::kByte:
      value = Value::Integer(Load8(p));
      return true;
    case ColumnType::kInteger:
      value = Value::Integer(static_cast<std::int16_t>(Load16(p)));
      return true;
    case ColumnType::kLong:
      value = Value::Integer(static_cast<std::int32_t>(Load32(p)));
      return true;
    case ColumnType::kCurrency:
      value = Value::Currency(static_cast<std::int64_t>(Load64(p)));
      return true;
    case ColumnType::kSingle:
      value = Value::Real(static_cast<double>(std::bit_cast<float>(Load32(p))));
      return true;
    case ColumnType::kDouble:
      value = Value::Real(std::bit_cast<double>(Load64(p)));
      return true;
    case ColumnType::kDate:
      value = Value::Date(std::bit_cast<double>(Load64(p)));
      return true;
    case ColumnType::kGuid:
      value = Value::Guid(Keep(stored, arena).first<16>());
      return true;
    case ColumnType::kDecimal:
      value = Value::Decimal(Keep(stored, arena).first<17>());
      return true;
    default:
      return false;
  }
}

messages::Message Conform(const Column& column, Value& value) {
  if (value.is_null()) {
    if (column.type == ColumnType::kBoolean) value = Value::Boolean(false);
    return {};
  }
  if (value.kind() == ValueKind::kInteger) Widen(column.type, value);
  if (value.kind() != KindOf(column.type)) return message::kOtherType;
  if (const auto range = RangeOfType(column.type)) {
    if (value.integer() < range->least || value.integer() > range->most) {
      return {message::kOutOfRange,
              {{"<Value>", value.integer()}, {"<Least>", range->least}, {"<Most>", range->most}}};
    }
  }
  if (column.type == ColumnType::kSingle) {
    if (std::isfinite(value.real()) &&
        std::abs(value.real()) > static_cast<double>(std::numeric_limits<float>::max())) {
      return message::kTooLargeForSingle;
    }
    value = Value::Real(static_cast<double>(static_cast<float>(value.real())));
  }
  return {};
}

messages::Message EncodeValue(const Column& column, const Value& value,
                              std::vector<std::byte>& out) {
  switch (value.kind()) {
    case ValueKind::kInteger:
      AppendLittle(static_cast<std::uint64_t>(value.integer()), FixedSize(column), out);
      return {};
    case ValueKind::kCurrency:
      AppendLittle(static_cast<std::uint64_t>(value.integer()), 8, out);
      return {};
    case ValueKind::kReal:
      if (column.type == ColumnType::kSingle) {
        AppendLittle(std::bit_cast<std::uint32_t>(static_cast<float>(value.real())), 4, out);
        return {};
      }
      [[fallthrough]];
    case ValueKind::kDate:
      AppendLittle(std::bit_cast<std::uint64_t>(value.real()), 8, out);
      return {};
    case ValueKind::kText:
      return EncodeText(column, value.text(), out);
    default:
      break;
  }
  const std::span<const std::byte> bytes = value.bytes();
  if (value.kind() == ValueKind::kBinary && bytes.size() > column.length) {
    return {message::kTooManyBytes, {{"<Count>", bytes.size()}, {"<Limit>", column.length}}};
  }
  out.insert(out.end(), bytes.begin(), bytes.end());
  if (column.fixed) out.resize(out.size() + FixedSize(column) - bytes.size());
  return {};
}

}  // namespace jet
