// SPDX-License-Identifier: MIT
// Texts of the dialogs and the editor window that have no shared number.
#include "texts/rows.h"

namespace texts {

std::span<const Row> DialogRows() { return {}; }

}  // namespace texts
