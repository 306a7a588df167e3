// SPDX-License-Identifier: MIT
#include "recordset/value_conversion.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "recordset/ascii_text.h"
#include "recordset/connection_state.h"

namespace recordset {
namespace {

using jet::ColumnType;
using jet::Value;
using jet::ValueKind;
using platform::DataType;
using platform::Variant;

constexpr double kCurrencyUnit = 10000;
constexpr double kMaxCurrency = 922337203685477.0;

[[noreturn]] void Throw(std::int32_t number, const jet::Column& column,
                        const messages::Pattern& what) {
  Refuse(number, {what, {{"<Field>", column.name}}});
}

[[noreturn]] void ThrowMismatch(const jet::Column& column) {
  Throw(platform::kErrTypeMismatch, column, message::kTypeMismatch);
}

constexpr char kHexDigits[] = "0123456789ABCDEF";

void AppendHex(std::span<const std::byte> bytes, std::string& text) {
  for (std::byte byte : bytes) {
    text += kHexDigits[static_cast<unsigned>(byte) >> 4];
    text += kHexDigits[static_cast<unsigned>(byte) & 15];
  }
}

// {00112233-4455-6677-8899-AABBCCDDEEFF}; the first three groups are stored little endian.
std::string GuidText(std::span<const std::byte> stored) {
  constexpr int kOrder[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  std::string text = "{";
  for (std::size_t i = 0; i < 16; ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
    AppendHex(stored.subspan(static_cast<std::size_t>(kOrder[i]), 1), text);
  }
  return text + "}";
}

Variant BinaryVariant(std::span<const std::byte> bytes) {
  std::vector<std::uint8_t> copy(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) copy[i] = static_cast<std::uint8_t>(bytes[i]);
  return copy;
}

// The number that a value is, or that a text is as a whole.
std::optional<double> NumberOf(const Variant& value) {
  if (auto text = value.Get<std::string>()) {
    const std::string_view digits = TrimBlanks(*text);
    double number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) {
      return std::nullopt;
    }
    return number;
  }
  if (value.Get<bool>() || value.Get<std::int32_t>() || value.Get<double>() ||
      value.Get<platform::Date>()) {
    return value.ToDouble();
  }
  return std::nullopt;
}

double NumberFor(const jet::Column& column, const Variant& value, double least, double most) {
  const auto number = NumberOf(value);
  if (!number) ThrowMismatch(column);
  if (!(*number >= least && *number <= most)) {
    Throw(platform::kErrDataOverflow, column, message::kNumberOverflow);
  }
  return *number;
}

template <class Integer>
Variant WholeFor(const jet::Column& column, const Variant& value) {
  const double number = NumberFor(column, value, std::numeric_limits<Integer>::min() - 0.5,
                                  std::nextafter(std::numeric_limits<Integer>::max() + 0.5, 0.0));
  return static_cast<std::int32_t>(std::nearbyint(number));
}

bool IsText(const Variant& value) {
  return value.IsText() || value.Get<bool>() || value.Get<std::int32_t>() || value.Get<double>() ||
         value.Get<platform::Date>();
}

std::size_t Utf16Length(std::string_view text) {
  std::size_t units = 0;
  for (char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) != 0x80) units += byte >= 0xF0 ? 2 : 1;
  }
  return units;
}

Variant TextFor(const jet::Column& column, const Variant& value) {
  if (!IsText(value)) ThrowMismatch(column);
  std::string text = value.ToText();
  const auto limit = static_cast<std::size_t>(DefinedSizeOf(column));
  if (limit != 0 && Utf16Length(text) > limit) {
    Refuse(platform::kErrDataOverflow,
           {message::kTextTooLong, {{"<Field>", column.name}, {"<Limit>", limit}}});
  }
  return text;
}

}  // namespace

DataType DataTypeOf(ColumnType type) {
  switch (type) {
    case ColumnType::kBoolean:
      return DataType::kBoolean;
    case ColumnType::kByte:
      return DataType::kUnsignedTinyInt;
    case ColumnType::kInteger:
      return DataType::kSmallInt;
    case ColumnType::kLong:
      return DataType::kInteger;
    case ColumnType::kCurrency:
      return DataType::kCurrency;
    case ColumnType::kSingle:
      return DataType::kSingle;
    case ColumnType::kDouble:
      return DataType::kDouble;
    case ColumnType::kDate:
      return DataType::kDate;
    case ColumnType::kText:
      return DataType::kVarWChar;
    case ColumnType::kMemo:
      return DataType::kLongVarWChar;
    case ColumnType::kOle:
      return DataType::kLongVarBinary;
    case ColumnType::kGuid:
      return DataType::kGuid;
    case ColumnType::kDecimal:
      return DataType::kNumeric;
    case ColumnType::kBinary:
    case ColumnType::kOpaque:
      break;
  }
  return DataType::kVarBinary;
}

ColumnType ColumnTypeOf(DataType type) {
  constexpr ColumnType kTypes[] = {
      ColumnType::kBoolean, ColumnType::kByte,   ColumnType::kInteger, ColumnType::kLong,
      ColumnType::kSingle,  ColumnType::kDouble, ColumnType::kDate,    ColumnType::kCurrency,
      ColumnType::kText,    ColumnType::kMemo,   ColumnType::kBinary,  ColumnType::kOle,
      ColumnType::kGuid,
  };
  for (ColumnType candidate : kTypes) {
    if (DataTypeOf(candidate) == type) return candidate;
  }
  Refuse(platform::kErrFeatureNotAvailable,
         {message::kCannotCreateType, {{"<Type>", static_cast<int>(type)}}});
}

std::int32_t DefinedSizeOf(const jet::Column& column) {
  return column.type == ColumnType::kText ? column.length / 2 : column.length;
}

namespace {

// Calls `make` with what a Variant holds for the value.
template <class Make>
decltype(auto) WithContent(const Value& value, Make make) {
  switch (value.kind()) {
    case ValueKind::kNull:
      break;
    case ValueKind::kBoolean:
      return make(value.boolean());
    case ValueKind::kInteger:
      return make(static_cast<std::int32_t>(value.integer()));
    case ValueKind::kCurrency:
      return make(static_cast<double>(value.integer()) / kCurrencyUnit);
    case ValueKind::kReal:
      return make(value.real());
    case ValueKind::kDate:
      return make(platform::Date{value.real()});
    case ValueKind::kText:
      return make(value.text());
    case ValueKind::kGuid:
      return make(GuidText(value.bytes()));
    case ValueKind::kBinary:
    case ValueKind::kDecimal:
      return make(value.bytes());
  }
  return make(platform::Null{});
}

}  // namespace

Variant ToVariant(const Value& value) {
  return WithContent(value, [](auto content) {
    if constexpr (std::is_same_v<decltype(content), std::span<const std::byte>>) {
      return BinaryVariant(content);
    } else {
      return Variant(std::move(content));
    }
  });
}

void AddAnyValue(const Value& value, platform::RowBlock& rows) {
  WithContent(value, [&](const auto& content) { rows.Add(content); });
}

Variant Coerce(const jet::Column& column, const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) {
    return column.type == ColumnType::kBoolean ? Variant(false) : Variant(platform::Null{});
  }
  constexpr double kMaxDouble = std::numeric_limits<double>::max();
  constexpr double kMaxSingle = std::numeric_limits<float>::max();
  switch (column.type) {
    case ColumnType::kBoolean:
      return NumberFor(column, value, -kMaxDouble, kMaxDouble) != 0;
    case ColumnType::kByte:
      return WholeFor<std::uint8_t>(column, value);
    case ColumnType::kInteger:
      return WholeFor<std::int16_t>(column, value);
    case ColumnType::kLong:
      return WholeFor<std::int32_t>(column, value);
    case ColumnType::kCurrency:
      return NumberFor(column, value, -kMaxCurrency, kMaxCurrency);
    case ColumnType::kSingle:
      return NumberFor(column, value, -kMaxSingle, kMaxSingle);
    case ColumnType::kDouble:
      return NumberFor(column, value, -kMaxDouble, kMaxDouble);
    case ColumnType::kDate:
      return platform::Date{NumberFor(column, value, -kMaxDouble, kMaxDouble)};
    case ColumnType::kText:
    case ColumnType::kMemo:
      return TextFor(column, value);
    case ColumnType::kBinary:
    case ColumnType::kOle:
      if (!value.Get<std::vector<std::uint8_t>>()) ThrowMismatch(column);
      return value;
    default:
      Throw(platform::kErrFeatureNotAvailable, column, message::kCannotWriteType);
  }
}

Value ToValue(const jet::Column& column, const Variant& coerced) {
  if (auto v = coerced.Get<bool>()) return Value::Boolean(*v);
  if (auto v = coerced.Get<std::int32_t>()) return Value::Integer(*v);
  if (auto v = coerced.Get<platform::Date>()) return Value::Date(v->days);
  if (auto v = coerced.Get<std::string>()) return Value::Text(*v);
  if (auto v = coerced.Get<std::vector<std::uint8_t>>()) {
    return Value::Binary(std::as_bytes(std::span(*v)));
  }
  if (auto v = coerced.Get<double>()) {
    if (column.type != ColumnType::kCurrency) return Value::Real(*v);
    return Value::Currency(static_cast<std::int64_t>(std::nearbyint(*v * kCurrencyUnit)));
  }
  return Value::Null();
}

}  // namespace recordset
