// SPDX-License-Identifier: MIT
// The texts of lists and copies, by the numbers of the text table (texts/exchange_rows.cpp).
#pragma once

#include <cstdint>

namespace exchange {

enum TextNumber : std::int32_t {
  // What is wrong with a file as a whole.
  kTextAtLine = 3400,
  kTextAtPlace,
  kTextWorkbook,
  kTextNulCharacter,
  kTextBrokenUtf8,
  kTextBrokenUtf16,
  kTextOpenQuote,
  kTextBehindQuote,
  kTextTooManyColumns,
  kTextCellTooLong,
  kTextEmptyFile,
  kTextNoKnownColumn,
  kTextColumnTwice,
  kTextJsonUnexpected,
  kTextJsonEnd,
  kTextJsonDepth,
  kTextJsonNoProject,
  kTextJsonType,
  kTextSeparator,

  // What is wrong with a line.
  kTextControlCharacter = 3430,
  kTextSurplusCells,
  kTextNoTruthValue,
  kTextNoWholeNumber,
  kTextUnclearNumber,
  kTextNoCallType,
  kTextArgumentList,
  kTextNoItem,
  kTextNoFormulaName,
  kTextNoClass,
  kTextRepeats,
  kTextContradicts,
  kTextTooLong,
  kTextAliasDiffers,
  kTextFormulaDiffers,
  kTextArgumentDiffers,
  kTextUnknownAlias,
  kTextAliasRefused,
  kTextArgumentRefused,
  kTextInAndOut,

  // What else is to be known of a line.
  kTextSkipped,
  kTextFormulaSkipped,
  kTextRenamed,

  // Series.
  kTextSeriesTooLong = 3460,
  kTextSeriesLengths,

  // Titles of units of work.
  kTextImportTitle = 3470,
  kTextCopyTitle,
  kTextSeriesTitle,
};

}  // namespace exchange
