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

// The characters of which the key is made. Unit is char for ASCII.
template <class Unit>
std::basic_string_view<Unit> KeyedUnits(std::basic_string_view<Unit> text) {
  text = text.substr(0, kTextKeyUnits);
  while (!text.empty() && text.back() == Unit{' '}) text.remove_suffix(1);
  return text;
}

char32_t CharacterAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

template <class Unit>
std::optional<char32_t> Append(std::basic_string_view<Unit> text, SortOrder order,
                               std::vector<std::byte>& key) {
  const std::size_t start = key.size();
  const std::basic_string_view<Unit> units = KeyedUnits(text);
  key.resize(start + 2 * units.size() + 2);
  std::byte* out = key.data() + start;
  Run<kTextKeyUnits> accents;
  Run<4 * kTextKeyUnits> specials;
  std::size_t position = 0;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const TextWeight* weight = FindTextWeight(static_cast<char16_t>(units[i]));
    if (weight == nullptr) {
      key.resize(start);
      return CharacterAt(text, i);
    }
    // Both bytes are written; the next character overwrites what is not main.
    out[0] = static_cast<std::byte>(weight->main[0]);
    out[1] = static_cast<std::byte>(weight->main[1]);
    out += weight->main_size;
    if (weight->extra != 0) {
      accents.Fill(position, kNoAccent);
      accents.Add(static_cast<std::byte>(weight->extra));
    } else if (weight->special != 0) {
      AddSpecial(weight->special, position, specials);
    }
    position += weight->main_size != 0;
  }
  *out++ = kPartEnd;
  key.resize(static_cast<std::size_t>(out - key.data()));
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

}  // namespace

std::optional<char32_t> AppendTextKey(std::u16string_view text, SortOrder order,
                                      std::vector<std::byte>& key) {
  return Append(text, order, key);
}

std::optional<char32_t> AppendTextKey(std::string_view ascii, SortOrder order,
                                      std::vector<std::byte>& key) {
  return Append(ascii, order, key);
}

}  // namespace jet
