// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace platform {

// Base of every object that a Variant can carry across an interface.
class Object {
 public:
  virtual ~Object() = default;
};

// A date as OLE Automation counts it: days since 1899-12-30. For negative values the fraction
// still counts forward from midnight.
struct Date {
  double days = 0;
  friend bool operator==(const Date&, const Date&) = default;
};

struct Empty {
  friend bool operator==(Empty, Empty) = default;
};
struct Null {
  friend bool operator==(Null, Null) = default;
};
// An optional argument that the caller left out.
struct Missing {
  friend bool operator==(Missing, Missing) = default;
};

// The value type that crosses the platform interfaces. Text is UTF-8 and may hold U+0000.
class Variant {
 public:
  using Storage = std::variant<Empty, Null, Missing, bool, std::int32_t, double, Date, std::string,
                               std::vector<std::uint8_t>, std::shared_ptr<Object>>;

  Variant() = default;
  Variant(Null v) : value_(v) {}
  Variant(Missing v) : value_(v) {}
  Variant(bool v) : value_(v) {}
  Variant(std::int32_t v) : value_(v) {}
  Variant(double v) : value_(v) {}
  Variant(Date v) : value_(v) {}
  Variant(std::string v) : value_(std::move(v)) {}
  Variant(std::string_view v) : value_(std::in_place_type<std::string>, v) {}
  Variant(const char* v) : value_(std::in_place_type<std::string>, v) {}
  Variant(std::vector<std::uint8_t> v) : value_(std::move(v)) {}
  Variant(std::shared_ptr<Object> v) : value_(std::move(v)) {}

  bool IsEmpty() const { return std::holds_alternative<Empty>(value_); }
  bool IsNull() const { return std::holds_alternative<Null>(value_); }
  bool IsMissing() const { return std::holds_alternative<Missing>(value_); }
  bool IsText() const { return std::holds_alternative<std::string>(value_); }

  // The held value of type T, or null when the Variant holds another type.
  template <class T>
  const T* Get() const {
    return std::get_if<T>(&value_);
  }
  const Storage& storage() const { return value_; }

  // Conversions as Visual Basic makes them. Null, bytes and objects convert to 0, false and "";
  // a boolean is -1 or 0 and "True" or "False"; text converts to a number by ParseNumber.
  bool ToBool() const;
  std::int32_t ToLong() const;  // rounds half to even, saturates at the limits
  double ToDouble() const;
  std::string ToText() const;  // numbers with a decimal point, shortest form that reads back

  friend bool operator==(const Variant&, const Variant&);

 private:
  Storage value_;
};

// The leading number of a text as Visual Basic's Val reads it: blanks, tabs and line feeds are
// skipped everywhere, sign, decimal point, exponents with e and d, &H and &O. 0 for none.
double Val(std::string_view text);

}  // namespace platform
