// SPDX-License-Identifier: MIT
// The texts of series in dialogs, of rows that are dragged, and of scan times, by the numbers of
// the text table (texts/many_rows.cpp).
#pragma once

#include <cstdint>

#include "messages/text_number.h"

namespace dialogs {

inline constexpr messages::TextNumber kTextAliasesOfSeries{4750};
inline constexpr messages::TextNumber kTextOrSeries{4752};
inline constexpr messages::TextNumber kTextSeriesExample{4753};
inline constexpr messages::TextNumber kTextArgumentsOfSeries{4754};
inline constexpr messages::TextNumber kTextNoSuchAlias{4755};
inline constexpr messages::TextNumber kTextAddingAliases{4756};

// Drag and drop.
inline constexpr messages::TextNumber kTextCopyIntoTitle{4770};
inline constexpr messages::TextNumber kTextAddArgumentsTitle{4771};

// Clipboard.
inline constexpr messages::TextNumber kTextCopyFormulas{4780};
inline constexpr messages::TextNumber kTextPasteFormulas{4781};

// The scan time of several formulas.
inline constexpr messages::TextNumber kTextScanTimeMenu{4790};
inline constexpr messages::TextNumber kTextScanTimeOfOne{4791};
inline constexpr messages::TextNumber kTextScanTimeOfMany{4792};
inline constexpr messages::TextNumber kTextOnlyAsynchronous{4794};
inline constexpr messages::TextNumber kTextChangingScanTime{4795};

}  // namespace dialogs
