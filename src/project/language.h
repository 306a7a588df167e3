// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "files/file_system.h"
#include "project/user_folders.h"
#include "texts/text_table.h"

namespace project {

// "de" or "en".
std::optional<texts::Language> ParseLanguage(std::string_view text);

// The language number of the registry that stands for a language.
std::string_view LcidOf(texts::Language language);

// The language asked for; otherwise the language number kept in the user's settings; otherwise
// the user's locale decides once, and that is kept.
texts::Language ChooseLanguage(std::string_view asked, files::FileSystem& system,
                               const Environment& environment);

}  // namespace project
