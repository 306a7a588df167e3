// SPDX-License-Identifier: MIT
#include "project/line_diff.h"

#include <algorithm>
#include <cstdint>

namespace project {

Lines SplitLines(std::string_view text) {
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

Lines EditorLines(std::string_view text) {
  Lines lines = SplitLines(text);
  if (text.empty() || text.ends_with('\n')) lines.emplace_back();
  return lines;
}

namespace {

// Shortest edit script by Myers' greedy algorithm over what equal heads and tails leave. Above
// `kMaxEdits` differences the middle is shown as removed and added whole.
constexpr std::int64_t kMaxEdits = 2000;

void AppendMiddle(const Lines& a, const Lines& b, std::vector<LineEdit>& script) {
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
  std::vector<LineEdit> backward;
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

}  // namespace

std::vector<LineEdit> DiffLines(const Lines& a, const Lines& b) {
  std::vector<LineEdit> script;
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

std::vector<LineChange> LineChanges(const Lines& a, const Lines& b) {
  std::vector<LineChange> changes;
  std::size_t line = 0;
  bool kept = true;
  for (const LineEdit& edit : DiffLines(a, b)) {
    if (edit.kind != ' ' && kept) changes.push_back({line, 0, {}});
    kept = edit.kind == ' ';
    if (edit.kind == '-') ++changes.back().count;
    if (edit.kind == '+') changes.back().lines.push_back(edit.line);
    if (edit.kind != '+') ++line;
  }
  return changes;
}

std::optional<std::string> MergeTexts(std::string_view base, std::string_view mine,
                                      std::string_view theirs) {
  const Lines old = EditorLines(base);
  const auto ours = LineChanges(old, EditorLines(mine));
  const auto others = LineChanges(old, EditorLines(theirs));
  std::string merged;
  const auto append = [&](std::string_view line) { merged.append(line).push_back('\n'); };
  std::size_t line = 0;
  for (auto a = ours.begin(), b = others.begin(); a != ours.end() || b != others.end();) {
    const bool both = a != ours.end() && b != others.end();
    const bool same = both && *a == *b;
    if (both && !same && a->first <= b->first + b->count && b->first <= a->first + a->count)
      return std::nullopt;
    const LineChange& next = b == others.end() || (both && a->first <= b->first) ? *a : *b;
    while (line < next.first) append(old[line++]);
    for (const std::string_view added : next.lines) append(added);
    line += next.count;
    const bool is_ours = a != ours.end() && &next == &*a;
    if (is_ours) ++a;
    if (!is_ours || same) ++b;
  }
  while (line < old.size()) append(old[line++]);
  if (!merged.empty()) merged.pop_back();  // what follows the last line end is a line itself
  return merged;
}

}  // namespace project
