// SPDX-License-Identifier: MIT
#include "vbcode/names.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <functional>
#include <utility>

#include "platform/text.h"
#include "vbcode/source_lexer.h"

namespace vbcode {

namespace {

constexpr std::uint64_t kCaseBits = 0x2020202020202020u;
constexpr std::uint64_t kHighBits = 0x8080808080808080u;
constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;

std::uint64_t Load8(const char* text) {
  std::uint64_t chunk = 0;
  std::memcpy(&chunk, text, sizeof chunk);
  return chunk;
}

std::uint64_t Load4(const char* text) {
  std::uint32_t chunk = 0;
  std::memcpy(&chunk, text, sizeof chunk);
  return chunk;
}

// All of a text of one to eight bytes, without reading beyond it.
std::uint64_t LoadShort(const char* text, std::size_t size) {
  if (size >= 4) return Load4(text) | Load4(text + size - 4) << 32;
  const auto byte = [&](std::size_t i) {
    return static_cast<std::uint64_t>(static_cast<unsigned char>(text[i]));
  };
  return byte(0) | byte(size / 2) << 8 | byte(size - 1) << 16;
}

std::uint64_t HashAny(std::string_view name) {
  return std::hash<std::string>()(platform::FoldCase(name));
}

bool SameName(std::string_view a, std::string_view b) {
  if (a == b) return true;
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    if (((a[i] | b[i]) & 0x80) != 0) return platform::EqualsIgnoringCase(a, b);
    if (a[i] == b[i]) continue;
    const char lower = static_cast<char>(a[i] | 0x20);
    if (lower != (b[i] | 0x20) || lower < 'a' || lower > 'z') return false;
  }
  return a.size() == b.size();
}

}  // namespace

// The hash of a word of up to eight ASCII characters loses nothing but letter case.
Names::Key Names::KeyOfWord(std::string_view word) {
  std::uint64_t high = 0;
  std::uint64_t hash = word.size();
  const auto mix = [&](std::uint64_t chunk) {
    high |= chunk;
    hash = (std::rotl(hash, 29) ^ (chunk | kCaseBits)) * kMultiplier;
  };
  if (word.size() <= 8) {
    mix(LoadShort(word.data(), word.size()));
  } else {
    for (std::size_t i = 0; i + 8 < word.size(); i += 8) mix(Load8(word.data() + i));
    mix(Load8(word.data() + word.size() - 8));
  }
  if ((high & kHighBits) != 0) return {HashAny(word), false};
  return {hash, word.size() <= 8};
}

Names::Key Names::KeyOf(std::string_view name) {
  if (!name.empty() && std::all_of(name.begin(), name.end(), IsWordCharacter)) {
    return KeyOfWord(name);
  }
  return {HashAny(name), false};
}

Names::Names() : entries_(1), slots_(mask_ + 1) {
  for (const LanguageWord& word : kLanguageWords) Intern(word.text);
}

std::size_t Names::FindSlot(const Key& key, std::string_view name) const {
  const Slot* const slots = slots_.data();
  for (std::size_t at = FirstSlot(key.hash);; at = (at + 1) & mask_) {
    const Slot& slot = slots[at];
    if (slot.name == kNoName) return at;
    if (slot.hash == key.hash && slot.length == name.size() &&
        (key.is_whole || SameName(Text(slot.name), name))) {
      return at;
    }
  }
}

NameId Names::Intern(const Key& key, std::string_view name) {
  const std::size_t at = FindSlot(key, name);
  if (slots_[at].name != kNoName) return slots_[at].name;
  const auto id = static_cast<NameId>(entries_.size());
  const auto length = static_cast<std::uint32_t>(name.size());
  slots_[at] = {key.hash, id, length};
  entries_.push_back({static_cast<std::uint32_t>(text_.size()), length});
  text_ += name;
  if (entries_.size() * 2 > slots_.size()) Grow();
  return id;
}

void Names::Grow() {
  std::vector<Slot> grown(slots_.size() * 2);
  mask_ = grown.size() - 1;
  --shift_;
  for (const Slot& slot : slots_) {
    if (slot.name == kNoName) continue;
    std::size_t at = FirstSlot(slot.hash);
    while (grown[at].name != kNoName) at = (at + 1) & mask_;
    grown[at] = slot;
  }
  slots_ = std::move(grown);
}

}  // namespace vbcode
