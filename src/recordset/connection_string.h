// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace recordset {

struct ConnectionSettings {
  std::string data_source;
  bool read_only = false;  // Mode is Read without Write
};

// Reads "Provider=...;Data Source=...;Mode=...;": names without regard to case, values as they
// stand or in quotes; names that do not concern the engine are passed over. Raises
// kErrInvalidArgument for another provider, a missing source or a text that is none of this.
ConnectionSettings ParseConnectionString(std::string_view text);

}  // namespace recordset
