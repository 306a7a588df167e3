// SPDX-License-Identifier: MIT
// Little and big endian numbers in unaligned bytes. The caller has checked the bounds.
#pragma once

#include <cstddef>
#include <cstdint>

namespace jet {

inline std::uint8_t Load8(const std::byte* p) { return static_cast<std::uint8_t>(*p); }
inline std::uint16_t Load16(const std::byte* p) {
  return static_cast<std::uint16_t>(Load8(p) | Load8(p + 1) << 8);
}
inline std::uint32_t Load24(const std::byte* p) {
  return Load16(p) | static_cast<std::uint32_t>(Load8(p + 2)) << 16;
}
inline std::uint32_t Load32(const std::byte* p) {
  return Load16(p) | static_cast<std::uint32_t>(Load16(p + 2)) << 16;
}
inline std::uint64_t Load64(const std::byte* p) {
  return Load32(p) | static_cast<std::uint64_t>(Load32(p + 4)) << 32;
}

inline void Store8(std::byte* p, std::uint8_t v) { *p = static_cast<std::byte>(v); }
inline void Store16(std::byte* p, std::uint16_t v) {
  Store8(p, static_cast<std::uint8_t>(v));
  Store8(p + 1, static_cast<std::uint8_t>(v >> 8));
}
inline void Store24(std::byte* p, std::uint32_t v) {
  Store16(p, static_cast<std::uint16_t>(v));
  Store8(p + 2, static_cast<std::uint8_t>(v >> 16));
}
inline void Store32(std::byte* p, std::uint32_t v) {
  Store16(p, static_cast<std::uint16_t>(v));
  Store16(p + 2, static_cast<std::uint16_t>(v >> 16));
}
inline void Store64(std::byte* p, std::uint64_t v) {
  Store32(p, static_cast<std::uint32_t>(v));
  Store32(p + 4, static_cast<std::uint32_t>(v >> 32));
}

inline std::uint16_t LoadBig16(const std::byte* p) {
  return static_cast<std::uint16_t>(Load8(p) << 8 | Load8(p + 1));
}
inline std::uint32_t LoadBig24(const std::byte* p) {
  return static_cast<std::uint32_t>(LoadBig16(p)) << 8 | Load8(p + 2);
}
inline std::uint32_t LoadBig32(const std::byte* p) {
  return static_cast<std::uint32_t>(LoadBig16(p)) << 16 | LoadBig16(p + 2);
}
inline void StoreBig16(std::byte* p, std::uint16_t v) {
  Store8(p, static_cast<std::uint8_t>(v >> 8));
  Store8(p + 1, static_cast<std::uint8_t>(v));
}
inline void StoreBig24(std::byte* p, std::uint32_t v) {
  StoreBig16(p, static_cast<std::uint16_t>(v >> 8));
  Store8(p + 2, static_cast<std::uint8_t>(v));
}
inline void StoreBig32(std::byte* p, std::uint32_t v) {
  StoreBig16(p, static_cast<std::uint16_t>(v >> 16));
  StoreBig16(p + 2, static_cast<std::uint16_t>(v));
}
inline void StoreBig64(std::byte* p, std::uint64_t v) {
  StoreBig32(p, static_cast<std::uint32_t>(v >> 32));
  StoreBig32(p + 4, static_cast<std::uint32_t>(v));
}

}  // namespace jet
