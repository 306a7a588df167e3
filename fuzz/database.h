// SPDX-License-Identifier: MIT
// A database for fuzzing, and everything that can be done with one.
#pragma once

#include <string>

namespace fuzz {

// The bytes of a sound database: columns of every type, long values, moved and deleted rows, an
// index with nodes. Table kTable holds it all.
const std::string& SoundDatabase();
inline constexpr const char* kTable = "Things";

// Opens the bytes as a database, exports, describes and verifies it, and changes every table.
// Neither crashes nor hangs, and what verified as sound still does so after the changes.
void UseDatabase(const std::string& bytes);

}  // namespace fuzz
