// SPDX-License-Identifier: MIT
#include "platform/variant.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

namespace {

bool IsSkipped(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string NumberText(double v) {
  char buffer[64];
  auto end = std::to_chars(buffer, buffer + sizeof buffer, v).ptr;
  return std::string(buffer, end);
}

// &H and &O numbers: 16 bits wide with sign when they fit, else 32 bits with sign.
double RadixValue(std::string_view digits, int radix) {
  std::uint64_t value = 0;
  auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, radix);
  if (result.ptr == digits.data() || result.ec != std::errc()) return 0;
  if (value <= 0xFFFF) return static_cast<std::int16_t>(value);
  return static_cast<std::int32_t>(value & 0xFFFFFFFF);
}

}  // namespace

bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

bool Variant::ToBool() const {
  if (auto text = Get<std::string>()) {
    if (*text == "True" || *text == "true" || *text == "TRUE") return true;
  }
  return ToDouble() != 0;
}

std::int32_t Variant::ToLong() const {
  double v = std::nearbyint(ToDouble());
  if (!(v > std::numeric_limits<std::int32_t>::min()))
    return std::numeric_limits<std::int32_t>::min();
  if (!(v < std::numeric_limits<std::int32_t>::max()))
    return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(v);
}

double Variant::ToDouble() const {
  if (auto v = Get<bool>()) return *v ? -1 : 0;
  if (auto v = Get<std::int32_t>()) return *v;
  if (auto v = Get<double>()) return *v;
  if (auto v = Get<Date>()) return v->days;
  if (auto v = Get<std::string>()) return Val(*v);
  return 0;
}

std::string Variant::ToText() const {
  if (auto v = Get<bool>()) return *v ? "True" : "False";
  if (auto v = Get<std::int32_t>()) return std::to_string(*v);
  if (auto v = Get<double>()) return NumberText(*v);
  if (auto v = Get<Date>()) return NumberText(v->days);
  if (auto v = Get<std::string>()) return *v;
  return {};
}

double Val(std::string_view text) {
  std::string compact;
  for (char c : text) {
    if (!IsSkipped(c)) compact += c;
    if (compact.size() > 400) break;
  }
  std::string_view rest = compact;
  if (rest.size() >= 2 && rest[0] == '&') {
    char radix = rest[1];
    if (radix == 'H' || radix == 'h') return RadixValue(rest.substr(2), 16);
    if (radix == 'O' || radix == 'o') return RadixValue(rest.substr(2), 8);
    return 0;
  }
  bool negative = false;
  if (!rest.empty() && (rest[0] == '+' || rest[0] == '-')) {
    negative = rest[0] == '-';
    rest.remove_prefix(1);
  }
  if (rest.empty() || !(rest[0] == '.' || (rest[0] >= '0' && rest[0] <= '9'))) return 0;
  std::string number(rest);
  for (char& c : number) {
    if (c == 'd' || c == 'D') c = 'e';
  }
  double value = 0;
  auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    value = std::numeric_limits<double>::infinity();
  }
  return negative ? -value : value;
}

}  // namespace platform
