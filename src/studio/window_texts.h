// SPDX-License-Identifier: MIT
// The texts of the window, by the numbers of the text table (texts/desktop_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace studio {

inline constexpr messages::TextNumber kTextChooseItem{1500};
inline constexpr messages::TextNumber kTextSearch{1501};
inline constexpr messages::TextNumber kTextItem{1502};
inline constexpr messages::TextNumber kTextItemType{1503};
inline constexpr messages::TextNumber kTextItemComment{1504};
inline constexpr messages::TextNumber kTextChooseItemReason{1505};
inline constexpr messages::TextNumber kTextNoItems{1506};
inline constexpr messages::TextNumber kTextNoItemFound{1507};
inline constexpr messages::TextNumber kTextProduct{1508};
inline constexpr messages::TextNumber kTextMenuProject{1509};
inline constexpr messages::TextNumber kTextMenuNew{1510};
inline constexpr messages::TextNumber kTextMenuOpen{1511};
inline constexpr messages::TextNumber kTextMenuRecent{1512};
inline constexpr messages::TextNumber kTextMenuSaveCode{1513};
inline constexpr messages::TextNumber kTextMenuBackups{1514};
inline constexpr messages::TextNumber kTextMenuQuit{1515};
inline constexpr messages::TextNumber kTextMenuHelp{1516};
inline constexpr messages::TextNumber kTextMenuContents{1517};
inline constexpr messages::TextNumber kTextMenuAbout{1518};
inline constexpr messages::TextNumber kTextTreeName{1519};
inline constexpr messages::TextNumber kTextCodeName{1520};
inline constexpr messages::TextNumber kTextModule{1521};
inline constexpr messages::TextNumber kTextWelcome{1522};
inline constexpr messages::TextNumber kTextNoModule{1523};
inline constexpr messages::TextNumber kTextFileFilter{1524};
inline constexpr messages::TextNumber kTextModified{1525};
inline constexpr messages::TextNumber kTextSaved{1526};
inline constexpr messages::TextNumber kTextSaveQuestion{1527};
inline constexpr messages::TextNumber kTextCodeConflict{1528};
inline constexpr messages::TextNumber kTextCodeConflictDetail{1529};
inline constexpr messages::TextNumber kTextCannotOpen{1530};
inline constexpr messages::TextNumber kTextCannotCreate{1531};
inline constexpr messages::TextNumber kTextCannotSave{1532};
inline constexpr messages::TextNumber kTextRestoreQuestion{1533};
inline constexpr messages::TextNumber kTextRestoreDetail{1534};
inline constexpr messages::TextNumber kTextRestored{1535};
inline constexpr messages::TextNumber kTextBackupFailed{1536};
inline constexpr messages::TextNumber kTextNoBackups{1537};
inline constexpr messages::TextNumber kTextNoRecent{1538};
inline constexpr messages::TextNumber kTextFileChanged{1539};
inline constexpr messages::TextNumber kTextAboutVersion{1540};
inline constexpr messages::TextNumber kTextAboutDescription{1541};
inline constexpr messages::TextNumber kTextReportTitle{1542};
inline constexpr messages::TextNumber kTextReportSaved{1543};
inline constexpr messages::TextNumber kTextFault{1544};
inline constexpr messages::TextNumber kTextFaultDetail{1545};
inline constexpr messages::TextNumber kTextCrashedBefore{1546};
inline constexpr messages::TextNumber kTextNoDisplay{1547};
inline constexpr messages::TextNumber kTextFindInCode{1548};
inline constexpr messages::TextNumber kTextNotInCode{1549};

inline constexpr messages::TextNumber kTextOpened{1560};
inline constexpr messages::TextNumber kTextLater{1561};

inline constexpr messages::TextNumber kTextAboutTitle{1570};
inline constexpr messages::TextNumber kTextLicences{1571};
inline constexpr messages::TextNumber kTextClose{1572};
inline constexpr messages::TextNumber kTextDiscardCode{1573};
inline constexpr messages::TextNumber kTextDiscardDetail{1574};
inline constexpr messages::TextNumber kTextIncomplete{1575};
inline constexpr messages::TextNumber kTextReplacedCharacters{1576};
inline constexpr messages::TextNumber kTextReplacedAt{1577};
inline constexpr messages::TextNumber kTextNameCodePage{1578};
inline constexpr messages::TextNumber kTextNothingToSave{1579};
inline constexpr messages::TextNumber kTextNewProject{1580};
inline constexpr messages::TextNumber kTextOpenProject{1581};
inline constexpr messages::TextNumber kTextCannotRestore{1582};
inline constexpr messages::TextNumber kTextRecentProjects{1583};
inline constexpr messages::TextNumber kTextNoProjectYet{1584};
inline constexpr messages::TextNumber kTextSaveCode{1585};
inline constexpr messages::TextNumber kTextMerged{1586};
inline constexpr messages::TextNumber kTextUnsavedLeft{1587};
inline constexpr messages::TextNumber kTextUnsavedLeftDetail{1588};
inline constexpr messages::TextNumber kTextBringBack{1589};
inline constexpr messages::TextNumber kTextModuleGone{1590};
inline constexpr messages::TextNumber kTextNoUnsavedCopy{1591};
inline constexpr messages::TextNumber kTextModuleUnreadable{1592};
inline constexpr messages::TextNumber kTextUndo{1593};
inline constexpr messages::TextNumber kTextRedo{1594};
inline constexpr messages::TextNumber kTextCut{1595};
inline constexpr messages::TextNumber kTextCopy{1596};
inline constexpr messages::TextNumber kTextPaste{1597};
inline constexpr messages::TextNumber kTextDelete{1598};
inline constexpr messages::TextNumber kTextSelectAll{1599};

inline constexpr messages::TextNumber kTextReadOnly{3840};
inline constexpr messages::TextNumber kTextOpenAgain{3841};
inline constexpr messages::TextNumber kTextNoCode{3842};
inline constexpr messages::TextNumber kTextChooseCode{3843};
inline constexpr messages::TextNumber kTextCodeFileFilter{3844};
inline constexpr messages::TextNumber kTextClassNotFound{3845};
inline constexpr messages::TextNumber kTextNoBrowser{3848};
inline constexpr messages::TextNumber kTextSaveAs{3849};
inline constexpr messages::TextNumber kTextReportFileFilter{3850};
inline constexpr messages::TextNumber kTextNotOnFolder{3851};
inline constexpr messages::TextNumber kTextLoadFile{3852};
inline constexpr messages::TextNumber kTextOverwrite{3853};
inline constexpr messages::TextNumber kTextReplaceFile{3854};

}  // namespace studio
