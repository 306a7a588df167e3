// SPDX-License-Identifier: MIT
// Texts that stand for many: "Tank{1..20}.Level", "Pump{A,B,C}", "Valve{01..12}".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace exchange {

// A text with a series in braces: two numbers with ".." between them, which all have as many digits
// as the longer one when either begins with 0, or words with commas. Several in one text are
// combined, the last one running fastest. "{{" is a brace; braces around anything else stand for
// themselves.
class Series {
 public:
  static constexpr std::size_t kMost = 100000;

  // Raises messages::Error for a series of more.
  explicit Series(std::string_view text);

  // 1 for a text without a series.
  std::size_t size() const { return size_; }
  // The text of that number, from 0.
  std::string At(std::size_t index) const;

 private:
  // A piece of text that is one of these.
  using Choices = std::vector<std::string>;
  void Append(std::string_view text);
  void Append(Choices choices);

  std::vector<Choices> pieces_;
  std::size_t size_ = 1;
};

// All texts of the series.
std::vector<std::string> Expand(std::string_view text);
// The text written so that its series is itself alone.
std::string WithoutSeries(std::string_view text);

}  // namespace exchange
