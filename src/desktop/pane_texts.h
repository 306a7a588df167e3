// SPDX-License-Identifier: MIT
// The texts of history, check and data flow in the window, by the numbers of the text table
// (texts/pane_rows.cpp).
#pragma once

namespace desktop {

enum PaneText : int {
  kTextMenuHistory = 4200,
  kTextTime,
  kTextChange,
  kTextState,
  kTextWho,
  kTextProgram,
  kTextUndoThis,
  kTextRedoThis,
  kTextIsUndone,
  kTextRowsAndCode,
  kTextMoreLines,
  kTextHistoryIsEmpty,
  kTextDone,
  kTextUndoLink,

  kTextMenuCheck = 4220,
  kTextSeverity,
  kTextCode,
  kTextPlace,
  kTextFinding,
  kTextFirstSeverity,  // by check::Severity
  kTextFindings = 4228,
  kTextExplanation,
  kTextRepair,
  kTextCheckAgain,
  kTextChecking,
  kTextCheckStopped,
  kTextCannotCheck,
  kTextNothingFound,
  kTextFindingCounts,
  kTextRepairable,
  kTextCannotRepair,
  kTextNothingToRepair,
  kTextRepairTitle,
  kTextRepairHeading,
  kTextRepairNow,
  kTextRepaired,
};

}  // namespace desktop
