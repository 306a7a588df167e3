// SPDX-License-Identifier: MIT
// What operations are called in the history (texts/history_rows.cpp).
#pragma once

#include "messages/message.h"

namespace store::title {

inline constexpr messages::Pattern kAddAlias{3301};
inline constexpr messages::Pattern kAddAliases{3302};
inline constexpr messages::Pattern kRenameAlias{3303};
inline constexpr messages::Pattern kEditAlias{3304};
inline constexpr messages::Pattern kDeleteAlias{3305};
inline constexpr messages::Pattern kDeleteAliases{3306};
inline constexpr messages::Pattern kAddFormula{3307};
inline constexpr messages::Pattern kRenameFormula{3308};
inline constexpr messages::Pattern kMoveFormula{3309};
inline constexpr messages::Pattern kEditFormula{3310};
inline constexpr messages::Pattern kDeleteFormula{3311};
inline constexpr messages::Pattern kDeleteFormulas{3312};
inline constexpr messages::Pattern kAddArgument{3313};
inline constexpr messages::Pattern kAddArguments{3314};
inline constexpr messages::Pattern kEditArgument{3315};
inline constexpr messages::Pattern kExchangeArgument{3316};
inline constexpr messages::Pattern kDeleteArgument{3317};
inline constexpr messages::Pattern kDeleteArguments{3318};
inline constexpr messages::Pattern kReplaceInCode{3612};

}  // namespace store::title
