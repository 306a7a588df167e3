// SPDX-License-Identifier: MIT
// The desktop program's texts, by the numbers of the text table (texts/desktop_rows.cpp).
#pragma once

namespace workbench {

enum TextNumber : int {
  kTextChooseItem = 1500,
  kTextSearch,
  kTextItem,
  kTextItemType,
  kTextItemComment,
  kTextChooseItemReason,
  kTextNoItems,
  kTextNoItemFound,
  kTextProduct,
  kTextMenuProject,
  kTextMenuNew,
  kTextMenuOpen,
  kTextMenuRecent,
  kTextMenuSaveCode,
  kTextMenuBackups,
  kTextMenuQuit,
  kTextMenuHelp,
  kTextMenuContents,
  kTextMenuAbout,
  kTextTreeName,
  kTextCodeName,
  kTextModule,
  kTextWelcome,
  kTextNoModule,
  kTextFileFilter,
  kTextModified,
  kTextSaved,
  kTextSaveQuestion,
  kTextCodeConflict,
  kTextCodeConflictDetail,
  kTextCannotOpen,
  kTextCannotCreate,
  kTextCannotSave,
  kTextRestoreQuestion,
  kTextRestoreDetail,
  kTextRestored,
  kTextBackupFailed,
  kTextNoBackups,
  kTextNoRecent,
  kTextFileChanged,
  kTextAboutVersion,
  kTextAboutDescription,
  kTextReportTitle,
  kTextReportSaved,
  kTextFault,
  kTextFaultDetail,
  kTextCrashedBefore,

  kTextOpened = 1560,
};

}  // namespace workbench
