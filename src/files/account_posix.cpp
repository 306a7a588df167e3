// SPDX-License-Identifier: MIT
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "files/account.h"

namespace files {

std::string AccountAtComputer() {
  std::string account;
  for (const char* variable : {"USER", "LOGNAME"}) {
    const char* const value = account.empty() ? std::getenv(variable) : nullptr;
    if (value) account = value;
  }
  if (const passwd* entry = account.empty() ? getpwuid(geteuid()) : nullptr)
    account = entry->pw_name;
  if (account.empty()) account = std::to_string(geteuid());
  std::array<char, 256> computer = {};
  if (gethostname(computer.data(), computer.size() - 1) != 0) return account;
  return account + '@' + computer.data();
}

}  // namespace files
