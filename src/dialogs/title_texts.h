// SPDX-License-Identifier: MIT
// Titles of dialogs and of the window in the workbench, by the numbers of the text table
// (texts/look_rows.cpp).
#pragma once

#include "messages/text_number.h"

namespace dialogs {

inline constexpr messages::TextNumber kTextNewFormulaTitle{4940};
inline constexpr messages::TextNumber kTextFormulaTitle{4941};
inline constexpr messages::TextNumber kTextNewArgumentTitle{4942};
inline constexpr messages::TextNumber kTextArgumentTitle{4943};
inline constexpr messages::TextNumber kTextNewAliasTitle{4944};
inline constexpr messages::TextNumber kTextAliasTitle{4945};
inline constexpr messages::TextNumber kTextAliasesTitle{4946};
inline constexpr messages::TextNumber kTextFormulasTitle{4947};
inline constexpr messages::TextNumber kTextMakeAlias{4948};

}  // namespace dialogs
