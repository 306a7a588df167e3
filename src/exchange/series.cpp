// SPDX-License-Identifier: MIT
#include "exchange/series.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "exchange/place.h"

namespace exchange {
namespace {

constexpr std::size_t kMostDigits = 9;

[[noreturn]] void RefuseLength(std::string_view text) {
  throw messages::Error({{kTextSeriesTooLong}, {{"<Text>", text}, {"<Most>", Series::kMost}}});
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.size() <= kMostDigits &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::uint32_t NumberOf(std::string_view digits) {
  std::uint32_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

std::string Padded(std::uint32_t number, std::size_t digits) {
  std::string text = std::to_string(number);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text;
}

std::vector<std::string> Numbers(std::string_view first, std::string_view last) {
  const bool padded = (first.size() > 1 && first[0] == '0') || (last.size() > 1 && last[0] == '0');
  const std::size_t digits = padded ? std::max(first.size(), last.size()) : 0;
  const std::uint32_t from = NumberOf(first), to = NumberOf(last);
  const std::uint32_t steps = from < to ? to - from : from - to;
  std::vector<std::string> numbers;
  if (steps >= Series::kMost) {
    RefuseLength("{" + std::string(first) + ".." + std::string(last) + "}");
  }
  for (std::uint32_t i = 0; i <= steps; ++i) {
    numbers.push_back(Padded(from < to ? from + i : from - i, digits));
  }
  return numbers;
}

// What stands between braces as a series; nothing when it is none.
std::optional<std::vector<std::string>> ChoicesOf(std::string_view inside) {
  const std::size_t dots = inside.find("..");
  if (dots != std::string_view::npos) {
    const std::string_view first = inside.substr(0, dots), last = inside.substr(dots + 2);
    if (IsNumber(first) && IsNumber(last)) return Numbers(first, last);
  }
  if (inside.find(',') == std::string_view::npos) return std::nullopt;
  std::vector<std::string> words;
  for (std::size_t at = 0; at <= inside.size();) {
    const std::size_t end = std::min(inside.find(',', at), inside.size());
    words.emplace_back(inside.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

}  // namespace

Series::Series(std::string_view text) {
  while (!text.empty()) {
    const std::size_t brace = text.find('{');
    Append(text.substr(0, brace));
    if (brace == std::string_view::npos) return;
    text.remove_prefix(brace);
    if (text.starts_with("{{")) {
      Append("{");
      text.remove_prefix(2);
      continue;
    }
    const std::size_t end = text.find_first_of("{}", 1);
    const bool closed = end != std::string_view::npos && text[end] == '}';
    auto choices = closed ? ChoicesOf(text.substr(1, end - 1)) : std::nullopt;
    if (choices) {
      Append(std::move(*choices));
      text.remove_prefix(end + 1);
    } else {
      Append("{");
      text.remove_prefix(1);
    }
  }
}

void Series::Append(std::string_view text) {
  if (text.empty()) return;
  if (pieces_.empty() || pieces_.back().size() > 1) pieces_.emplace_back(1);
  pieces_.back().front() += text;
}

void Series::Append(Choices choices) {
  if (choices.size() > kMost / size_) RefuseLength("{" + choices.front() + "...}");
  size_ *= choices.size();
  pieces_.push_back(std::move(choices));
}

std::string Series::At(std::size_t index) const {
  std::string text;
  std::size_t left = size_;
  for (const Choices& choices : pieces_) {
    left /= choices.size();
    text += choices[index / left % choices.size()];
  }
  return text;
}

std::vector<std::string> Expand(std::string_view text) {
  const Series series(text);
  std::vector<std::string> all;
  for (std::size_t i = 0; i < series.size(); ++i) all.push_back(series.At(i));
  return all;
}

std::string WithoutSeries(std::string_view text) {
  const bool may_be_one =
      text.find("{{") != std::string_view::npos ||
      (text.find('{') != std::string_view::npos &&
       (text.find(',') != std::string_view::npos || text.find("..") != std::string_view::npos));
  if (!may_be_one) return std::string(text);
  std::string doubled;
  for (const char c : text) doubled.append(c == '{' ? 2 : 1, c);
  return doubled;
}

}  // namespace exchange
