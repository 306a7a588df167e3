// SPDX-License-Identifier: MIT
// Numbers of the generator's own texts.
#pragma once

#include <cstdint>

namespace codegen {

// Steps left out, and things the engineer should know.
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

// Refusals.
inline constexpr std::int32_t kTextNameTaken = 1105;

// What is wrong with a name; by IdentifierProblem, from kEmpty on.
inline constexpr std::int32_t kTextFirstIdentifierProblem = 1121;

}  // namespace codegen
