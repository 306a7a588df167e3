// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/vbide.h"
#include "vbfiles/source_index.h"

namespace vbfiles {

// The members of a module in source order: procedures, external procedures, variables, constants
// and events. The procedures of one property are one member; of members with one name the first
// counts. Names are UTF-8.
std::vector<platform::Member> ListMembers(const SourceIndex& index);
std::optional<platform::Member> FindMember(const SourceIndex& index, std::string_view name);

// Null when there is none of that name and kind.
const Procedure* FindProcedure(const SourceIndex& index, std::string_view name,
                               platform::ProcKind kind);

}  // namespace vbfiles
