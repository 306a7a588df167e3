// SPDX-License-Identifier: MIT
#include "project/provider_setting.h"

#include <string>

#include "platform/text.h"
#include "texts/text_table.h"

namespace project {

Provider ProviderOf(platform::SettingsService& settings) {
  const std::string name = settings.RegistryText(texts::kLanguageKey, "Provider", "auto");
  if (platform::EqualsIgnoringCase(name, "jet")) return Provider::kJet;
  if (platform::EqualsIgnoringCase(name, "own")) return Provider::kOwn;
  return Provider::kAuto;
}

}  // namespace project
