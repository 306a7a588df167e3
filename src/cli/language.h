// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "cli/console.h"
#include "texts/text_table.h"

namespace cli {

// "de" or "en".
std::optional<texts::Language> ParseLanguage(std::string_view text);

// The language asked for; otherwise the language number kept in the user's settings; otherwise
// the user's locale decides once, and that is kept.
texts::Language ChooseLanguage(std::string_view asked, Console& console);

}  // namespace cli
