// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "vbfiles/code_page.h"

namespace vbfiles {

// Looks for one word in text, as bytes of a page, without regard to letter case. Made for texts of
// which hardly a line holds the word.
class WordSearch {
 public:
  // The word is in the page, which must outlive this. REQUIRES: the word is not empty.
  WordSearch(std::string word, const CodePage& page);

  // The first place at or behind `begin` where the word may stand; npos for none.
  std::size_t FindCandidate(std::string_view text, std::size_t begin) const;
  // Whether the line holds the word, not only as a part of another word.
  bool IsIn(std::string_view line) const;

 private:
  bool MayStandAt(const char* place) const;

  std::string word_;
  const CodePage& page_;
  // The places of the word's rarest bytes, which are compared first.
  std::size_t first_ = 0;
  std::size_t second_ = 0;
};

}  // namespace vbfiles
