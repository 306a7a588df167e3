// SPDX-License-Identifier: MIT
// The texts of the window around tables and code, by the numbers of the text table
// (texts/frame_rows.cpp).
#pragma once

namespace desktop {

enum FrameText : int {
  kTextDisabledFormula = 4500,
  kTextGroupOfFormulas,
  kTextFilterTree,
  kTextFilterTreeHint,
  kTextUnknownCallType,

  kTextTreeFlat = 4510,
  kTextTreeByClass,
  kTextTreeByCallType,
  kTextTreeAsCreated,
  kTextTreeByName,

  kTextCopyNodeName = 4520,
  kTextNodeNewFormula,
  kTextNodeNewAlias,
  kTextOnlyFormula,

  kTextOneFormulaCounted = 4530,  // the next text is of several
  kTextOneArgumentCounted = 4532,
  kTextOneAliasCounted = 4534,

  kTextMenuMessages = 4540,
  kTextMessages,
  kTextMessage,
  kTextNoMessages,

  kTextMenuOptions = 4600,
  kTextOptions,
  kTextLanguage,
  kTextLook,
  kTextLookOfSystem,  // by wx::Look, as are the next two
  kTextOnlyLight = 4607,
  kTextUnsavedCode,
  kTextAskUnsaved,
  kTextSaveUnsaved,
  kTextKeepHistory,
  kTextKeepBackups,
  kTextAtNextStart,
  kTextChangedAtNextStart,

  kTextMenuKeyboard = 4570,
  kTextKeyboard,
  kTextKeyMenu,
  kTextKey,
  kTextKeyCommand,
  kTextKeyElsewhere,
  // The next text of each says what it does.
  kTextKeyHelp = 4580,
  kTextKeyRound = 4582,
  kTextKeyTree = 4584,
  kTextKeyFilter = 4586,
  kTextKeyOrder = 4588,
};

}  // namespace desktop
