// SPDX-License-Identifier: MIT
// The texts of export, import and copy on the command line (texts/exchange_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace cli {

inline constexpr messages::TextNumber kTextCommandExport{3500};
inline constexpr messages::TextNumber kTextCommandImport{3501};
inline constexpr messages::TextNumber kTextCommandCopy{3502};
inline constexpr messages::TextNumber kTextArgList{3503};
inline constexpr messages::TextNumber kTextOptAliases{3504};
inline constexpr messages::TextNumber kTextOptFormulas{3505};
inline constexpr messages::TextNumber kTextOptListFormat{3506};
inline constexpr messages::TextNumber kTextOptExisting{3507};
inline constexpr messages::TextNumber kTextOptCreateAliases{3508};
inline constexpr messages::TextNumber kTextOptSkipRefused{3509};
inline constexpr messages::TextNumber kTextOptDefaultClass{3510};
inline constexpr messages::TextNumber kTextOptCopyName{3511};
inline constexpr messages::TextNumber kTextOptReplacement{3512};
inline constexpr messages::TextNumber kTextOptTo{3513};
inline constexpr messages::TextNumber kTextOptToVbp{3514};

inline constexpr messages::TextNumber kTextOneTable{3530};
inline constexpr messages::TextNumber kTextControlCells{3531};
inline constexpr messages::TextNumber kTextRefusedFileExists{3532};
inline constexpr messages::TextNumber kTextReason{3533};
inline constexpr messages::TextNumber kTextIgnoredColumns{3534};
inline constexpr messages::TextNumber kTextRefusedLines{3535};
inline constexpr messages::TextNumber kTextRefusedCopies{3536};
inline constexpr messages::TextNumber kTextNoPair{3537};
inline constexpr messages::TextNumber kTextNoFileName{3538};

}  // namespace cli
