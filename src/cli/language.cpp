// SPDX-License-Identifier: MIT
#include "cli/language.h"

#include "workbench/file_settings_service.h"
#include "workbench/user_folders.h"

namespace cli {

namespace {

constexpr const char* kGermanLcid = "1031";
constexpr const char* kEnglishLcid = "1033";

// By the variables that decide the language of messages, the strongest first.
texts::Language LanguageOfLocale(Console& console) {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string locale = console.environment(variable);
    if (!locale.empty()) {
      return locale.starts_with("de") ? texts::Language::kGerman : texts::Language::kEnglish;
    }
  }
  return texts::Language::kEnglish;
}

}  // namespace

std::optional<texts::Language> ParseLanguage(std::string_view text) {
  if (text == "de") return texts::Language::kGerman;
  if (text == "en") return texts::Language::kEnglish;
  return std::nullopt;
}

texts::Language ChooseLanguage(std::string_view asked, Console& console) {
  if (const auto language = ParseLanguage(asked)) return *language;
  const auto folders = workbench::FindUserFolders(console.files, console.environment);
  workbench::FileSettingsService settings(console.files, folders.config);
  if (const auto lcid = settings.RegistryNumber(texts::kLanguageKey, texts::kLanguageValue, 0)) {
    return texts::LanguageOfLcid(lcid);
  }
  const texts::Language language = LanguageOfLocale(console);
  settings.WriteRegistry(texts::kLanguageKey, texts::kLanguageValue,
                         language == texts::Language::kGerman ? kGermanLcid : kEnglishLcid);
  return language;
}

}  // namespace cli
