// SPDX-License-Identifier: MIT
#include "project/language.h"

#include "project/file_settings_service.h"

namespace project {

namespace {

// By the variables that decide the language of messages, the strongest first.
texts::Language LanguageOfLocale(const Environment& environment) {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string locale = environment(variable);
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

std::string_view LcidOf(texts::Language language) {
  return language == texts::Language::kGerman ? "1031" : "1033";
}

texts::Language ChooseLanguage(std::string_view asked, files::FileSystem& system,
                               const Environment& environment) {
  if (const auto language = ParseLanguage(asked)) return *language;
  const auto folders = FindUserFolders(system, environment);
  FileSettingsService settings(system, folders.config);
  if (const auto lcid = settings.RegistryNumber(texts::kLanguageKey, texts::kLanguageValue, 0)) {
    return texts::LanguageOfLcid(lcid);
  }
  const texts::Language language = LanguageOfLocale(environment);
  settings.WriteRegistry(texts::kLanguageKey, texts::kLanguageValue, LcidOf(language));
  return language;
}

}  // namespace project
