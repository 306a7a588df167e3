// SPDX-License-Identifier: MIT
#include <io.h>

#include <string_view>

#include "apps/terminal.h"

namespace apps {

bool IsTerminal(StandardStream stream) { return _isatty(static_cast<int>(stream)) != 0; }

std::string ProgramFolder(const char* argv0) {
  const std::string_view path = argv0;
  const auto end = path.find_last_of("\\/");
  return std::string(path.substr(0, end == std::string_view::npos ? 0 : end));
}

}  // namespace apps
