// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbcode/words.h"

namespace vbcode {

// Gives names numbers. Text is UTF-8.
class Names {
 public:
  Names();

  NameId Intern(std::string_view name) { return Intern(KeyOf(name), name); }
  // The same for a name of letters, digits and "_" alone: faster.
  NameId InternWord(std::string_view word) { return Intern(KeyOfWord(word), word); }
  // kNoName for one that was never interned.
  NameId Find(std::string_view name) const { return slots_[FindSlot(KeyOf(name), name)].name; }
  // The first spelling that was interned.
  std::string_view Text(NameId name) const {
    const Entry& entry = entries_[name];
    return std::string_view(text_).substr(entry.begin, entry.length);
  }
  // Numbers given are below this.
  std::size_t size() const { return entries_.size(); }

 private:
  struct Entry {
    std::uint32_t begin = 0;
    std::uint32_t length = 0;
  };
  struct Key {
    std::uint64_t hash = 0;
    bool is_whole = false;  // names of the same length and hash are the same
  };
  struct Slot {
    std::uint64_t hash = 0;
    NameId name = kNoName;
    std::uint32_t length = 0;
  };

  static Key KeyOf(std::string_view name);
  static Key KeyOfWord(std::string_view word);
  NameId Intern(const Key& key, std::string_view name);
  std::size_t FindSlot(const Key& key, std::string_view name) const;
  // The high bits of a product depend on all of its factors' bits.
  std::size_t FirstSlot(std::uint64_t hash) const {
    return static_cast<std::size_t>(hash >> shift_);
  }
  void Grow();

  std::string text_;
  std::vector<Entry> entries_;
  int shift_ = 64 - 11;
  std::size_t mask_ = (std::size_t{1} << 11) - 1;  // number of slots - 1
  std::vector<Slot> slots_;                        // a power of two
};

}  // namespace vbcode
