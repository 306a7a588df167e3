// SPDX-License-Identifier: MIT
#include "project/history_setting.h"

#include "project/file_settings_service.h"
#include "texts/text_table.h"

namespace project {

bool KeepsHistory(files::FileSystem& system, const Environment& environment) {
  FileSettingsService settings(system, FindUserFolders(system, environment).config);
  return KeepsHistory(settings);
}

bool KeepsHistory(platform::SettingsService& settings) {
  return settings.RegistryNumber(texts::kLanguageKey, kHistoryValue, 1) != 0;
}

}  // namespace project
