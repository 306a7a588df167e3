// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace desktop {

// Names that can be gone to, found by any part of them.
class NameIndex {
 public:
  enum class Kind : std::uint8_t { kFormula, kClass, kAlias, kItem };
  struct Name {
    Kind kind = Kind::kFormula;
    std::int32_t id = 0;  // of the formula or alias
    std::string name;
    std::string detail;  // says more of it, and is searched too
  };

  void Add(Name name);
  void Clear();
  std::size_t size() const { return names_.size(); }
  const Name& At(std::size_t place) const { return names_[place]; }

  // The places of the names that contain every word of the text, in any letter case, the best
  // first: what is called so, what begins so, what contains it, what says it only in its detail;
  // equally good ones as they were added. At most `limit`; none for a text without a word.
  std::vector<std::size_t> Find(std::string_view text, std::size_t limit) const;

 private:
  // Less is better.
  enum Rank { kSame, kBegins, kContains, kDetail, kRanks };

  Rank RankOf(std::size_t place, const std::vector<std::string>& words) const;
  bool Matches(std::size_t place, const std::vector<std::string>& words) const;

  std::vector<Name> names_;
  std::vector<std::string> folded_;       // name, line feed, detail
  std::vector<std::uint32_t> name_size_;  // of the name in it
};

}  // namespace desktop
