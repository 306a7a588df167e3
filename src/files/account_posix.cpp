// SPDX-License-Identifier: MIT
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "files/account.h"

namespace files {
namespace {

// By the list of the machine itself: asking the system for other lists loads its modules, which a
// program that is linked statically does not survive.
std::string LocalName(uid_t user) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> list(std::fopen("/etc/passwd", "re"),
                                                             std::fclose);
  const passwd* entry = nullptr;
  while (list && (entry = ::fgetpwent(list.get()))) {
    if (entry->pw_uid == user) return entry->pw_name;
  }
  return {};
}

}  // namespace

std::string AccountAtComputer() {
  std::string account;
  for (const char* variable : {"USER", "LOGNAME"}) {
    const char* const value = account.empty() ? std::getenv(variable) : nullptr;
    if (value) account = value;
  }
  if (account.empty()) account = LocalName(geteuid());
  if (account.empty()) account = std::to_string(geteuid());
  std::array<char, 256> computer = {};
  if (gethostname(computer.data(), computer.size() - 1) != 0) return account;
  return account + '@' + computer.data();
}

}  // namespace files
