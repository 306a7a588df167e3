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
};

}  // namespace desktop
