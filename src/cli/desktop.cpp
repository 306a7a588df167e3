// SPDX-License-Identifier: MIT
#include "cli/desktop.h"

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace cli {

namespace {

#ifdef _WIN32
constexpr const char* kProgram = "ovformula-desktop.exe";
#else
constexpr const char* kProgram = "ovformula-desktop";
#endif

// Returns only when the program cannot be started.
void Execute(const std::string& program, const std::string& project, const std::string& language) {
  const char* arguments[] = {program.c_str(), "--lang", language.c_str(), project.c_str(), nullptr};
#ifdef _WIN32
  const auto code = _spawnv(_P_WAIT, program.c_str(), arguments);
  if (code >= 0) exit(static_cast<int>(code));
#else
  execv(program.c_str(), const_cast<char* const*>(arguments));
#endif
}

}  // namespace

int OpenDesktop(Invocation& invocation) {
  Console& console = invocation.console();
  const std::string program = console.files.Join(console.program_folder, kProgram);
  const bool german = invocation.texts().GetLanguage() == texts::Language::kGerman;
  console.out.flush();
  if (console.files.Exists(program)) {
    Execute(program, invocation.Argument("PROJECT.ovs"), german ? "de" : "en");
  }
  throw CommandError(kFile,
                     invocation.Text(kTextDesktopMissing, {{"<Folder>", console.program_folder}}));
}

}  // namespace cli
