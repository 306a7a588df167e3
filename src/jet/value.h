// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace jet {

// Type code of a column as stored in the table's definition.
enum class ColumnType : std::uint8_t {
  kBoolean = 0x01,
  kByte = 0x02,
  kInteger = 0x03,
  kLong = 0x04,
  kCurrency = 0x05,
  kSingle = 0x06,
  kDouble = 0x07,
  kDate = 0x08,
  kBinary = 0x09,
  kText = 0x0A,
  kOle = 0x0B,
  kMemo = 0x0C,
  kGuid = 0x0F,
  kDecimal = 0x10,
  kOpaque = 0x11,  // fixed binary of Access's own tables
};

enum class ValueKind : std::uint8_t {
  kNull,
  kBoolean,
  kInteger,   // byte, integer and long columns
  kCurrency,  // in 1/10000
  kReal,      // single and double columns
  kDate,      // days since 1899-12-30; for negative values the fraction counts forward
  kText,      // UTF-8; a lone surrogate is the three bytes of its code point
  kBinary,    // binary, OLE and opaque columns
  kGuid,      // 16 bytes as stored
  kDecimal,   // 17 bytes as stored
};

// The value of one column. Text and bytes are not owned: they stay valid as long as the row
// buffer they were read into, or the memory that the caller passed. Trivially copyable.
class Value {
 public:
  constexpr Value() = default;
  static constexpr Value Null() { return {}; }
  static constexpr Value Boolean(bool v) { return Value(ValueKind::kBoolean, std::int64_t{v}); }
  static constexpr Value Integer(std::int64_t v) { return Value(ValueKind::kInteger, v); }
  static constexpr Value Currency(std::int64_t v) { return Value(ValueKind::kCurrency, v); }
  static constexpr Value Real(double v) { return Value(ValueKind::kReal, v); }
  static constexpr Value Date(double days) { return Value(ValueKind::kDate, days); }
  static constexpr Value Text(std::string_view v) {
    return Value(ValueKind::kText, v.data(), v.size());
  }
  static Value Binary(std::span<const std::byte> v) { return Bytes(ValueKind::kBinary, v); }
  static Value Guid(std::span<const std::byte, 16> v) { return Bytes(ValueKind::kGuid, v); }
  static Value Decimal(std::span<const std::byte, 17> v) { return Bytes(ValueKind::kDecimal, v); }

  constexpr ValueKind kind() const { return kind_; }
  constexpr bool is_null() const { return kind_ == ValueKind::kNull; }

  // Each of these asks for a value of its kind.
  constexpr bool boolean() const { return integer_ != 0; }
  constexpr std::int64_t integer() const { return integer_; }  // also currency
  constexpr double real() const { return real_; }              // also date
  constexpr std::string_view text() const { return {text_, size_}; }
  std::span<const std::byte> bytes() const {
    return {reinterpret_cast<const std::byte*>(text_), size_};
  }

  // The same text or bytes in other memory. Asks for a value that refers to some.
  Value WithBytesAt(const char* memory) const { return {kind_, memory, size_}; }

  // Same kind and same contents; reals compare as numbers.
  friend bool operator==(const Value& a, const Value& b);

 private:
  constexpr Value(ValueKind kind, std::int64_t v) : kind_(kind), integer_(v) {}
  constexpr Value(ValueKind kind, double v) : kind_(kind), real_(v) {}
  constexpr Value(ValueKind kind, const char* data, std::size_t size)
      : kind_(kind), size_(size), text_(data) {}
  static Value Bytes(ValueKind kind, std::span<const std::byte> v) {
    return Value(kind, reinterpret_cast<const char*>(v.data()), v.size());
  }

  ValueKind kind_ = ValueKind::kNull;
  std::size_t size_ = 0;
  union {
    std::int64_t integer_ = 0;
    double real_;
    const char* text_;
  };
};

}  // namespace jet
