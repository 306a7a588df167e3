// SPDX-License-Identifier: MIT
#include "cli/suggest.h"

#include <algorithm>
#include <numeric>

namespace cli {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Insertions, deletions, replacements and swaps of neighbours that turn `a` into `b`; stops
// counting above `limit`.
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t limit) {
  if (std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > limit) return limit + 1;
  std::vector<std::size_t> before_last(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t differs = Lower(a[i - 1]) != Lower(b[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + differs});
      if (i > 1 && j > 1 && Lower(a[i - 1]) == Lower(b[j - 2]) &&
          Lower(a[i - 2]) == Lower(b[j - 1])) {
        row[j] = std::min(row[j], before_last[j - 2] + 1);
      }
    }
    before_last.swap(last);
    last.swap(row);
  }
  return last[b.size()];
}

}  // namespace

std::string Nearest(std::string_view word, const std::vector<std::string>& candidates) {
  std::size_t best = std::max<std::size_t>(1, word.size() / 3) + 1;
  std::string nearest;
  for (const std::string& candidate : candidates) {
    const std::size_t distance = EditDistance(word, candidate, best);
    if (distance < best) {
      best = distance;
      nearest = candidate;
    }
  }
  return nearest;
}

}  // namespace cli
