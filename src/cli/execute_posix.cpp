// SPDX-License-Identifier: MIT
#include <unistd.h>

#include "cli/execute.h"

namespace cli {

const char* const kDesktopProgram = "ovformula-desktop";

void Execute(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<const char*> words = {program.c_str()};
  for (const std::string& argument : arguments) words.push_back(argument.c_str());
  words.push_back(nullptr);
  execv(program.c_str(), const_cast<char* const*>(words.data()));
}

}  // namespace cli
