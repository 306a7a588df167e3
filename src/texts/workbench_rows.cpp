// SPDX-License-Identifier: MIT
// Texts of the desktop program.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // 1490 to 1499: the toolkit.
    {1490, "Filtern", "Filter"},
    {1491, "&Ja", "&Yes"},
    {1492, "&Nein", "&No"},
    {1493, "<Done> von <Total>", "<Done> of <Total>"},
};

}  // namespace

std::span<const Row> WorkbenchRows() { return kRows; }

}  // namespace texts
