// SPDX-License-Identifier: MIT
// What is left behind when the program ends by a fault: version, kind of fault, the last steps and
// the places in the program, but nothing of a project's contents.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "files/file_system.h"

namespace desktop {

// Writes a log to `folder` when the program ends by a signal or by an exception that nobody
// caught; the folder must exist. Called once, at the start.
void InstallCrashLog(const std::string& folder, std::string_view version);

// Remembers a step: what kind of thing the user did, never a name or a text of the project. The
// last kRememberedSteps are kept. Cheap; for one thread.
inline constexpr std::size_t kRememberedSteps = 64;
void RememberStep(std::string_view step) noexcept;

// Writes the log now, for an exception that was caught at the outermost place. Its path; "" when
// it could not be written.
std::string WriteCrashLog(std::string_view fault) noexcept;

// Path of the newest log in the folder; "" when there is none.
std::string NewestCrashLog(files::FileSystem& files, const std::string& folder);

}  // namespace desktop
