// SPDX-License-Identifier: MIT
// The texts of what the window finds in code, by the numbers of the text table
// (texts/search_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace desktop {

inline constexpr messages::TextNumber kTextMenuCode{3900};
inline constexpr messages::TextNumber kTextMenuFindInAllCode{3901};
inline constexpr messages::TextNumber kTextMenuUses{3902};
inline constexpr messages::TextNumber kTextMenuDefinition{3903};

inline constexpr messages::TextNumber kTextPlacesInCode{3905};
inline constexpr messages::TextNumber kTextProcedure{3906};
inline constexpr messages::TextNumber kTextFileColumn{3907};
inline constexpr messages::TextNumber kTextLine{3908};
inline constexpr messages::TextNumber kTextKind{3909};
inline constexpr messages::TextNumber kTextText{3910};
inline constexpr messages::TextNumber kTextDeclaration{3917};
inline constexpr messages::TextNumber kTextUses{3919};
inline constexpr messages::TextNumber kTextFound{3920};
inline constexpr messages::TextNumber kTextNotUsed{3921};
inline constexpr messages::TextNumber kTextNowhere{3922};
inline constexpr messages::TextNumber kTextNoNameAtCaret{3923};
inline constexpr messages::TextNumber kTextNotDeclared{3924};
inline constexpr messages::TextNumber kTextDeclarations{3925};
inline constexpr messages::TextNumber kTextSaveFirst{3926};
inline constexpr messages::TextNumber kTextChooseName{3927};
inline constexpr messages::TextNumber kTextFindLabel{3928};
inline constexpr messages::TextNumber kTextReplaceLabel{3929};
inline constexpr messages::TextNumber kTextWholeWord{3930};
inline constexpr messages::TextNumber kTextMatchCase{3931};
inline constexpr messages::TextNumber kTextFind{3932};
inline constexpr messages::TextNumber kTextReplace{3933};
inline constexpr messages::TextNumber kTextReplaceTitle{3934};
inline constexpr messages::TextNumber kTextReplaceHeading{3935};
inline constexpr messages::TextNumber kTextReplaceNow{3936};
inline constexpr messages::TextNumber kTextMorePlaces{3937};
inline constexpr messages::TextNumber kTextCannotSearch{3938};
inline constexpr messages::TextNumber kTextCannotReplace{3939};
inline constexpr messages::TextNumber kTextReplaced{3940};
inline constexpr messages::TextNumber kTextNotice{3941};
inline constexpr messages::TextNumber kTextNotices{3942};
inline constexpr messages::TextNumber kTextPosition{4972};

}  // namespace desktop
