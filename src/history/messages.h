// SPDX-License-Identifier: MIT
// What the history says (texts/history_rows.cpp).
#pragma once

#include "messages/message.h"

namespace history::message {

// Titles.
inline constexpr messages::Pattern kEditCode{3319};
inline constexpr messages::Pattern kEditCodeOfMany{3320};
inline constexpr messages::Pattern kEditRows{3321};
inline constexpr messages::Pattern kUndo{3322};
inline constexpr messages::Pattern kRedo{3323};

// Problems of the file.
inline constexpr messages::Pattern kSetAside{3330};
inline constexpr messages::Pattern kNotKept{3331};
inline constexpr messages::Pattern kIsReadOnly{3332};
inline constexpr messages::Pattern kDamaged{3333};

// What stands in the way of an undoing.
inline constexpr messages::Pattern kCannotUndo{3350};
inline constexpr messages::Pattern kCannotRedo{3351};
inline constexpr messages::Pattern kNothingToUndo{3352};
inline constexpr messages::Pattern kNothingToRedo{3353};
inline constexpr messages::Pattern kNoEntry{3347};
inline constexpr messages::Pattern kUndoneAlready{3354};
inline constexpr messages::Pattern kNotUndone{3355};
inline constexpr messages::Pattern kDependants{3356};
inline constexpr messages::Pattern kEntry{0, "<Number> (<Title>)"};
inline constexpr messages::Pattern kList{0, "<First>, <Next>"};
inline constexpr messages::Pattern kRowDiffers{3357};
inline constexpr messages::Pattern kRowIsGone{3358};
inline constexpr messages::Pattern kRowIsThere{3359};
inline constexpr messages::Pattern kNoTable{3360};
inline constexpr messages::Pattern kLinesNotFound{3361};
inline constexpr messages::Pattern kFileIsMissing{3362};
inline constexpr messages::Pattern kFileIsThere{3363};
inline constexpr messages::Pattern kFileDiffers{3364};
inline constexpr messages::Pattern kFileOutside{3365};
inline constexpr messages::Pattern kArgumentAlone{3366};
inline constexpr messages::Pattern kStillUsed{3367};
inline constexpr messages::Pattern kRest{3368};

}  // namespace history::message
