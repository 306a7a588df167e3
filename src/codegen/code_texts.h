// SPDX-License-Identifier: MIT
// Numbers of the generator's own texts.
#pragma once

#include <cstdint>

#include "codegen/identifier.h"
#include "messages/text_number.h"

namespace codegen {

// Steps left out, and things the engineer should know.
inline constexpr messages::TextNumber kTextCodeLeftBehind{1013};
inline constexpr messages::TextNumber kTextNoClass{1100};
inline constexpr messages::TextNumber kTextNoSub{1101};
inline constexpr messages::TextNumber kTextSubAdded{1102};
inline constexpr messages::TextNumber kTextStillUses{1103};
inline constexpr messages::TextNumber kTextDeclarationLeft{1104};
inline constexpr messages::TextNumber kTextLongLine{1106};
inline constexpr messages::TextNumber kTextLongModule{1107};
inline constexpr messages::TextNumber kTextCodeWithoutSub{1108};
inline constexpr messages::TextNumber kTextNotDeclarable{1109};
inline constexpr messages::TextNumber kTextDirectivesLeft{1110};
inline constexpr messages::TextNumber kTextComponentList{1111};
inline constexpr messages::TextNumber kTextDeclarationOff{1112};
inline constexpr messages::TextNumber kTextDeclarationKept{1119};
inline constexpr messages::TextNumber kTextTypeKept{1113};
inline constexpr messages::TextNumber kTextAdopted{1117};
inline constexpr messages::TextNumber kTextParametersStay{1118};

inline constexpr messages::TextNumber kTextUseLeft{3600};
inline constexpr messages::TextNumber kTextMoreLeft{3601};
inline constexpr messages::TextNumber kTextNotSearched{3602};

// Refusals.
inline constexpr messages::TextNumber kTextOneLine{3603};
inline constexpr messages::TextNumber kTextCodeChanged{3604};
// Why uses cannot follow a name; those of the other vbcode::RenameProblem follow.
inline constexpr messages::TextNumber kTextFirstRenameProblem{3605};
// What is done at a place with a name that is surely the one meant; those of the other
// vbcode::UseKind follow.
inline constexpr messages::TextNumber kTextFirstUseKind{3613};
inline constexpr messages::TextNumber kTextMaybe{3619};
inline constexpr messages::TextNumber kTextNameTaken{1105};
inline constexpr messages::TextNumber kTextHasParameters{1114};
inline constexpr messages::TextNumber kTextNotPublic{1115};
inline constexpr messages::TextNumber kTextInConditionalBlock{1116};

// What a name stands for, behind "as".
inline constexpr messages::TextNumber kTextSub{1140};
inline constexpr messages::TextNumber kTextFunction{1141};
inline constexpr messages::TextNumber kTextExternalProcedure{1142};
inline constexpr messages::TextNumber kTextProperty{1143};
inline constexpr messages::TextNumber kTextVariable{1144};
inline constexpr messages::TextNumber kTextEvent{1145};
inline constexpr messages::TextNumber kTextConstant{1146};
inline constexpr messages::TextNumber kTextTypeOrEnumeration{1147};

// Says what is wrong with the name <Name>, because of its <Character>.
// REQUIRES: problem is not kNone.
constexpr messages::TextNumber HintText(IdentifierProblem problem) {
  return messages::TextNumber{1120} + static_cast<int>(problem);
}

}  // namespace codegen
