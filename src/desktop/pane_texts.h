// SPDX-License-Identifier: MIT
// The texts of history, check and data flow in the window, by the numbers of the text table
// (texts/pane_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace desktop {

inline constexpr messages::TextNumber kTextMenuHistory{4200};
inline constexpr messages::TextNumber kTextTime{4201};
inline constexpr messages::TextNumber kTextChange{4202};
inline constexpr messages::TextNumber kTextState{4203};
inline constexpr messages::TextNumber kTextWho{4204};
inline constexpr messages::TextNumber kTextProgram{4205};
inline constexpr messages::TextNumber kTextUndoThis{4206};
inline constexpr messages::TextNumber kTextRedoThis{4207};
inline constexpr messages::TextNumber kTextIsUndone{4208};
inline constexpr messages::TextNumber kTextRowsAndCode{4209};
inline constexpr messages::TextNumber kTextMoreLines{4210};
inline constexpr messages::TextNumber kTextHistoryIsEmpty{4211};
inline constexpr messages::TextNumber kTextDone{4212};
inline constexpr messages::TextNumber kTextUndoLink{4213};

inline constexpr messages::TextNumber kTextMenuCheck{4220};
inline constexpr messages::TextNumber kTextSeverity{4221};
inline constexpr messages::TextNumber kTextCode{4222};
inline constexpr messages::TextNumber kTextPlace{4223};
inline constexpr messages::TextNumber kTextFinding{4224};
inline constexpr messages::TextNumber kTextFirstSeverity{4225};  // by check::Severity
inline constexpr messages::TextNumber kTextFindings{4228};
inline constexpr messages::TextNumber kTextExplanation{4229};
inline constexpr messages::TextNumber kTextRepair{4230};
inline constexpr messages::TextNumber kTextCheckAgain{4231};
inline constexpr messages::TextNumber kTextChecking{4232};
inline constexpr messages::TextNumber kTextCheckStopped{4233};
inline constexpr messages::TextNumber kTextCannotCheck{4234};
inline constexpr messages::TextNumber kTextNothingFound{4235};
inline constexpr messages::TextNumber kTextFindingCounts{4236};
inline constexpr messages::TextNumber kTextRepairable{4237};
inline constexpr messages::TextNumber kTextCannotRepair{4238};
inline constexpr messages::TextNumber kTextNothingToRepair{4239};
inline constexpr messages::TextNumber kTextRepairTitle{4240};
inline constexpr messages::TextNumber kTextRepairHeading{4241};
inline constexpr messages::TextNumber kTextRepairNow{4242};
inline constexpr messages::TextNumber kTextRepaired{4243};

}  // namespace desktop
