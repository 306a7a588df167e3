// SPDX-License-Identifier: MIT
// Numbers of the texts that operations answer with.
#pragma once

#include <cstdint>

#include "messages/text_number.h"

namespace store {

// Fixed texts of the system.
inline constexpr messages::TextNumber kTextFormulaBase{310};
inline constexpr messages::TextNumber kTextLongClassNames{311};
inline constexpr messages::TextNumber kTextFormulaNotStored{341};
inline constexpr messages::TextNumber kTextAliasEmpty{450};
inline constexpr messages::TextNumber kTextAliasMalformed{451};
inline constexpr messages::TextNumber kTextArgumentNotStored{551};
inline constexpr messages::TextNumber kTextInAndOut{552};

// Texts of the operations.
inline constexpr messages::TextNumber kTextNothingChanged{1000};
inline constexpr messages::TextNumber kTextNoFormula{1001};
inline constexpr messages::TextNumber kTextNoAlias{1002};
inline constexpr messages::TextNumber kTextNoArgument{1003};
inline constexpr messages::TextNumber kTextNoProject{1004};
inline constexpr messages::TextNumber kTextNoFormulaClass{1005};
inline constexpr messages::TextNumber kTextFormulaExists{1006};
inline constexpr messages::TextNumber kTextFormulaMalformed{1007};
inline constexpr messages::TextNumber kTextInAndOutDetail{1008};
inline constexpr messages::TextNumber kTextCallType{1009};
inline constexpr messages::TextNumber kTextAliasTaken{1010};
inline constexpr messages::TextNumber kTextArgumentExists{1011};
inline constexpr messages::TextNumber kTextAliasUsedBy{1012};
inline constexpr messages::TextNumber kTextNoFreeName{1014};
inline constexpr messages::TextNumber kTextCancelled{1015};
inline constexpr messages::TextNumber kTextNameTaken{1016};
inline constexpr messages::TextNumber kTextAliasValid{1017};
inline constexpr messages::TextNumber kTextNotUndone{1018};
inline constexpr messages::TextNumber kTextColumnMissing{1019};
inline constexpr messages::TextNumber kTextScanTimeUse{1606};
inline constexpr messages::TextNumber kTextScanTime{1650};
inline constexpr messages::TextNumber kTextItemMalformed{1651};

}  // namespace store
