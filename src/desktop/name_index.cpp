// SPDX-License-Identifier: MIT
#include "desktop/name_index.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"

namespace desktop {

namespace {

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \t\r\n", begin), text.size());
    if (end > begin) words.push_back(platform::FoldCase(text.substr(begin, end - begin)));
    begin = end + 1;
  }
  return words;
}

}  // namespace

void NameIndex::Add(Name name) {
  std::string folded = platform::FoldCase(name.name);
  name_size_.push_back(static_cast<std::uint32_t>(folded.size()));
  folded += '\n' + platform::FoldCase(name.detail);
  folded_.push_back(std::move(folded));
  names_.push_back(std::move(name));
}

void NameIndex::Clear() {
  names_.clear();
  folded_.clear();
  name_size_.clear();
}

bool NameIndex::Matches(std::size_t place, const std::vector<std::string>& words) const {
  return std::ranges::all_of(words, [&](const std::string& word) {
    return folded_[place].find(word) != std::string::npos;
  });
}

NameIndex::Rank NameIndex::RankOf(std::size_t place, const std::vector<std::string>& words) const {
  const std::string_view name = std::string_view(folded_[place]).substr(0, name_size_[place]);
  if (name == words.front()) return kSame;
  if (name.starts_with(words.front())) return kBegins;
  return name.find(words.front()) != std::string_view::npos ? kContains : kDetail;
}

std::vector<std::size_t> NameIndex::Find(std::string_view text, std::size_t limit) const {
  const std::vector<std::string> words = WordsOf(text);
  if (words.empty()) return {};
  std::array<std::vector<std::size_t>, kRanks> found;
  for (std::size_t place = 0; place < names_.size(); ++place) {
    if (!Matches(place, words)) continue;
    std::vector<std::size_t>& of_rank = found[RankOf(place, words)];
    if (of_rank.size() < limit) of_rank.push_back(place);
  }
  std::vector<std::size_t> best;
  for (const std::vector<std::size_t>& of_rank : found) {
    const std::size_t room = std::min(limit - best.size(), of_rank.size());
    best.insert(best.end(), of_rank.begin(), of_rank.begin() + static_cast<std::ptrdiff_t>(room));
  }
  return best;
}

}  // namespace desktop
