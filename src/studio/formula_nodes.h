// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "editor/frmtabgrid.h"
#include "platform/studio.h"
#include "store/operation_result.h"

namespace studio {

// Brings the tree's nodes of formulas into step with rows that were changed past the editor's
// commands, and selects a formula that came, or the neighbour of the selected one that went.
void FollowFormulas(editor::frmtabgrid& editor, platform::AddIn& studio,
                    const std::vector<store::RowChange>& rows);

}  // namespace studio
