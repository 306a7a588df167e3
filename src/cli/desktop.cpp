// SPDX-License-Identifier: MIT
#include "cli/desktop.h"

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

#include <string>
#include <vector>

namespace cli {

namespace {

#ifdef _WIN32
constexpr const char* kProgram = "ovformula-desktop.exe";
#else
constexpr const char* kProgram = "ovformula-desktop";
#endif

// Returns only when the program cannot be started.
void Execute(const std::string& program, const std::vector<std::string>& given) {
  std::vector<const char*> arguments = {program.c_str()};
  for (const std::string& argument : given) arguments.push_back(argument.c_str());
  arguments.push_back(nullptr);
#ifdef _WIN32
  const auto code = _spawnv(_P_WAIT, program.c_str(), arguments.data());
  if (code >= 0) exit(static_cast<int>(code));
#else
  execv(program.c_str(), const_cast<char* const*>(arguments.data()));
#endif
}

}  // namespace

int OpenDesktop(Invocation& invocation) {
  Console& console = invocation.console();
  const std::string program = console.files.Join(console.program_folder, kProgram);
  const bool german = invocation.texts().GetLanguage() == texts::Language::kGerman;
  console.out.flush();
  if (console.files.Exists(program)) {
    invocation.NumberOption("--code-page");  // must be a number
    std::vector<std::string> given = {"--lang", german ? "de" : "en"};
    for (const char* option : {"--vbp", "--items", "--allow-folder", "--code-page"}) {
      for (const std::string& value : invocation.Options(option)) {
        given.push_back(option);
        given.push_back(value);
      }
    }
    given.push_back(invocation.Argument("PROJECT.ovs"));
    Execute(program, given);
  }
  throw CommandError(kFile,
                     invocation.Text(kTextDesktopMissing, {{"<Folder>", console.program_folder}}));
}

}  // namespace cli
