// SPDX-License-Identifier: MIT
// The texts of export, import and copy on the command line (texts/exchange_rows.cpp).
#pragma once

namespace cli {

enum ExchangeTextNumber : int {
  kTextCommandExport = 3500,
  kTextCommandImport,
  kTextCommandCopy,
  kTextArgList,
  kTextOptAliases,
  kTextOptFormulas,
  kTextOptListFormat,
  kTextOptExisting,
  kTextOptCreateAliases,
  kTextOptSkipRefused,
  kTextOptDefaultClass,
  kTextOptCopyName,
  kTextOptReplacement,
  kTextOptTo,
  kTextOptToVbp,

  kTextOneTable = 3530,
  kTextControlCells,
  kTextRefusedFileExists,
  kTextReason,
  kTextIgnoredColumns,
  kTextRefusedLines,
  kTextRefusedCopies,
  kTextNoPair,
};

}  // namespace cli
