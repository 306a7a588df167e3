// SPDX-License-Identifier: MIT
#include "forms/row_order.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "platform/text.h"

namespace forms {

namespace {

constexpr std::size_t kBlock = 4096;

// A cell as it is compared: by its rank first.
struct Key {
  enum class Rank { kNone, kNumber, kText };
  Rank rank = Rank::kNone;
  double number = 0;
  std::string text;
};

Key KeyOf(const Row& row, std::size_t column) {
  if (column >= row.cells.size()) return {};
  const platform::Variant& cell = row.cells[column];
  if (const auto* text = cell.Get<std::string>())
    return {Key::Rank::kText, 0, platform::FoldCase(*text)};
  if (const auto* flag = cell.Get<bool>()) return {Key::Rank::kNumber, *flag ? 1.0 : 0.0, {}};
  if (cell.Get<std::int32_t>() || cell.Get<double>())
    return {Key::Rank::kNumber, cell.ToDouble(), {}};
  return {};
}

int Compare(const Key& a, const Key& b) {
  if (a.rank != b.rank) return a.rank < b.rank ? -1 : 1;
  if (a.rank == Key::Rank::kNumber) return a.number < b.number ? -1 : a.number > b.number;
  return CompareNaturally(a.text, b.text);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The number that begins at the place, without leading zeros; the place is moved behind it.
std::string_view TakeNumber(std::string_view text, std::size_t& place) {
  while (place < text.size() && text[place] == '0') ++place;
  const std::size_t begin = place;
  while (place < text.size() && IsDigit(text[place])) ++place;
  return text.substr(begin, place - begin);
}

}  // namespace

int CompareNaturally(std::string_view a, std::string_view b) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    if (IsDigit(a[i]) && IsDigit(b[j])) {
      const std::string_view left = TakeNumber(a, i), right = TakeNumber(b, j);
      if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
      if (const int order = left.compare(right)) return order;
      continue;
    }
    if (a[i] != b[j])
      return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[j]) ? -1 : 1;
    ++i;
    ++j;
  }
  if (i < a.size() || j < b.size()) return i < a.size() ? 1 : -1;
  return a.compare(b);  // they differ by zeros only
}

std::vector<std::size_t> SortedRows(RowSource& source, const RowSort& sort,
                                    std::vector<std::int64_t>& ids) {
  ids.clear();
  std::vector<Key> keys;
  keys.reserve(source.RowCount());
  for (std::size_t first = 0;; first += kBlock) {
    const std::vector<Row> rows = source.Rows(first, kBlock);
    for (const Row& row : rows) {
      ids.push_back(row.id);
      keys.push_back(KeyOf(row, sort.column));
    }
    if (rows.size() < kBlock) break;
  }
  std::vector<std::size_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    const int compared = Compare(keys[a], keys[b]);
    return sort.descending ? compared > 0 : compared < 0;
  });
  return order;
}

}  // namespace forms
