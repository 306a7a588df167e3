// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "files/file_system.h"
#include "platform/studio.h"
#include "project/user_folders.h"

namespace project {

// Where the language is kept.
inline constexpr std::string_view kHistoryValue = "History";

// Whether the user wants operations to leave a record that they can be undone by: the number
// "History" where the language is kept, 1 unless it was set to 0.
bool KeepsHistory(files::FileSystem& system, const Environment& environment);
bool KeepsHistory(platform::SettingsService& settings);

}  // namespace project
