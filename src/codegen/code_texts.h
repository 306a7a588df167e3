// SPDX-License-Identifier: MIT
// Numbers of the generator's own texts.
#pragma once

#include <cstdint>

#include "codegen/identifier.h"

namespace codegen {

// Steps left out, and things the engineer should know.
inline constexpr std::int32_t kTextCodeLeftBehind = 1013;
inline constexpr std::int32_t kTextNoClass = 1100;
inline constexpr std::int32_t kTextNoSub = 1101;
inline constexpr std::int32_t kTextSubAdded = 1102;
inline constexpr std::int32_t kTextStillUses = 1103;
inline constexpr std::int32_t kTextDeclarationLeft = 1104;
inline constexpr std::int32_t kTextLongLine = 1106;
inline constexpr std::int32_t kTextLongModule = 1107;
inline constexpr std::int32_t kTextCodeWithoutSub = 1108;
inline constexpr std::int32_t kTextNotDeclarable = 1109;
inline constexpr std::int32_t kTextDirectivesLeft = 1110;
inline constexpr std::int32_t kTextComponentList = 1111;
inline constexpr std::int32_t kTextDeclarationOff = 1112;
inline constexpr std::int32_t kTextDeclarationKept = 1119;
inline constexpr std::int32_t kTextTypeKept = 1113;
inline constexpr std::int32_t kTextAdopted = 1117;
inline constexpr std::int32_t kTextParametersStay = 1118;

inline constexpr std::int32_t kTextUseLeft = 3600;
inline constexpr std::int32_t kTextMoreLeft = 3601;
inline constexpr std::int32_t kTextNotSearched = 3602;

// Refusals.
inline constexpr std::int32_t kTextOneLine = 3603;
inline constexpr std::int32_t kTextCodeChanged = 3604;
// Why uses cannot follow a name; those of the other vbcode::RenameProblem follow.
inline constexpr std::int32_t kTextFirstRenameProblem = 3605;
// What is done at a place with a name that is surely the one meant; those of the other
// vbcode::UseKind follow.
inline constexpr std::int32_t kTextFirstUseKind = 3613;
inline constexpr std::int32_t kTextMaybe = 3619;
inline constexpr std::int32_t kTextNameTaken = 1105;
inline constexpr std::int32_t kTextHasParameters = 1114;
inline constexpr std::int32_t kTextNotPublic = 1115;
inline constexpr std::int32_t kTextInConditionalBlock = 1116;

// What a name stands for, behind "as".
inline constexpr std::int32_t kTextSub = 1140;
inline constexpr std::int32_t kTextFunction = 1141;
inline constexpr std::int32_t kTextExternalProcedure = 1142;
inline constexpr std::int32_t kTextProperty = 1143;
inline constexpr std::int32_t kTextVariable = 1144;
inline constexpr std::int32_t kTextEvent = 1145;
inline constexpr std::int32_t kTextConstant = 1146;
inline constexpr std::int32_t kTextTypeOrEnumeration = 1147;

// Says what is wrong with the name <Name>, because of its <Character>.
// REQUIRES: problem is not kNone.
constexpr std::int32_t HintText(IdentifierProblem problem) {
  return 1120 + static_cast<std::int32_t>(problem);
}

}  // namespace codegen
