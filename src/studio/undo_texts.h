// SPDX-License-Identifier: MIT
// The texts of undo, history and check, by the numbers of the text table (texts/window_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace studio {

inline constexpr messages::TextNumber kTextMenuEdit{3800};
inline constexpr messages::TextNumber kTextUndoLast{3801};
inline constexpr messages::TextNumber kTextRedoLast{3802};
inline constexpr messages::TextNumber kTextUndoOf{3803};
inline constexpr messages::TextNumber kTextRedoOf{3804};
inline constexpr messages::TextNumber kTextUndone{3805};
inline constexpr messages::TextNumber kTextRedone{3806};
inline constexpr messages::TextNumber kTextHistoryIsOff{3807};
inline constexpr messages::TextNumber kTextHistoryUnreadable{3808};
inline constexpr messages::TextNumber kTextHistory{3809};
inline constexpr messages::TextNumber kTextNoProjectOpen{3810};

inline constexpr messages::TextNumber kTextNoHistoryWithProvider{4475};

// The history's own (texts/history_rows.cpp).
inline constexpr messages::TextNumber kTextNothingToUndo{3352};
inline constexpr messages::TextNumber kTextNothingToRedo{3353};

}  // namespace studio
