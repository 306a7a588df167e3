// SPDX-License-Identifier: MIT
// What operations are called in the history (texts/history_rows.cpp).
#pragma once

#include "messages/message.h"

namespace store::title {

inline constexpr messages::Pattern kAddAlias{messages::TextNumber{3301}};
inline constexpr messages::Pattern kAddAliases{messages::TextNumber{3302}};
inline constexpr messages::Pattern kRenameAlias{messages::TextNumber{3303}};
inline constexpr messages::Pattern kEditAlias{messages::TextNumber{3304}};
inline constexpr messages::Pattern kDeleteAlias{messages::TextNumber{3305}};
inline constexpr messages::Pattern kDeleteAliases{messages::TextNumber{3306}};
inline constexpr messages::Pattern kAddFormula{messages::TextNumber{3307}};
inline constexpr messages::Pattern kRenameFormula{messages::TextNumber{3308}};
inline constexpr messages::Pattern kMoveFormula{messages::TextNumber{3309}};
inline constexpr messages::Pattern kEditFormula{messages::TextNumber{3310}};
inline constexpr messages::Pattern kDeleteFormula{messages::TextNumber{3311}};
inline constexpr messages::Pattern kDeleteFormulas{messages::TextNumber{3312}};
inline constexpr messages::Pattern kAddArgument{messages::TextNumber{3313}};
inline constexpr messages::Pattern kAddArguments{messages::TextNumber{3314}};
inline constexpr messages::Pattern kEditArgument{messages::TextNumber{3315}};
inline constexpr messages::Pattern kExchangeArgument{messages::TextNumber{3316}};
inline constexpr messages::Pattern kDeleteArgument{messages::TextNumber{3317}};
inline constexpr messages::Pattern kDeleteArguments{messages::TextNumber{3318}};
inline constexpr messages::Pattern kReplaceInCode{messages::TextNumber{3612}};

}  // namespace store::title
