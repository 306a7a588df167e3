// SPDX-License-Identifier: MIT
// The texts of the data flow in the window, by the numbers of the text table
// (texts/coding_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace desktop {

inline constexpr messages::TextNumber kTextMenuFlow{4650};
inline constexpr messages::TextNumber kTextFlowAround{4651};
inline constexpr messages::TextNumber kTextFlowDepth{4652};
inline constexpr messages::TextNumber kTextFlowSaveAs{4653};
inline constexpr messages::TextNumber kTextFlowPicture{4654};
inline constexpr messages::TextNumber kTextFlowHint{4655};
inline constexpr messages::TextNumber kTextFlowList{4656};
inline constexpr messages::TextNumber kTextFlowAlias{4657};
inline constexpr messages::TextNumber kTextFlowAccess{4658};
inline constexpr messages::TextNumber kTextFlowFormula{4659};
inline constexpr messages::TextNumber kTextFlowCallType{4660};
inline constexpr messages::TextNumber kTextFlowWriters{4661};
inline constexpr messages::TextNumber kTextFlowChoose{4662};
inline constexpr messages::TextNumber kTextFlowInstall{4663};
inline constexpr messages::TextNumber kTextFlowTooMany{4664};
inline constexpr messages::TextNumber kTextFlowReading{4665};
inline constexpr messages::TextNumber kTextFlowStopped{4666};
inline constexpr messages::TextNumber kTextFlowCannotRead{4667};
inline constexpr messages::TextNumber kTextFlowSaveTitle{4668};
inline constexpr messages::TextNumber kTextFlowFilter{4669};
inline constexpr messages::TextNumber kTextFlowCannotSave{4670};
inline constexpr messages::TextNumber kTextFlowSaved{4671};
inline constexpr messages::TextNumber kTextFlowNothing{4672};

}  // namespace desktop
