// SPDX-License-Identifier: MIT
// Numbers of the texts that operations answer with.
#pragma once

#include <cstdint>

namespace store {

// Fixed texts of the system.
inline constexpr std::int32_t kTextFormulaBase = 310;
inline constexpr std::int32_t kTextLongClassNames = 311;
inline constexpr std::int32_t kTextFormulaNotStored = 341;
inline constexpr std::int32_t kTextAliasEmpty = 450;
inline constexpr std::int32_t kTextAliasMalformed = 451;
inline constexpr std::int32_t kTextArgumentNotStored = 551;
inline constexpr std::int32_t kTextInAndOut = 552;

// Texts of the operations.
inline constexpr std::int32_t kTextNothingChanged = 1000;
inline constexpr std::int32_t kTextNoFormula = 1001;
inline constexpr std::int32_t kTextNoAlias = 1002;
inline constexpr std::int32_t kTextNoArgument = 1003;
inline constexpr std::int32_t kTextNoProject = 1004;
inline constexpr std::int32_t kTextNoFormulaClass = 1005;
inline constexpr std::int32_t kTextFormulaExists = 1006;
inline constexpr std::int32_t kTextFormulaMalformed = 1007;
inline constexpr std::int32_t kTextInAndOutDetail = 1008;
inline constexpr std::int32_t kTextCallType = 1009;
inline constexpr std::int32_t kTextAliasTaken = 1010;
inline constexpr std::int32_t kTextArgumentExists = 1011;
inline constexpr std::int32_t kTextAliasUsedBy = 1012;
inline constexpr std::int32_t kTextNoFreeName = 1014;
inline constexpr std::int32_t kTextCancelled = 1015;
inline constexpr std::int32_t kTextNameTaken = 1016;
inline constexpr std::int32_t kTextAliasValid = 1017;
inline constexpr std::int32_t kTextNotUndone = 1018;
inline constexpr std::int32_t kTextColumnMissing = 1019;
inline constexpr std::int32_t kTextScanTimeUse = 1606;
inline constexpr std::int32_t kTextScanTime = 1650;
inline constexpr std::int32_t kTextItemMalformed = 1651;

}  // namespace store
