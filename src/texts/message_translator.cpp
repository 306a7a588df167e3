// SPDX-License-Identifier: MIT
#include "texts/message_translator.h"

#include <algorithm>

namespace texts {

namespace {

constexpr std::string_view kStops = ".:;!?";
constexpr std::string_view kBlanks = " \r\n";
// What stands for a placeholder, at most; a path as a rule.
constexpr std::size_t kLongestValue = 1024;

bool IsAnyOf(std::string_view set, char c) { return set.find(c) != std::string_view::npos; }

// Whether a part of the message may end before `at`.
bool IsEnd(std::string_view message, std::size_t at) {
  if (at == message.size()) return true;
  if (message[at] == '\r' || message[at] == '\n') return true;
  if (message[at] == ' ') return at > 0 && IsAnyOf(kStops, message[at - 1]);
  return IsAnyOf(kStops, message[at]) &&
         (at + 1 == message.size() || IsAnyOf(kBlanks, message[at + 1]));
}

// Behind the stop and the blanks that follow a part.
std::size_t NextPart(std::string_view message, std::size_t end) {
  while (end < message.size() && IsAnyOf(kStops, message[end])) ++end;
  while (end < message.size() && IsAnyOf(kBlanks, message[end])) ++end;
  return end;
}

// The beginnings of parts, and the end of the message.
std::vector<std::size_t> Beginnings(std::string_view message) {
  std::vector<std::size_t> list = {0};
  for (std::size_t at = 1; at < message.size(); ++at) {
    if (IsAnyOf(kBlanks, message[at - 1]) && !IsAnyOf(kBlanks, message[at]) &&
        IsEnd(message, message.find_last_not_of(kBlanks, at - 1) + 1)) {
      list.push_back(at);
    }
  }
  if (!message.empty()) list.push_back(message.size());
  return list;
}

}  // namespace

struct MessageTranslator::Match {
  const Pattern* pattern;
  std::size_t end;
  std::vector<std::string_view> values;  // of the English placeholders
};

// The best way to read a message from some part on.
struct MessageTranslator::Reading {
  long explained = 0;  // characters of patterns, in thousands, less characters of values
  std::size_t next = 0;
  Match match = {nullptr, 0, {}};  // without a pattern when the part is left as it is
};

MessageTranslator::Pieces MessageTranslator::Split(std::string_view text) {
  Pieces pieces;
  while (true) {
    const std::size_t open = text.find('<');
    const std::size_t close = text.find('>', open);
    if (close == std::string_view::npos) break;
    pieces.push_back({text.substr(0, open), text.substr(open + 1, close - open - 1)});
    text.remove_prefix(close + 1);
  }
  pieces.push_back({text, {}});
  return pieces;
}

MessageTranslator::MessageTranslator(std::int32_t first, std::int32_t last) {
  for (const Area& area : Areas()) {
    for (const Row& row : area.rows) {
      if (row.number < first || row.number > last) continue;
      Pattern pattern;
      pattern.english = Split(row.english);
      pattern.german = Split(row.german);
      for (const Piece& piece : pattern.english) {
        pattern.weight += static_cast<int>(piece.text.size());
        if (piece.text.size() > pattern.longest.size()) pattern.longest = piece.text;
      }
      patterns_.push_back(std::move(pattern));
    }
  }
}

// All ways in which the pattern fits a part that begins at `begin`.
void MessageTranslator::FindMatches(const Pattern& pattern, std::string_view message,
                                    std::size_t begin, std::vector<Match>& matches) {
  Match match{&pattern, begin, {}};
  const auto fit = [&](auto& self, std::size_t index, std::size_t at) -> void {
    const Piece& piece = pattern.english[index];
    if (!message.substr(at).starts_with(piece.text)) return;
    at += piece.text.size();
    if (index + 1 == pattern.english.size()) {
      match.end = at;
      if (IsEnd(message, at)) matches.push_back(match);
      return;
    }
    const std::string_view next = pattern.english[index + 1].text;
    const bool is_last = index + 2 == pattern.english.size();
    const std::string_view value = message.substr(at, kLongestValue);
    for (std::size_t size = 1; size <= value.size(); ++size) {
      if (IsAnyOf("\r\n", value[size - 1])) return;
      if (next.empty() && is_last && !IsEnd(message, at + size)) continue;
      if (!next.empty() && !message.substr(at + size).starts_with(next)) continue;
      match.values.push_back(value.substr(0, size));
      self(self, index + 1, at + size);
      match.values.pop_back();
    }
  };
  fit(fit, 0, begin);
}

void MessageTranslator::Append(const Match& match, Result& result) const {
  const Pieces& english = match.pattern->english;
  for (const Piece& piece : match.pattern->german) {
    result.text += piece.text;
    if (piece.placeholder.empty()) continue;
    const auto named = std::find_if(english.begin(), english.end(), [&](const Piece& other) {
      return other.placeholder == piece.placeholder;
    });
    const std::string_view value = match.values[static_cast<std::size_t>(named - english.begin())];
    if (!piece.placeholder.starts_with("Message")) {
      result.text += value;
      continue;
    }
    Result inner = Translate(value);
    result.text += inner.text;
    for (std::string& part : inner.untranslated) result.untranslated.push_back(std::move(part));
  }
}

MessageTranslator::Result MessageTranslator::Translate(std::string_view message) const {
  std::vector<const Pattern*> candidates;
  for (const Pattern& pattern : patterns_) {
    if (message.find(pattern.longest) != std::string_view::npos) candidates.push_back(&pattern);
  }
  const std::vector<std::size_t> beginnings = Beginnings(message);
  std::vector<Reading> readings(message.size() + 1);  // by beginning
  std::vector<Match> matches;
  for (std::size_t i = beginnings.size() - 1; i-- > 0;) {
    Reading& best = readings[beginnings[i]];
    best.next = beginnings[i + 1];
    best.explained = readings[best.next].explained;
    matches.clear();
    for (const Pattern* pattern : candidates) {
      FindMatches(*pattern, message, beginnings[i], matches);
    }
    for (Match& match : matches) {
      const std::size_t next = NextPart(message, match.end);
      const long values = static_cast<long>(match.end - beginnings[i]) - match.pattern->weight;
      const long explained = readings[next].explained + 1000L * match.pattern->weight - values;
      if (explained > best.explained) best = {explained, next, std::move(match)};
    }
  }
  Result result;
  for (std::size_t at = 0; at < message.size(); at = readings[at].next) {
    const Reading& reading = readings[at];
    const std::string_view part = message.substr(at, reading.next - at);
    if (reading.match.pattern) {
      Append(reading.match, result);
      result.text += message.substr(reading.match.end, reading.next - reading.match.end);
    } else {
      result.text += part;
      result.untranslated.emplace_back(part);
    }
  }
  return result;
}

}  // namespace texts
