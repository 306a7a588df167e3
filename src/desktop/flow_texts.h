// SPDX-License-Identifier: MIT
// The texts of the data flow in the window, by the numbers of the text table
// (texts/coding_rows.cpp).
#pragma once

namespace desktop {

enum FlowPaneText : int {
  kTextMenuFlow = 4650,
  kTextFlowAround,
  kTextFlowDepth,
  kTextFlowSaveAs,
  kTextFlowPicture,
  kTextFlowHint,
  kTextFlowList,
  kTextFlowAlias,
  kTextFlowAccess,
  kTextFlowFormula,
  kTextFlowCallType,
  kTextFlowWriters,
  kTextFlowChoose,
  kTextFlowInstall,
  kTextFlowTooMany,
  kTextFlowReading,
  kTextFlowStopped,
  kTextFlowCannotRead,
  kTextFlowSaveTitle,
  kTextFlowFilter,
  kTextFlowCannotSave,
  kTextFlowSaved,
  kTextFlowNothing,
};

}  // namespace desktop
