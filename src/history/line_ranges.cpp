// SPDX-License-Identifier: MIT
#include "history/line_ranges.h"

#include <algorithm>
#include <span>

#include "files/hash.h"

namespace history {
namespace {

constexpr std::size_t kLinesAround = 8;

// Counts in blocks whose count fits into a byte, which compilers turn into wide operations.
std::int64_t LinesIn(std::string_view text) {
  std::int64_t total = 0;
  for (std::size_t begin = 0; begin < text.size(); begin += 255) {
    unsigned char count = 0;
    for (const char c : text.substr(begin, 255)) count += c == '\n' ? 1 : 0;
    total += count;
  }
  return total;
}

// Begin of the line in which `at` stands; `at` itself where a line begins.
std::size_t LineBegin(std::string_view text, std::size_t at) {
  const std::size_t end = at == 0 ? std::string_view::npos : text.rfind('\n', at - 1);
  return end == std::string_view::npos ? 0 : end + 1;
}

// Begin of the first line that begins at `at` or behind it; the end of the text when none does.
std::size_t NextLineBegin(std::string_view text, std::size_t at) {
  if (at == 0) return 0;
  const std::size_t end = text.find('\n', at - 1);
  return end == std::string_view::npos ? text.size() : end + 1;
}

// Lines that both contents have, a part of the one that is equal to a part of the other.
struct Shared {
  std::size_t before = 0;
  std::size_t after = 0;
  std::size_t length = 0;
};

// The whole lines of a part that was kept, if it was.
std::optional<Shared> WholeLines(std::string_view before, std::string_view after,
                                 const files::KeptRange& kept) {
  const auto inside = [&](std::string_view text, std::uint64_t begin) {
    return begin <= text.size() && kept.length <= text.size() - begin;
  };
  if (!inside(before, kept.before) || !inside(after, kept.after)) return std::nullopt;
  if (before.substr(kept.before, kept.length) != after.substr(kept.after, kept.length)) {
    return std::nullopt;
  }
  const std::size_t in_before = NextLineBegin(before, kept.before) - kept.before;
  const std::size_t in_after = NextLineBegin(after, kept.after) - kept.after;
  const std::size_t begin = std::max(in_before, in_after);
  if (begin >= kept.length) return std::nullopt;
  // Both begin a line there: where only one did, the lines are not the same.
  if (LineBegin(before, kept.before + begin) != kept.before + begin ||
      LineBegin(after, kept.after + begin) != kept.after + begin) {
    return std::nullopt;
  }
  std::size_t end = kept.length;
  const bool at_ends = kept.before + end == before.size() && kept.after + end == after.size();
  if (!at_ends) end = LineBegin(before, kept.before + end) - kept.before;
  if (end <= begin || end > kept.length) return std::nullopt;
  return Shared{static_cast<std::size_t>(kept.before) + begin,
                static_cast<std::size_t>(kept.after) + begin, end - begin};
}

// Equal lines at the beginning and the end of what differs.
void Trim(std::string_view& before, std::string_view& after, std::size_t& skipped) {
  std::size_t same = 0;
  const std::size_t most = std::min(before.size(), after.size());
  while (same < most && before[same] == after[same]) ++same;
  if (same < before.size() || same < after.size()) {
    same = std::min(LineBegin(before, same), LineBegin(after, same));
  }
  skipped = same;
  before.remove_prefix(same);
  after.remove_prefix(same);
  std::size_t tail = 0;
  const std::size_t rest = std::min(before.size(), after.size());
  while (tail < rest && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  // Only whole lines: both begin one where the equal part begins.
  while (tail > 0) {
    const std::size_t in_before = before.size() - tail, in_after = after.size() - tail;
    const bool starts = (in_before == 0 || before[in_before - 1] == '\n') &&
                        (in_after == 0 || after[in_after - 1] == '\n');
    if (starts) break;
    const std::size_t next = NextLineBegin(before, in_before + 1);
    tail = next >= before.size() ? 0 : before.size() - next;
  }
  before.remove_suffix(tail);
  after.remove_suffix(tail);
}

// Some lines in front of a place where a line begins.
std::string_view Above(std::string_view text, std::size_t at) {
  std::size_t begin = at;
  for (std::size_t i = 0; i < kLinesAround && begin > 0; ++i) begin = LineBegin(text, begin - 1);
  return text.substr(begin, at - begin);
}

std::string_view Below(std::string_view text, std::size_t at) {
  std::size_t end = at;
  for (std::size_t i = 0; i < kLinesAround && end < text.size(); ++i) {
    end = NextLineBegin(text, end + 1);
  }
  return text.substr(at, end - at);
}

// The lines of a text with their ends.
std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = NextLineBegin(text, 1);
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// How much of a range's surroundings stands around a place.
struct Likeness {
  std::size_t lines = 0;  // that are equal and where they were
  bool beside = false;    // one of them that is not blank is the next one
  bool near = false;      // one that is not blank stands somewhere on its side
};

Likeness Compare(std::string_view contents, std::size_t begin, std::size_t end,
                 const ChangedLines& range) {
  Likeness likeness;
  bool near = true;  // only blank lines so far
  const auto compare = [&](std::string_view was, std::string_view is) {
    if (was == is) ++likeness.lines;
    if (near && was == is && !IsBlank(was)) likeness.beside = true;
    near = near && was == is && IsBlank(was);
  };
  const auto look = [&](const auto& lines, const auto& now) {
    likeness.near = likeness.near || std::ranges::any_of(lines, [&](std::string_view line) {
                      return !IsBlank(line) && std::ranges::count(now, line) > 0;
                    });
  };
  const auto above = LinesOf(range.above), above_now = LinesOf(Above(contents, begin));
  for (std::size_t i = 1; i <= std::min(above.size(), above_now.size()); ++i) {
    compare(above[above.size() - i], above_now[above_now.size() - i]);
  }
  look(above, above_now);
  near = true;
  const auto below = LinesOf(range.below), below_now = LinesOf(Below(contents, end));
  for (std::size_t i = 0; i < std::min(below.size(), below_now.size()); ++i) {
    compare(below[i], below_now[i]);
  }
  look(below, below_now);
  // The edge of the file is a neighbour too.
  if (range.above.empty() && begin == 0) likeness.beside = true;
  if (range.below.empty() && end == contents.size()) likeness.beside = true;
  return likeness;
}

// Whether the line above or below a place is the one that was there; quick to tell.
bool MayBeBetween(std::string_view contents, std::size_t at, const ChangedLines& range) {
  const auto ends = [](std::string_view text, std::string_view lines) {
    return text.ends_with(lines.substr(lines.empty() ? 0 : LineBegin(lines, lines.size() - 1)));
  };
  const auto begins = [](std::string_view text, std::string_view lines) {
    return text.starts_with(lines.substr(0, lines.empty() ? 0 : NextLineBegin(lines, 1)));
  };
  return ends(contents.substr(0, at), range.above) || begins(contents.substr(at), range.below);
}

// Where the lines that the change made stand now: their only place, if something of what stood
// around them is near, else the one with most of that. Nothing when there is none, or two are
// alike.
std::optional<std::size_t> Find(std::string_view contents, const ChangedLines& range) {
  std::optional<std::size_t> best, near;
  std::size_t most = 0, places = 0;
  bool tie = false;
  const auto consider = [&](std::size_t at) {
    const std::size_t end = at + range.after.size();
    const Likeness likeness = Compare(contents, at, end, range);
    ++places;
    if (likeness.near && !IsBlank(range.after)) near = at;
    if (!likeness.beside || likeness.lines < most) return;
    tie = best && likeness.lines == most;
    best = at;
    most = likeness.lines;
  };
  if (range.after.empty()) {
    for (std::size_t at = 0;; at = NextLineBegin(contents, at + 1)) {
      if (MayBeBetween(contents, at, range)) consider(at);
      if (at == contents.size()) break;
    }
  } else {
    const bool ends_line = range.after.ends_with('\n');
    for (std::size_t at = 0; (at = contents.find(range.after, at)) != std::string_view::npos;
         ++at) {
      const bool begins = at == 0 || contents[at - 1] == '\n';
      if (begins && (ends_line || at + range.after.size() == contents.size())) consider(at);
    }
  }
  if (places == 1 && near) return near;
  return tie ? std::nullopt : best;
}

struct Place {
  std::size_t at;
  const ChangedLines* range;
};

// Of a file that is as the change left it.
std::optional<std::vector<Place>> PlacesByNumber(std::string_view contents,
                                                 const ChangedFile& file) {
  std::vector<Place> places;
  std::size_t at = 0;
  std::int64_t line = 1;
  for (const ChangedLines& range : file.ranges) {
    for (; line < range.line_after; ++line) {
      if (at >= contents.size()) return std::nullopt;
      at = NextLineBegin(contents, at + 1);
    }
    if (line != range.line_after || !contents.substr(at).starts_with(range.after)) {
      return std::nullopt;
    }
    places.push_back({at, &range});
  }
  return places;
}

}  // namespace

FileVersion VersionOf(std::string_view bytes) {
  return {bytes.size(), files::Hash64(std::as_bytes(std::span(bytes)))};
}

std::vector<ChangedLines> RangesOf(const files::FileChange& change) {
  const std::string_view before = change.before ? std::string_view(*change.before) : "";
  const std::string_view after = change.after ? std::string_view(*change.after) : "";
  std::vector<Shared> shared;
  for (const files::KeptRange& kept : change.kept) {
    const auto lines = WholeLines(before, after, kept);
    const bool follows =
        lines && (shared.empty() || (shared.back().before + shared.back().length <= lines->before &&
                                     shared.back().after + shared.back().length <= lines->after));
    if (follows) shared.push_back(*lines);
  }
  shared.push_back({before.size(), after.size(), 0});
  std::vector<ChangedLines> ranges;
  std::size_t in_before = 0, in_after = 0, counted = 0;
  std::int64_t line_before = 1, shift = 0;  // of the lines after the change
  for (const Shared& next : shared) {
    std::string_view old_lines = before.substr(in_before, next.before - in_before);
    std::string_view new_lines = after.substr(in_after, next.after - in_after);
    std::size_t skipped = 0;
    Trim(old_lines, new_lines, skipped);
    if (!old_lines.empty() || !new_lines.empty()) {
      const std::size_t at_before = in_before + skipped, at_after = in_after + skipped;
      line_before += LinesIn(before.substr(counted, at_before - counted));
      counted = at_before;
      ranges.push_back({line_before, line_before + shift, std::string(old_lines),
                        std::string(new_lines), std::string(Above(after, at_after)),
                        std::string(Below(after, at_after + new_lines.size()))});
      shift += LinesIn(new_lines) - LinesIn(old_lines);
    }
    in_before = next.before + next.length;
    in_after = next.after + next.length;
  }
  return ranges;
}

TakenBack TakeBack(std::string_view contents, const ChangedFile& file) {
  TakenBack result;
  std::optional<std::vector<Place>> places;
  if (file.after && VersionOf(contents) == *file.after) places = PlacesByNumber(contents, file);
  if (!places) {
    places.emplace();
    for (const ChangedLines& range : file.ranges) {
      const auto at = Find(contents, range);
      if (!at) {
        result.failed = &range;
        return result;
      }
      places->push_back({*at, &range});
    }
  }
  std::ranges::stable_sort(*places, {}, &Place::at);
  std::size_t done = 0;
  const auto keep_to = [&](std::size_t end) {
    if (end > done) result.kept.push_back({done, result.contents.size(), end - done});
    result.contents += contents.substr(done, end - done);
  };
  for (const Place& place : *places) {
    if (place.at < done) {
      result.failed = place.range;
      return result;
    }
    keep_to(place.at);
    result.contents += place.range->before;
    done = place.at + place.range->after.size();
  }
  keep_to(contents.size());
  return result;
}

}  // namespace history
