// SPDX-License-Identifier: MIT
// The texts of undo, history and check, by the numbers of the text table (texts/window_rows.cpp).
#pragma once

namespace studio {

enum UndoText : int {
  kTextMenuEdit = 3800,
  kTextUndoLast,
  kTextRedoLast,
  kTextUndoOf,
  kTextRedoOf,
  kTextUndone,
  kTextRedone,
  kTextHistoryIsOff,
  kTextHistoryUnreadable,
  kTextHistory,
  kTextNoProjectOpen,

  kTextNoHistoryWithProvider = 4475,

  // The history's own (texts/history_rows.cpp).
  kTextNothingToUndo = 3352,
  kTextNothingToRedo = 3353,
};

}  // namespace studio
