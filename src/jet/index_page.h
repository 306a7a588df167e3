// SPDX-License-Identifier: MIT
// Pages of an index (docs/jet4.md, 10):
//
//   0  u8  03 node, 04 leaf          16  u32  next page on this level
//   1  u8  01                        20  u32  node: tail child
//   2  u16 free bytes                24  u16  prefix length
//   4  u32 table definition          26  u8   level, 0 for leaves
//   8  u32 0                         27  453  entry mask: bit k set = an entry ends at 480 + k
//  12  u32 previous page            480  3616 entries
//
// All entries of a page share a prefix, which only the first one holds; the others are stored
// without it. So the data is the prefix followed by one suffix after the other, and an entry is
// found by bisecting the mask, without a directory and without decoding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "jet/bytes.h"
#include "jet/messages.h"
#include "jet/page.h"

namespace jet {

inline constexpr std::size_t kIndexMaskOffset = 27;
inline constexpr std::size_t kIndexMaskSize = 453;
inline constexpr std::size_t kIndexDataOffset = 480;
inline constexpr std::size_t kIndexCapacity = kPageSize - kIndexDataOffset;
inline constexpr std::size_t kRowReferenceSize = 4;  // big endian u24 page, u8 slot
inline constexpr std::size_t kChildSize = 4;         // big endian u32

using ByteView = std::span<const std::byte>;

// Where a search ends among the entries that begin with the searched bytes.
enum class Bound : std::uint8_t { kFirst, kPast };

// Reads an index page in place. A position is the offset in the entry data at which an entry
// begins; Used() is the position behind the last one. Positions stay valid until the page
// changes. All is safe on any bytes for which Fault() found nothing.
class IndexPage {
 public:
  explicit IndexPage(const std::byte* page) : page_(page) {}

  // What makes the page unreadable as an index page, or null.
  static const messages::Pattern* Fault(const std::byte* page);

  bool IsLeaf() const { return Load8(page_) == static_cast<std::uint8_t>(PageType::kIndexLeaf); }
  PageNumber Owner() const { return Load32(page_ + 4); }
  PageNumber Previous() const { return Load32(page_ + 12); }
  PageNumber Next() const { return Load32(page_ + 16); }
  PageNumber Tail() const { return Load32(page_ + 20); }
  std::uint8_t Level() const { return Load8(page_ + 26); }
  std::size_t Prefix() const { return Load16(page_ + 24); }
  std::size_t Used() const { return kIndexCapacity - Load16(page_ + 2); }
  std::size_t Count() const;

  // REQUIRES: position < Used().
  std::size_t After(std::size_t position) const;
  // REQUIRES: 0 < position <= Used().
  std::size_t Before(std::size_t position) const;
  // The first entry that is not below `target` (kFirst), or that is above all entries which begin
  // with it (kPast).
  std::size_t Find(ByteView target, Bound bound) const;

  // Whether Find(target, kFirst) is known to be `position`, which may be any number: a guess that
  // spares the search.
  bool BelongsAt(std::size_t position, ByteView target) const;

  // REQUIRES: position < Used(). The entry without the shared prefix; with it.
  ByteView Suffix(std::size_t position) const;
  ByteView PrefixBytes() const { return {data(), Prefix()}; }
  std::size_t Size(std::size_t position) const { return Prefix() + Suffix(position).size(); }
  void Read(std::size_t position, std::vector<std::byte>& entry) const;
  // Whether the entry begins with the bytes. REQUIRES: position < Used().
  bool StartsWith(std::size_t position, ByteView bytes) const;
  // Child page of a node's entry; 0 when the entry is too short to name one.
  PageNumber Child(std::size_t position) const;
  // The row that a leaf's entry names. REQUIRES: Size(position) >= kRowReferenceSize.
  RowId Row(std::size_t position) const;

  const std::byte* data() const { return page_ + kIndexDataOffset; }

 private:
  const std::byte* page_;
};

// The row that a complete leaf entry names. REQUIRES: entry.size() >= kRowReferenceSize.
RowId RowOfEntry(ByteView entry);
void AppendRow(RowId row, std::vector<std::byte>& entry);
void AppendChild(PageNumber child, std::vector<std::byte>& entry);

// The order of plain comparison of bytes: below 0, 0, above 0. The shorter of two that begin
// alike is less.
int CompareBytes(ByteView a, ByteView b);
// Bytes that both begin with.
std::size_t CommonPrefix(ByteView a, ByteView b);

}  // namespace jet
