// SPDX-License-Identifier: MIT
#include "cli/desktop.h"

#include "cli/execute.h"

#include <string>
#include <vector>

namespace cli {

int OpenDesktop(Invocation& invocation) {
  Console& console = invocation.console();
  const std::string program = console.files.Join(console.program_folder, kDesktopProgram);
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
