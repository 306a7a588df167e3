// SPDX-License-Identifier: MIT
#include "jet/text_codec.h"

#include <cstdint>
#include <cstring>

#include "jet/bytes.h"

namespace jet {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr std::size_t kMaxUtf8PerUnit = 3;
constexpr std::size_t kMinCompressed = 3;

bool IsHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

char* PutUtf8(char* out, std::uint32_t c) {
  if (c < 0x80) {
    *out++ = static_cast<char>(c);
  } else if (c < 0x800) {
    *out++ = static_cast<char>(0xC0 | c >> 6);
    *out++ = static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    *out++ = static_cast<char>(0xE0 | c >> 12);
    *out++ = static_cast<char>(0x80 | (c >> 6 & 0x3F));
    *out++ = static_cast<char>(0x80 | (c & 0x3F));
  } else {
    *out++ = static_cast<char>(0xF0 | c >> 18);
    *out++ = static_cast<char>(0x80 | (c >> 12 & 0x3F));
    *out++ = static_cast<char>(0x80 | (c >> 6 & 0x3F));
    *out++ = static_cast<char>(0x80 | (c & 0x3F));
  }
  return out;
}

// Joins surrogate pairs on the way from units to UTF-8.
class Utf8Writer {
 public:
  explicit Utf8Writer(char* out) : out_(out) {}
  void Put(std::uint32_t unit) {
    if (high_ != 0) {
      const std::uint32_t high = high_;
      high_ = 0;
      if (IsLowSurrogate(unit)) {
        out_ = PutUtf8(out_, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
        return;
      }
      out_ = PutUtf8(out_, high);
    }
    if (IsHighSurrogate(unit)) {
      high_ = unit;
    } else {
      out_ = PutUtf8(out_, unit);
    }
  }
  char* Finish() {
    if (high_ != 0) out_ = PutUtf8(out_, high_);
    high_ = 0;
    return out_;
  }

 private:
  char* out_;
  std::uint32_t high_ = 0;
};

char* DecodePlain(const std::byte* p, std::size_t size, char* out) {
  Utf8Writer writer(out);
  for (std::size_t i = 0; i + 1 < size; i += 2) writer.Put(Load16(p + i));
  return writer.Finish();
}

// One byte for each character until a 0, then two until the next.
char* DecodeSwitching(const std::byte* p, std::size_t size, char* out) {
  Utf8Writer writer(out);
  bool wide = false;
  for (std::size_t i = 0; i < size;) {
    if (p[i] == std::byte{0}) {
      wide = !wide;
      ++i;
    } else if (!wide) {
      writer.Put(Load8(p + i));
      ++i;
    } else if (i + 1 < size) {
      writer.Put(Load16(p + i));
      i += 2;
    } else {
      break;
    }
  }
  return writer.Finish();
}

// Copies characters up to the first that is not ASCII, or 0; returns how many. Most values are
// ASCII from end to end, so eight are looked at together: one of them is 0 or has its highest bit
// set when a bit of the test is, and it may be a false alarm.
std::size_t CopyAscii(const std::byte* p, std::size_t size, char* out) {
  constexpr std::size_t kWord = 8;
  const auto copy_word = [&](std::size_t i) {
    constexpr std::uint64_t kOnes = 0x0101010101010101, kHighBits = 0x8080808080808080;
    std::uint64_t word = 0;
    std::memcpy(&word, p + i, kWord);
    std::memcpy(out + i, &word, kWord);
    return (((word - kOnes) | word) & kHighBits) == 0;
  };
  std::size_t i = 0;
  while (i + kWord <= size && copy_word(i)) i += kWord;
  const bool last_word_is_next = i + kWord > size && size >= kWord;
  if (last_word_is_next && copy_word(size - kWord)) return size;
  for (; i < size && Load8(p + i) - 1u < 0x7F; ++i) out[i] = static_cast<char>(p[i]);
  return i;
}

char* DecodeCompressed(const std::byte* p, std::size_t size, char* out) {
  std::size_t i = 0;
  while (i < size) {
    const std::size_t ascii = CopyAscii(p + i, size - i, out);
    i += ascii;
    out += ascii;
    if (i == size) return out;
    if (p[i] == std::byte{0}) break;
    out = PutUtf8(out, Load8(p + i++));
  }
  return DecodeSwitching(p + i, size - i, out);
}

bool IsCompressed(std::span<const std::byte> stored) {
  return stored.size() >= 2 && Load16(stored.data()) == 0xFEFF;
}

char* Decode(std::span<const std::byte> stored, char* out) {
  return IsCompressed(stored) ? DecodeCompressed(stored.data() + 2, stored.size() - 2, out)
                              : DecodePlain(stored.data(), stored.size(), out);
}

// The code point at `i`, which moves behind it. Surrogates in three bytes are passed on.
std::uint32_t NextCodePoint(std::string_view text, std::size_t& i) {
  const auto byte = [&](std::size_t k) {
    return k < text.size() ? static_cast<std::uint8_t>(text[k]) : 0u;
  };
  const std::uint32_t lead = byte(i++);
  if (lead < 0x80) return lead;
  const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4) return kReplacement;
  std::uint32_t c = lead & (0x3Fu >> more);
  for (std::size_t k = 0; k < more; ++k) {
    if ((byte(i + k) & 0xC0) != 0x80) return kReplacement;
    c = c << 6 | (byte(i + k) & 0x3F);
  }
  constexpr std::uint32_t kMinimum[] = {0x80, 0x800, 0x10000};
  if (c < kMinimum[more - 1] || c > 0x10FFFF) return kReplacement;
  i += more;
  return c;
}

template <class Visit>
void ForEachUnit(std::string_view text, Visit visit) {
  for (std::size_t i = 0; i < text.size();) {
    const std::uint32_t c = NextCodePoint(text, i);
    if (c < 0x10000) {
      visit(static_cast<std::uint16_t>(c));
    } else {
      visit(static_cast<std::uint16_t>(0xD800 + ((c - 0x10000) >> 10)));
      visit(static_cast<std::uint16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    }
  }
}

void AppendUnit(std::uint16_t unit, std::vector<std::byte>& out) {
  out.push_back(static_cast<std::byte>(unit & 0xFF));
  out.push_back(static_cast<std::byte>(unit >> 8));
}

std::uint32_t FoldCase(std::uint32_t c) {
  const bool upper = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
  return upper ? c + 0x20 : c;
}

}  // namespace

std::string_view DecodeText(std::span<const std::byte> stored, Arena& arena) {
  char* begin = arena.Reserve(stored.size() * kMaxUtf8PerUnit);
  const char* end = Decode(stored, begin);
  const auto size = static_cast<std::size_t>(end - begin);
  arena.Keep(size);
  return {begin, size};
}

std::string DecodeText(std::span<const std::byte> stored) {
  std::string text(stored.size() * kMaxUtf8PerUnit, '\0');
  text.resize(static_cast<std::size_t>(Decode(stored, text.data()) - text.data()));
  return text;
}

std::string DecodeUtf16(std::span<const std::byte> stored) {
  std::string text(stored.size() * kMaxUtf8PerUnit, '\0');
  const char* end = DecodePlain(stored.data(), stored.size(), text.data());
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

std::size_t FirstUtf16Units(std::string_view text, std::span<char16_t> out) {
  std::size_t size = 0;
  ForEachUnit(text.substr(0, kMaxUtf8PerUnit * out.size()), [&](std::uint16_t unit) {
    if (size < out.size()) out[size++] = unit;
  });
  return size;
}

std::size_t Utf16Length(std::string_view text) {
  std::size_t length = 0;
  ForEachUnit(text, [&](std::uint16_t) { ++length; });
  return length;
}

void AppendUtf16(std::string_view text, std::vector<std::byte>& out) {
  ForEachUnit(text, [&](std::uint16_t unit) { AppendUnit(unit, out); });
}

bool AppendStoredText(std::string_view text, bool compress, std::vector<std::byte>& out) {
  const std::size_t start = out.size();
  if (compress) {
    std::size_t units = 0;
    bool narrow = true;
    out.push_back(std::byte{0xFF});
    out.push_back(std::byte{0xFE});
    for (std::size_t i = 0; i < text.size() && narrow; ++units) {
      const std::uint32_t c = NextCodePoint(text, i);
      narrow = c - 1u < 0xFF;
      out.push_back(static_cast<std::byte>(c));
    }
    if (narrow && units >= kMinCompressed) return true;
    out.resize(start);
  }
  AppendUtf16(text, out);
  if (!IsCompressed({out.data() + start, out.size() - start})) return true;
  for (std::size_t i = start; i < out.size(); i += 2) {
    if (out[i] == std::byte{0}) return false;
  }
  out.insert(out.begin() + static_cast<std::ptrdiff_t>(start),
             {std::byte{0xFF}, std::byte{0xFE}, std::byte{0}});
  return true;
}

namespace {

int CompareNames(std::string_view a, std::string_view b) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    const std::uint32_t x = FoldCase(NextCodePoint(a, i));
    const std::uint32_t y = FoldCase(NextCodePoint(b, j));
    if (x != y) return x < y ? -1 : 1;
  }
  return i < a.size() ? 1 : j < b.size() ? -1 : 0;
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) { return CompareNames(a, b) == 0; }
bool ComesBefore(std::string_view a, std::string_view b) { return CompareNames(a, b) < 0; }

}  // namespace jet
