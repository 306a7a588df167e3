// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <string_view>

#include "apps/terminal.h"

namespace apps {

bool IsTerminal(StandardStream stream) { return isatty(static_cast<int>(stream)) == 1; }

std::string ProgramFolder(const char* argv0) {
  char buffer[4096];
  const ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer);
  const std::string_view path =
      length > 0 ? std::string_view(buffer, static_cast<std::size_t>(length)) : argv0;
  return std::string(
      path.substr(0, path.rfind('/') == std::string_view::npos ? 0 : path.rfind('/')));
}

}  // namespace apps
