// SPDX-License-Identifier: MIT
// What the history says (texts/history_rows.cpp).
#pragma once

#include "messages/message.h"

namespace history::message {

// Titles.
inline constexpr messages::Pattern kEditCode{messages::TextNumber{3319}};
inline constexpr messages::Pattern kEditCodeOfMany{messages::TextNumber{3320}};
inline constexpr messages::Pattern kEditRows{messages::TextNumber{3321}};
inline constexpr messages::Pattern kUndo{messages::TextNumber{3322}};
inline constexpr messages::Pattern kRedo{messages::TextNumber{3323}};

// Problems of the file.
inline constexpr messages::Pattern kSetAside{messages::TextNumber{3330}};
inline constexpr messages::Pattern kNotKept{messages::TextNumber{3331}};
inline constexpr messages::Pattern kIsReadOnly{messages::TextNumber{3332}};
inline constexpr messages::Pattern kDamaged{messages::TextNumber{3333}};

// What stands in the way of an undoing.
inline constexpr messages::Pattern kCannotUndo{messages::TextNumber{3350}};
inline constexpr messages::Pattern kCannotRedo{messages::TextNumber{3351}};
inline constexpr messages::Pattern kNothingToUndo{messages::TextNumber{3352}};
inline constexpr messages::Pattern kNothingToRedo{messages::TextNumber{3353}};
inline constexpr messages::Pattern kNoEntry{messages::TextNumber{3347}};
inline constexpr messages::Pattern kUndoneAlready{messages::TextNumber{3354}};
inline constexpr messages::Pattern kNotUndone{messages::TextNumber{3355}};
inline constexpr messages::Pattern kDependants{messages::TextNumber{3356}};
inline constexpr messages::Pattern kEntry{messages::kNoText, "<Number> (<Title>)"};
inline constexpr messages::Pattern kList{messages::kNoText, "<First>, <Next>"};
inline constexpr messages::Pattern kRowDiffers{messages::TextNumber{3357}};
inline constexpr messages::Pattern kRowIsGone{messages::TextNumber{3358}};
inline constexpr messages::Pattern kRowIsThere{messages::TextNumber{3359}};
inline constexpr messages::Pattern kNoTable{messages::TextNumber{3360}};
inline constexpr messages::Pattern kLinesNotFound{messages::TextNumber{3361}};
inline constexpr messages::Pattern kFileIsMissing{messages::TextNumber{3362}};
inline constexpr messages::Pattern kFileIsThere{messages::TextNumber{3363}};
inline constexpr messages::Pattern kFileDiffers{messages::TextNumber{3364}};
inline constexpr messages::Pattern kFileOutside{messages::TextNumber{3365}};
inline constexpr messages::Pattern kArgumentAlone{messages::TextNumber{3366}};
inline constexpr messages::Pattern kStillUsed{messages::TextNumber{3367}};
inline constexpr messages::Pattern kRest{messages::TextNumber{3368}};

}  // namespace history::message
