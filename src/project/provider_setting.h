// SPDX-License-Identifier: MIT
#pragma once

#include "platform/studio.h"

namespace project {

// By what the project database is opened in the studio.
enum class Provider {
  kAuto,  // the machine's database provider where there is one, otherwise our engine
  kJet,   // the machine's database provider
  kOwn,   // our engine
};

// The setting "Provider" ("auto", "jet", "own"; letter case does not count) beside the studio's
// language in the registry; kAuto for anything else.
Provider ProviderOf(platform::SettingsService& settings);

}  // namespace project
