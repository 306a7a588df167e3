// SPDX-License-Identifier: MIT
// Text to and from a console window, whatever code page it has.
#pragma once

#include <cstddef>
#include <string>

#include "files/windows_api.h"

namespace apps {

// What the user typed, as UTF-8. Ctrl+Z at the beginning of a line ends the input, as everywhere.
class ConsoleInput {
 public:
  // Reads up to `size` bytes, 0 at the end; false after a failure and when Ctrl+C was pressed.
  bool Read(HANDLE console, char* data, std::size_t size, std::size_t& count);

 private:
  std::string pending_;
  wchar_t high_ = 0;  // the first half of a character that the system gave away in two
  bool ended_ = false;
};

class ConsoleOutput {
 public:
  // Writes UTF-8; a character may come in parts.
  bool Write(HANDLE console, const char* data, std::size_t size);

 private:
  std::string part_;
};

}  // namespace apps
