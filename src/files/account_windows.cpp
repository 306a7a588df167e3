// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "files/account.h"

namespace files {

std::string AccountAtComputer() {
  const auto value = [](const char* variable) {
    const char* const found = std::getenv(variable);
    return std::string(found ? found : "");
  };
  return value("USERNAME") + '@' + value("COMPUTERNAME");
}

}  // namespace files
