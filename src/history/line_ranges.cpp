// SPDX-License-Identifier: MIT
#include "history/line_ranges.h"

#include <algorithm>
#include <span>
#include <unordered_map>

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

using Lines = std::span<const std::string_view>;

Lines FirstOf(Lines lines) { return lines.first(std::min(lines.size(), kLinesAround)); }
Lines LastOf(Lines lines) { return lines.last(std::min(lines.size(), kLinesAround)); }

// How much of a range's surroundings stands around a place.
struct Likeness {
  std::size_t lines = 0;  // that are equal and where they were
  bool beside = false;    // one of them that is not blank is the next one
};

// Finds where ranges stand in contents of which all lines are known.
class RangeFinder {
 public:
  explicit RangeFinder(std::string_view contents) : lines_(LinesOf(contents)) {
    begins_.reserve(lines_.size() + 1);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      begins_.push_back(begin);
      begin += lines_[i].size();
      numbers_[lines_[i]].push_back(i);
    }
    begins_.push_back(begin);
  }

  // Where the lines that the change made stand now: their only place, if something of what stood
  // around them is near, else the one with most of that. Nothing when there is none, or two are
  // alike.
  std::optional<std::size_t> Find(const ChangedLines& range) const {
    const Sought sought(range);
    // Where all of it stands nothing else has more: of equal lines that many ranges changed only
    // one is looked at for each of them.
    const std::vector<std::size_t> whole = WholePlaces(sought);
    if (whole.size() > 1) return std::nullopt;
    if (!whole.empty()) return begins_[whole.front()];
    return FindMostAlike(sought);
  }

 private:
  struct Sought {
    explicit Sought(const ChangedLines& range)
        : above(LinesOf(range.above)), after(LinesOf(range.after)), below(LinesOf(range.below)) {}

    bool HasNeighbour() const {
      const auto tells = [](std::string_view line) { return !IsBlank(line); };
      return std::ranges::any_of(LastOf(above), tells) ||
             std::ranges::any_of(FirstOf(below), tells);
    }

    std::vector<std::string_view> above, after, below;
  };

  const std::vector<std::size_t>& NumbersOf(std::string_view line) const {
    static const std::vector<std::size_t> kNone;
    const auto found = numbers_.find(line);
    return found == numbers_.end() ? kNone : found->second;
  }

  bool StandAt(Lines lines, std::size_t number) const {
    return number <= lines_.size() && lines.size() <= lines_.size() - number &&
           std::ranges::equal(lines, Lines(lines_).subspan(number, lines.size()));
  }

  // Lines in front of which the range's lines stand with all that stood around them; nothing when
  // that would not tell one place from another.
  std::vector<std::size_t> WholePlaces(const Sought& sought) const {
    if (!sought.HasNeighbour()) return {};
    std::vector<std::string_view> all(LastOf(sought.above).begin(), LastOf(sought.above).end());
    const std::size_t above = all.size();
    all.insert(all.end(), sought.after.begin(), sought.after.end());
    const Lines below = FirstOf(sought.below);
    all.insert(all.end(), below.begin(), below.end());
    const auto rarest =
        std::ranges::min_element(all, {}, [&](auto line) { return NumbersOf(line).size(); });
    const auto offset = static_cast<std::size_t>(rarest - all.begin());
    std::vector<std::size_t> places;
    for (const std::size_t number : NumbersOf(*rarest)) {
      if (number >= offset && StandAt(all, number - offset)) {
        places.push_back(number - offset + above);
      }
    }
    return places;
  }

  std::optional<std::size_t> FindMostAlike(const Sought& sought) const {
    std::optional<std::size_t> best, last;
    std::size_t most = 0, places = 0;
    bool tie = false;
    const auto consider = [&](std::size_t number) {
      const Likeness likeness = Compare(sought, number);
      ++places;
      last = number;
      if (!likeness.beside || likeness.lines < most) return;
      tie = best && likeness.lines == most;
      best = number;
      most = likeness.lines;
    };
    if (sought.after.empty()) {
      for (std::size_t number = 0; number <= lines_.size(); ++number) {
        if (MayBeBetween(sought, number)) consider(number);
      }
    } else {
      for (const std::size_t number : NumbersOf(sought.after.front())) {
        if (StandAt(sought.after, number)) consider(number);
      }
    }
    const bool tells = std::ranges::any_of(sought.after, [](auto line) { return !IsBlank(line); });
    if (places == 1 && tells && IsNear(sought, *last)) return begins_[*last];
    return tie || !best ? std::nullopt : std::optional(begins_[*best]);
  }

  Lines AboveNow(std::size_t number) const { return LastOf(Lines(lines_).first(number)); }
  Lines BelowNow(const Sought& sought, std::size_t number) const {
    return FirstOf(Lines(lines_).subspan(number + sought.after.size()));
  }

  // Whether the line above or below a place is the one that was there; quick to tell.
  bool MayBeBetween(const Sought& sought, std::size_t number) const {
    const bool above =
        sought.above.empty() || (number > 0 && lines_[number - 1] == sought.above.back());
    const bool below =
        sought.below.empty() || (number < lines_.size() && lines_[number] == sought.below.front());
    return above || below;
  }

  Likeness Compare(const Sought& sought, std::size_t number) const {
    Likeness likeness;
    const Lines above = AboveNow(number), below = BelowNow(sought, number);
    bool beside = true;  // only blank lines so far
    const auto compare = [&](std::string_view was, std::string_view is) {
      if (was == is) ++likeness.lines;
      if (beside && was == is && !IsBlank(was)) likeness.beside = true;
      beside = beside && was == is && IsBlank(was);
    };
    for (std::size_t i = 1; i <= std::min(sought.above.size(), above.size()); ++i) {
      compare(sought.above[sought.above.size() - i], above[above.size() - i]);
    }
    beside = true;
    for (std::size_t i = 0; i < std::min(sought.below.size(), below.size()); ++i) {
      compare(sought.below[i], below[i]);
    }
    // The edge of the file is a neighbour too.
    if (sought.above.empty() && number == 0) likeness.beside = true;
    if (sought.below.empty() && number + sought.after.size() == lines_.size()) {
      likeness.beside = true;
    }
    return likeness;
  }

  // Whether a line of the surroundings that is not blank stands somewhere on its side.
  bool IsNear(const Sought& sought, std::size_t number) const {
    const auto is_among = [](const std::vector<std::string_view>& was, Lines now) {
      return std::ranges::any_of(was, [&](std::string_view line) {
        return !IsBlank(line) && std::ranges::count(now, line) > 0;
      });
    };
    return is_among(sought.above, AboveNow(number)) ||
           is_among(sought.below, BelowNow(sought, number));
  }

  std::vector<std::string_view> lines_;
  std::vector<std::size_t> begins_;  // of the lines, and the end
  std::unordered_map<std::string_view, std::vector<std::size_t>> numbers_;  // of lines
};

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
    const RangeFinder finder(contents);
    for (const ChangedLines& range : file.ranges) {
      const auto at = finder.Find(range);
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
