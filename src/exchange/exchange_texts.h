// SPDX-License-Identifier: MIT
// The texts of lists and copies, by the numbers of the text table (texts/exchange_rows.cpp).
#pragma once

#include <cstdint>

#include "messages/text_number.h"

namespace exchange {

// What is wrong with a file as a whole.
inline constexpr messages::TextNumber kTextAtLine{3400};
inline constexpr messages::TextNumber kTextAtPlace{3401};
inline constexpr messages::TextNumber kTextWorkbook{3402};
inline constexpr messages::TextNumber kTextNulCharacter{3403};
inline constexpr messages::TextNumber kTextBrokenUtf8{3404};
inline constexpr messages::TextNumber kTextBrokenUtf16{3405};
inline constexpr messages::TextNumber kTextOpenQuote{3406};
inline constexpr messages::TextNumber kTextBehindQuote{3407};
inline constexpr messages::TextNumber kTextTooManyColumns{3408};
inline constexpr messages::TextNumber kTextCellTooLong{3409};
inline constexpr messages::TextNumber kTextEmptyFile{3410};
inline constexpr messages::TextNumber kTextNoKnownColumn{3411};
inline constexpr messages::TextNumber kTextColumnTwice{3412};
inline constexpr messages::TextNumber kTextJsonUnexpected{3413};
inline constexpr messages::TextNumber kTextJsonEnd{3414};
inline constexpr messages::TextNumber kTextJsonDepth{3415};
inline constexpr messages::TextNumber kTextJsonNoProject{3416};
inline constexpr messages::TextNumber kTextJsonType{3417};
inline constexpr messages::TextNumber kTextSeparator{3418};
inline constexpr messages::TextNumber kTextNoItemColumn{3419};

// What is wrong with a line.
inline constexpr messages::TextNumber kTextControlCharacter{3430};
inline constexpr messages::TextNumber kTextSurplusCells{3431};
inline constexpr messages::TextNumber kTextNoTruthValue{3432};
inline constexpr messages::TextNumber kTextNoWholeNumber{3433};
inline constexpr messages::TextNumber kTextUnclearNumber{3434};
inline constexpr messages::TextNumber kTextNoCallType{3435};
inline constexpr messages::TextNumber kTextArgumentList{3436};
inline constexpr messages::TextNumber kTextNoItem{3437};
inline constexpr messages::TextNumber kTextNoFormulaName{3438};
inline constexpr messages::TextNumber kTextNoClass{3439};
inline constexpr messages::TextNumber kTextRepeats{3440};
inline constexpr messages::TextNumber kTextContradicts{3441};
inline constexpr messages::TextNumber kTextTooLong{3442};
inline constexpr messages::TextNumber kTextAliasDiffers{3443};
inline constexpr messages::TextNumber kTextFormulaDiffers{3444};
inline constexpr messages::TextNumber kTextArgumentDiffers{3445};
inline constexpr messages::TextNumber kTextUnknownAlias{3446};
inline constexpr messages::TextNumber kTextAliasRefused{3447};
inline constexpr messages::TextNumber kTextArgumentRefused{3448};
inline constexpr messages::TextNumber kTextInAndOut{3449};

// What else is to be known of a line.
inline constexpr messages::TextNumber kTextSkipped{3450};
inline constexpr messages::TextNumber kTextFormulaSkipped{3451};
inline constexpr messages::TextNumber kTextRenamed{3452};

// Series.
inline constexpr messages::TextNumber kTextSeriesTooLong{3460};
inline constexpr messages::TextNumber kTextSeriesLengths{3461};

// Titles of units of work.
inline constexpr messages::TextNumber kTextImportTitle{3470};
inline constexpr messages::TextNumber kTextCopyTitle{3471};
inline constexpr messages::TextNumber kTextSeriesTitle{3472};

}  // namespace exchange
