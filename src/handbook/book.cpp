// SPDX-License-Identifier: MIT
#include "handbook/book.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cstddef>

#include "handbook/embedded_file.h"
#include "handbook/page_text.h"
#include "platform/text.h"

namespace handbook {

namespace {

constexpr std::size_t kColumns = 7;
constexpr std::size_t kBefore = 60;  // bytes of an excerpt before and behind the word
constexpr std::size_t kBehind = 140;
constexpr int kTitleScore = 100;
constexpr int kWordScore = 30;
constexpr int kMaxTextScore = 10;

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end > 0) parts.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

int Number(std::string_view text) {
  int number = -1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// The key by which German and English words are in alphabetical order.
std::string SortKey(std::string_view word) {
  std::string key;
  for (std::size_t at = 0; at < word.size();) {
    const char32_t letter = platform::FoldCase(platform::NextCodePoint(word, at));
    switch (letter) {
      case U'ä':
        key += 'a';
        break;
      case U'ö':
        key += 'o';
        break;
      case U'ü':
        key += 'u';
        break;
      case U'ß':
        key += "ss";
        break;
      default:
        platform::AppendCodePoint(key, letter);
    }
  }
  return key;
}

int Count(std::string_view text, std::string_view word) {
  int count = 0;
  for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
    ++count;
  }
  return count;
}

// From blank to blank, so that neither a word nor a character is cut.
std::string Excerpt(std::string_view text, std::size_t at) {
  at = std::min(at, text.size());
  std::size_t begin = at > kBefore ? text.rfind(' ', at - kBefore) : 0;
  begin = begin == std::string_view::npos ? 0 : begin;
  std::size_t end = at + kBehind < text.size() ? text.find(' ', at + kBehind) : text.size();
  end = std::min(end, text.size());
  std::string excerpt = begin > 0 ? "…" : "";
  excerpt.append(text.substr(begin, end - begin));
  if (end < text.size()) excerpt += " …";
  return excerpt;
}

}  // namespace

const EmbeddedFile* FindEmbeddedFile(std::string_view name) {
  const auto files = EmbeddedFiles();
  const auto found = std::find_if(files.begin(), files.end(),
                                  [&](const EmbeddedFile& file) { return file.name == name; });
  return found == files.end() ? nullptr : &*found;
}

Book::Book(texts::Language language) {
  const bool german = language == texts::Language::kGerman;
  const EmbeddedFile* contents = FindEmbeddedFile("contents.tsv");
  assert(contents);
  for (const std::string_view line : Split(contents->bytes, '\n')) {
    const auto cells = Split(line, '\t');
    if (line.starts_with('#') || cells.size() != kColumns) continue;
    const std::string name = (german ? "de/" : "en/") + std::string(cells[1]);
    const EmbeddedFile* page = FindEmbeddedFile(name);
    topics_.push_back({Number(cells[0]), cells[1], Number(cells[2]), cells[german ? 3 : 4],
                       Split(cells[german ? 5 : 6], ';'), page ? page->bytes : std::string_view()});
    std::string text = TextOfPage(topics_.back().html);
    std::string folded = platform::FoldCase(text);
    pages_.push_back({std::move(text), std::move(folded)});
  }
}

const Topic* Book::FindNumber(std::int32_t number) const {
  const auto found = std::find_if(topics_.begin(), topics_.end(),
                                  [&](const Topic& topic) { return topic.number == number; });
  return found == topics_.end() ? nullptr : &*found;
}

const Topic* Book::FindFile(std::string_view file) const {
  const auto found = std::find_if(topics_.begin(), topics_.end(),
                                  [&](const Topic& topic) { return topic.file == file; });
  return found == topics_.end() ? nullptr : &*found;
}

std::vector<IndexEntry> Book::Index(std::string_view part) const {
  struct Sorted {
    std::string key;
    IndexEntry entry;
  };
  const std::string wanted = platform::FoldCase(part);
  std::vector<Sorted> found;
  for (const Topic& topic : topics_) {
    for (const std::string_view word : topic.words) {
      if (platform::FoldCase(word).find(wanted) == std::string::npos) continue;
      found.push_back({SortKey(word), {word, &topic}});
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Sorted& a, const Sorted& b) { return a.key < b.key; });
  std::vector<IndexEntry> entries;
  entries.reserve(found.size());
  for (const Sorted& sorted : found) entries.push_back(sorted.entry);
  return entries;
}

std::vector<Hit> Book::Search(std::string_view query) const {
  struct Scored {
    int score;
    Hit hit;
  };
  const std::string folded = platform::FoldCase(query);
  const auto words = Split(folded, ' ');
  if (words.empty()) return {};
  std::vector<Scored> found;
  for (std::size_t i = 0; i < topics_.size(); ++i) {
    const Topic& topic = topics_[i];
    const std::string title = platform::FoldCase(topic.title);
    int score = 0;
    bool all = true;
    for (const std::string_view word : words) {
      int points = std::min(Count(pages_[i].folded, word), kMaxTextScore);
      if (title.find(word) != std::string::npos) points += kTitleScore;
      for (const std::string_view index_word : topic.words) {
        if (platform::FoldCase(index_word).find(word) == std::string::npos) continue;
        points += kWordScore;
        break;
      }
      all = all && points > 0;
      score += points;
    }
    if (!all) continue;
    const std::size_t first = pages_[i].folded.find(words.front());
    found.push_back(
        {score, {&topic, Excerpt(pages_[i].text, first == std::string::npos ? 0 : first)}});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const Scored& a, const Scored& b) { return a.score > b.score; });
  std::vector<Hit> hits;
  hits.reserve(found.size());
  for (Scored& scored : found) hits.push_back(std::move(scored.hit));
  return hits;
}

}  // namespace handbook
