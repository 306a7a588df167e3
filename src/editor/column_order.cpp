// SPDX-License-Identifier: MIT
#include "editor/column_order.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "platform/variant.h"

namespace editor {

namespace {

// The numbers behind the commas; what stands before the first comma says nothing.
std::vector<std::int32_t> Numbers(std::string_view text) {
  std::vector<std::int32_t> numbers;
  for (std::size_t comma = text.find(','); comma != std::string_view::npos;) {
    const std::size_t next = text.find(',', comma + 1);
    const std::string_view part = text.substr(comma + 1, next - comma - 1);
    numbers.push_back(platform::Variant(platform::Val(part)).ToLong());
    comma = next;
  }
  return numbers;
}

}  // namespace

std::vector<int> ReadColumnOrder(std::string_view text, const std::vector<int>& split_of_column) {
  const int count = static_cast<int>(split_of_column.size());
  std::vector<std::int32_t> keys(split_of_column.size());
  std::iota(keys.begin(), keys.end(), 0);
  const std::vector<std::int32_t> numbers = Numbers(text);
  for (std::size_t i = 0; i < std::min(numbers.size(), keys.size()); ++i) {
    if (numbers[i] < count) keys[i] = numbers[i];
  }
  std::vector<int> columns(split_of_column.size());
  std::iota(columns.begin(), columns.end(), 0);
  std::stable_sort(columns.begin(), columns.end(), [&](int a, int b) {
    const auto left = static_cast<std::size_t>(a);
    const auto right = static_cast<std::size_t>(b);
    if (split_of_column[left] != split_of_column[right]) {
      return split_of_column[left] < split_of_column[right];
    }
    return keys[left] < keys[right];
  });
  return columns;
}

std::string WriteColumnOrder(const std::vector<int>& columns) {
  std::string text;
  for (const int column : columns) text += "," + std::to_string(column);
  return text;
}

}  // namespace editor
