// SPDX-License-Identifier: MIT
#include "jet/text_key.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "jet/text_key_table.h"

namespace jet {
namespace {

constexpr std::byte kPartEnd{0x01};
constexpr std::byte kKeyEnd{0x00};
constexpr std::byte kNoAccent{0x02};  // accent byte of a character that has none
constexpr std::byte kSpecialMark{0x06};

// A run of at most `capacity` bytes that is filled without growing.
template <std::size_t capacity>
class Run {
 public:
  void Add(std::byte value) { bytes_[size_++] = value; }
  void Fill(std::size_t size, std::byte value) {
    while (size_ < size) Add(value);
  }
  std::size_t size() const { return size_; }
  void DropTrailing(std::byte limit) {
    while (size_ > 0 && bytes_[size_ - 1] <= limit) --size_;
  }
  void AppendTo(std::vector<std::byte>& key) const {
    key.insert(key.end(), bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(size_));
  }

 private:
  std::array<std::byte, capacity> bytes_;  // filled up to size_
  std::size_t size_ = 0;
};

// Where a special character stands: 7 + 4 * (weighted characters before it), with the high bit
// set. Accent bytes count for this too, but each weighted character has exactly one.
void AddSpecial(std::uint8_t code, std::size_t position, Run<4 * kTextKeyUnits>& specials) {
  const std::size_t place = (7 + 4 * position) | 0x8000;
  specials.Add(static_cast<std::byte>(place >> 8));
  specials.Add(static_cast<std::byte>(place & 0xFF));
  specials.Add(kSpecialMark);
  specials.Add(static_cast<std::byte>(code));
}

// The character of which text[at] is the first unit.
char32_t CharacterAt(std::u16string_view text, std::size_t at) {
  const char32_t unit = text[at];
  if (unit >= 0xD800 && unit < 0xDC00 && at + 1 < text.size()) {
    const char32_t next = text[at + 1];
    if (next >= 0xDC00 && next < 0xE000) return 0x10000 + ((unit - 0xD800) << 10) + next - 0xDC00;
  }
  return unit;
}

std::u16string_view KeyedUnits(std::u16string_view text) {
  text = text.substr(0, kTextKeyUnits);
  const std::size_t last = text.find_last_not_of(u' ');
  return last == std::u16string_view::npos ? std::u16string_view() : text.substr(0, last + 1);
}

}  // namespace

std::optional<char32_t> AppendTextKey(std::u16string_view text, SortOrder order,
                                      std::vector<std::byte>& key) {
  const std::size_t start = key.size();
  const std::u16string_view units = KeyedUnits(text);
  key.resize(start + 2 * units.size());
  std::byte* out = key.data() + start;
  Run<kTextKeyUnits> accents;
  Run<4 * kTextKeyUnits> specials;
  std::size_t position = 0;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const TextWeight* weight = FindTextWeight(units[i]);
    if (weight == nullptr) {
      key.resize(start);
      return CharacterAt(text, i);
    }
    if (weight->main_size == 0) {
      if (weight->special != 0) AddSpecial(weight->special, position, specials);
      continue;
    }
    *out++ = static_cast<std::byte>(weight->main[0]);
    if (weight->main_size == 2) *out++ = static_cast<std::byte>(weight->main[1]);
    if (weight->extra != 0) {
      accents.Fill(position, kNoAccent);
      accents.Add(static_cast<std::byte>(weight->extra));
    }
    ++position;
  }
  key.resize(static_cast<std::size_t>(out - key.data()));
  key.push_back(kPartEnd);
  accents.DropTrailing(kNoAccent);
  accents.AppendTo(key);
  if (specials.size() > 0) {
    key.insert(key.end(), 3, kPartEnd);
    specials.AppendTo(key);
  }
  key.push_back(kKeyEnd);
  if (order == SortOrder::kDescending) {
    for (std::size_t i = start; i < key.size(); ++i) key[i] = ~key[i];
    key.push_back(kKeyEnd);
  }
  return std::nullopt;
}

}  // namespace jet
