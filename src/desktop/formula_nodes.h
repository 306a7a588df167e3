// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "store/operation_result.h"
#include "studio/add_in_session.h"

namespace desktop {

// Brings the tree in step with formulas that came, went or have another name by an operation that
// was not the editor's own. A formula that came is selected.
void FollowFormulas(studio::AddInSession& session, const std::vector<store::RowChange>& rows);

}  // namespace desktop
