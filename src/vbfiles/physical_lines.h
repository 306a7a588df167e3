// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace vbfiles {

// A physical line within a text: its bytes are [begin, end), its terminator (CR LF, LF, CR or
// nothing at the end of the text) [end, next).
struct PhysicalLine {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t next = 0;
  bool terminated() const { return next > end; }
};

// The line that begins at `begin`. REQUIRES: begin <= text.size().
inline PhysicalLine ReadPhysicalLine(std::string_view text, std::size_t begin) {
  const char* const start = text.data() + begin;
  const std::size_t rest = text.size() - begin;
  const void* const line_feed = rest == 0 ? nullptr : std::memchr(start, '\n', rest);
  const std::size_t limit =
      line_feed == nullptr ? rest
                           : static_cast<std::size_t>(static_cast<const char*>(line_feed) - start);
  const void* const carriage_return = limit == 0 ? nullptr : std::memchr(start, '\r', limit);
  if (carriage_return == nullptr) {
    return {begin, begin + limit, begin + limit + (line_feed == nullptr ? 0 : 1)};
  }
  const auto length = static_cast<std::size_t>(static_cast<const char*>(carriage_return) - start);
  const bool pair = line_feed != nullptr && length + 1 == limit;
  return {begin, begin + length, begin + length + (pair ? 2 : 1)};
}

inline std::string_view TextOf(std::string_view text, const PhysicalLine& line) {
  return text.substr(line.begin, line.end - line.begin);
}

}  // namespace vbfiles
