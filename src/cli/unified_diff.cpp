// SPDX-License-Identifier: MIT
#include "cli/unified_diff.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace cli {

namespace {

using Lines = std::vector<std::string_view>;

Lines Split(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

struct Edit {
  char kind;  // ' ' kept, '-' removed, '+' added
  std::string_view line;
};

// Shortest edit script by Myers' greedy algorithm over what equal heads and tails leave. Above
// `kMaxEdits` differences the middle is shown as removed and added whole.
constexpr std::int64_t kMaxEdits = 2000;

void AppendMiddle(const Lines& a, const Lines& b, std::vector<Edit>& script) {
  const auto n = static_cast<std::int64_t>(a.size()), m = static_cast<std::int64_t>(b.size());
  const std::int64_t limit = std::min(n + m, kMaxEdits);
  const std::int64_t offset = limit + 1;
  std::vector<std::int64_t> reach(static_cast<std::size_t>(2 * limit + 3), 0);
  std::vector<std::vector<std::int64_t>> history;
  auto at = [&](std::int64_t k) -> std::int64_t& {
    return reach[static_cast<std::size_t>(k + offset)];
  };
  std::int64_t found = -1;
  for (std::int64_t d = 0; d <= limit && found < 0; ++d) {
    history.push_back(reach);
    for (std::int64_t k = -d; k <= d; k += 2) {
      std::int64_t x = k == -d || (k != d && at(k - 1) < at(k + 1)) ? at(k + 1) : at(k - 1) + 1;
      while (x < n && x - k < m &&
             a[static_cast<std::size_t>(x)] == b[static_cast<std::size_t>(x - k)])
        ++x;
      at(k) = x;
      if (x >= n && x - k >= m) {
        found = d;
        break;
      }
    }
  }
  if (found < 0) {
    for (auto line : a) script.push_back({'-', line});
    for (auto line : b) script.push_back({'+', line});
    return;
  }
  std::vector<Edit> backward;
  std::int64_t x = n, y = m;
  auto keep = [&] {
    backward.push_back({' ', a[static_cast<std::size_t>(--x)]});
    --y;
  };
  for (std::int64_t d = found; d > 0; --d) {
    const auto& old = history[static_cast<std::size_t>(d)];
    auto was = [&](std::int64_t k) { return old[static_cast<std::size_t>(k + offset)]; };
    const std::int64_t k = x - y;
    const bool down = k == -d || (k != d && was(k - 1) < was(k + 1));
    const std::int64_t from_x = was(down ? k + 1 : k - 1);
    const std::int64_t from_y = from_x - (down ? k + 1 : k - 1);
    while (x > from_x && y > from_y) keep();
    if (down) {
      backward.push_back({'+', b[static_cast<std::size_t>(--y)]});
    } else {
      backward.push_back({'-', a[static_cast<std::size_t>(--x)]});
    }
  }
  while (x > 0) keep();
  script.insert(script.end(), backward.rbegin(), backward.rend());
}

std::vector<Edit> Script(Lines a, Lines b) {
  std::vector<Edit> script;
  std::size_t head = 0;
  while (head < a.size() && head < b.size() && a[head] == b[head])
    script.push_back({' ', a[head++]});
  std::size_t tail = 0;
  while (tail < a.size() - head && tail < b.size() - head &&
         a[a.size() - 1 - tail] == b[b.size() - 1 - tail]) {
    ++tail;
  }
  auto middle = [&](const Lines& lines) {
    return Lines(lines.begin() + static_cast<std::ptrdiff_t>(head),
                 lines.end() - static_cast<std::ptrdiff_t>(tail));
  };
  AppendMiddle(middle(a), middle(b), script);
  for (std::size_t i = tail; i > 0; --i) script.push_back({' ', a[a.size() - i]});
  return script;
}

std::string Span(std::size_t start, std::size_t count) {
  return std::to_string(count == 0 ? start : start + 1) +
         (count == 1 ? "" : "," + std::to_string(count));
}

}  // namespace

std::string UnifiedDiff(std::string_view path, std::string_view before, std::string_view after) {
  constexpr std::size_t kContext = 3;
  const std::vector<Edit> script = Script(Split(before), Split(after));
  std::string out;
  std::size_t old_line = 0, new_line = 0;  // lines before script[i]
  for (std::size_t i = 0; i < script.size();) {
    if (script[i].kind == ' ') {
      ++i, ++old_line, ++new_line;
      continue;
    }
    const std::size_t lead = std::min({kContext, i, old_line, new_line});
    std::size_t start = i - lead, end = i, kept = 0;
    for (std::size_t j = i; j < script.size() && kept <= 2 * kContext; ++j) {
      kept = script[j].kind == ' ' ? kept + 1 : 0;
      if (kept == 0) end = j + 1;
    }
    end = std::min(end + kContext, script.size());
    std::size_t old_count = 0, new_count = 0;
    std::string body;
    for (std::size_t j = start; j < end; ++j) {
      old_count += script[j].kind != '+';
      new_count += script[j].kind != '-';
      body += script[j].kind;
      body += script[j].line;
      body += '\n';
    }
    if (out.empty()) out = "--- " + std::string(path) + "\n+++ " + std::string(path) + "\n";
    out += "@@ -" + Span(old_line - lead, old_count) + " +" + Span(new_line - lead, new_count) +
           " @@\n" + body;
    old_line += old_count - lead;
    new_line += new_count - lead;
    i = end;
  }
  return out;
}

}  // namespace cli
