// SPDX-License-Identifier: MIT
// The texts of the window around tables and code, by the numbers of the text table
// (texts/frame_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace desktop {

inline constexpr messages::TextNumber kTextDisabledFormula{4500};
inline constexpr messages::TextNumber kTextGroupOfFormulas{4501};
inline constexpr messages::TextNumber kTextFilterTree{4502};
inline constexpr messages::TextNumber kTextFilterTreeHint{4503};
inline constexpr messages::TextNumber kTextUnknownCallType{4504};

inline constexpr messages::TextNumber kTextTreeFlat{4510};
inline constexpr messages::TextNumber kTextTreeByClass{4511};
inline constexpr messages::TextNumber kTextTreeByCallType{4512};
inline constexpr messages::TextNumber kTextTreeAsCreated{4513};
inline constexpr messages::TextNumber kTextTreeByName{4514};

inline constexpr messages::TextNumber kTextCopyNodeName{4520};
inline constexpr messages::TextNumber kTextNodeNewFormula{4521};
inline constexpr messages::TextNumber kTextNodeNewAlias{4522};
inline constexpr messages::TextNumber kTextOnlyFormula{4523};

inline constexpr messages::TextNumber kTextOneFormulaCounted{4530};  // the next text is of several
inline constexpr messages::TextNumber kTextOneArgumentCounted{4532};
inline constexpr messages::TextNumber kTextOneAliasCounted{4534};

inline constexpr messages::TextNumber kTextMenuMessages{4540};
inline constexpr messages::TextNumber kTextMessages{4541};
inline constexpr messages::TextNumber kTextMessage{4542};
inline constexpr messages::TextNumber kTextNoMessages{4543};

inline constexpr messages::TextNumber kTextMenuOptions{4600};
inline constexpr messages::TextNumber kTextOptions{4601};
inline constexpr messages::TextNumber kTextLanguage{4602};
inline constexpr messages::TextNumber kTextLook{4603};
inline constexpr messages::TextNumber kTextLookOfSystem{4604};  // by wx::Look, as are the next two
inline constexpr messages::TextNumber kTextOnlyLight{4607};
inline constexpr messages::TextNumber kTextUnsavedCode{4608};
inline constexpr messages::TextNumber kTextAskUnsaved{4609};
inline constexpr messages::TextNumber kTextSaveUnsaved{4610};
inline constexpr messages::TextNumber kTextKeepHistory{4611};
inline constexpr messages::TextNumber kTextKeepBackups{4612};
inline constexpr messages::TextNumber kTextAtNextStart{4613};
inline constexpr messages::TextNumber kTextChangedAtNextStart{4614};

inline constexpr messages::TextNumber kTextTableFont{4930};
inline constexpr messages::TextNumber kTextCodeFont{4931};
inline constexpr messages::TextNumber kTextStandardFonts{4932};

inline constexpr messages::TextNumber kTextMenuKeyboard{4570};
inline constexpr messages::TextNumber kTextKeyboard{4571};
inline constexpr messages::TextNumber kTextKeyMenu{4572};
inline constexpr messages::TextNumber kTextKey{4573};
inline constexpr messages::TextNumber kTextKeyCommand{4574};
inline constexpr messages::TextNumber kTextKeyElsewhere{4575};
// The next text of each says what it does.
inline constexpr messages::TextNumber kTextKeyHelp{4580};
inline constexpr messages::TextNumber kTextKeyRound{4582};
inline constexpr messages::TextNumber kTextKeyTree{4584};
inline constexpr messages::TextNumber kTextKeyFilter{4586};
inline constexpr messages::TextNumber kTextKeyOrder{4588};
inline constexpr messages::TextNumber kTextKeyFindAgain{4970};
inline constexpr messages::TextNumber kTextKeyLeaveFilter{4973};

}  // namespace desktop
