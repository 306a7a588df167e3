// SPDX-License-Identifier: MIT
// Changes of an index page. Each leaves the page in the one form that its entries have on disk:
// without prefix when they fit so, else with the longest prefix that all share.
#pragma once

#include <cstddef>

#include "jet/index_page.h"

namespace jet {

// Makes `page` an index page without entries and neighbours.
void InitIndexPage(std::byte* page, PageType type, PageNumber owner, std::uint8_t level);
void SetPrevious(std::byte* page, PageNumber previous);
void SetNext(std::byte* page, PageNumber next);
void SetTail(std::byte* page, PageNumber tail);
// REQUIRES: the entry at `position` names a child.
void SetChild(std::byte* page, std::size_t position, PageNumber child);

// Puts an entry before the one at `position`, or behind the last. False when the entries would
// not fit into `capacity` bytes; then the page is unchanged.
// REQUIRES: the entry belongs there in the order of entries; position is that of an entry or
// Used().
[[nodiscard]] bool InsertEntry(std::byte* page, std::size_t position, ByteView entry,
                               std::size_t capacity = kIndexCapacity);
// REQUIRES: position < Used().
void EraseEntry(std::byte* page, std::size_t position, std::size_t capacity = kIndexCapacity);

}  // namespace jet
