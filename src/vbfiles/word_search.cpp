// SPDX-License-Identifier: MIT
#include "vbfiles/word_search.h"

#include <algorithm>

#include "vbcode/source_lexer.h"

namespace vbfiles {

namespace {

constexpr char kCaseBit = 0x20;
constexpr std::size_t kBlock = 64;

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

// Letters of both cases become one; other bytes may become one, too.
char WithoutCase(char c) { return static_cast<char>(c | kCaseBit); }

// How seldom the byte stands in source ("_" is 7F without case); 0 for one that is no ASCII: its
// cases differ in more than one bit.
std::size_t Rarity(char c) {
  constexpr std::string_view kFrequentFirst =
      "\x7F"
      "etaoinsrl0123456789dcumhfpgwbvkyxjqz";
  return IsAscii(c) ? 1 + std::min(kFrequentFirst.find(WithoutCase(c)), kFrequentFirst.size()) : 0;
}

}  // namespace

WordSearch::WordSearch(std::string word, const CodePage& page)
    : word_(std::move(word)), page_(page) {
  for (std::size_t i = 1; i < word_.size(); ++i) {
    if (Rarity(word_[i]) > Rarity(word_[first_])) {
      second_ = first_;
      first_ = i;
    } else if (second_ == first_ || Rarity(word_[i]) > Rarity(word_[second_])) {
      second_ = i;
    }
  }
  if (Rarity(word_[second_]) == 0) second_ = first_;
}

bool WordSearch::MayStandAt(const char* place) const {
  return WithoutCase(place[first_]) == WithoutCase(word_[first_]) &&
         WithoutCase(place[second_]) == WithoutCase(word_[second_]);
}

std::size_t WordSearch::FindCandidate(std::string_view text, std::size_t begin) const {
  if (text.size() < word_.size()) return std::string_view::npos;
  const std::size_t end = text.size() - word_.size() + 1;
  if (Rarity(word_[first_]) == 0) return begin < end ? begin : std::string_view::npos;
  // A block at a time without a branch, which compilers turn into wide operations.
  const char first = WithoutCase(word_[first_]), second = WithoutCase(word_[second_]);
  for (; begin + kBlock <= end; begin += kBlock) {
    const char* const firsts = text.data() + begin + first_;
    const char* const seconds = text.data() + begin + second_;
    unsigned char found = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
      const auto differ = static_cast<unsigned char>((WithoutCase(firsts[i]) ^ first) |
                                                     (WithoutCase(seconds[i]) ^ second));
      found |= differ == 0 ? 1 : 0;
    }
    if (found != 0) break;
  }
  for (; begin < end; ++begin) {
    if (MayStandAt(text.data() + begin)) return begin;
  }
  return std::string_view::npos;
}

bool WordSearch::IsIn(std::string_view line) const {
  for (std::size_t at = FindCandidate(line, 0); at != std::string_view::npos;
       at = FindCandidate(line, at + 1)) {
    const std::size_t end = at + word_.size();
    if (page_.SameName(line.substr(at, word_.size()), word_) &&
        (at == 0 || !vbcode::IsWordCharacter(line[at - 1])) &&
        (end == line.size() || !vbcode::IsWordCharacter(line[end]))) {
      return true;
    }
  }
  return false;
}

}  // namespace vbfiles
