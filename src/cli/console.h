// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <system_error>

#include "files/file_system.h"

namespace cli {

// Everything that a command sees of the world; a test gives its own.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  std::ostream& status;  // standard error for a line that is written over
  files::FileSystem& files;
  bool out_is_terminal = false;
  bool err_is_terminal = false;
  std::function<std::string(const std::string&)> environment;  // "" for an unset variable
  std::string program_folder;                      // where the desktop program stands beside us
  const std::atomic<bool>* interrupted = nullptr;  // set by Ctrl+C
  // Why reading or writing ended, when that failed.
  const std::error_code* in_failure = nullptr;
  const std::error_code* out_failure = nullptr;
};

}  // namespace cli
