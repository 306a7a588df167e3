// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/file_system.h"

namespace project {

// Adds a line with the time (UTC) to a log; its folder is made. A log that has become larger than
// `limit` bytes begins anew. Never raises: nobody is to fail because of a log.
void AddToLog(files::FileSystem& system, const std::string& path, std::int64_t seconds,
              std::string_view sentence, std::uint64_t limit = std::uint64_t{256} * 1024) noexcept;

}  // namespace project
