// SPDX-License-Identifier: MIT
// Texts of the desktop program.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // 1490 to 1499: the toolkit.
    {1490, "Filtern", "Filter"}, {1491, "&Ja", "&Yes"},
    {1492, "&Nein", "&No"},      {1493, "<Done> von <Total>", "<Done> of <Total>"},
    {1494, "Strg", "Ctrl"},      {1495, "Umschalt", "Shift"},
    {1496, "Entf", "Del"},
};

}  // namespace

std::span<const Row> WorkbenchRows() { return kRows; }

}  // namespace texts
