// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "cli/execute.h"
#include "files/windows_api.h"
#include "files/windows_path.h"

namespace cli {

namespace {

// A word of a command line as programs take it apart again: in quotes, with a backslash before
// each quote, and backslashes doubled where a quote follows them.
std::wstring Quoted(const std::wstring& word) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : word) {
    if (c == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

}  // namespace

const char* const kDesktopProgram = "ovformula-desktop.exe";

// The system has no way to take another program's place: this one waits for the end of the other.
void Execute(const std::string& program, const std::vector<std::string>& arguments) {
  const std::wstring file = files::os::SystemPath(program);
  std::wstring line = Quoted(files::os::WideText(program).value_or(L""));
  for (const std::string& argument : arguments) {
    line += L' ' + Quoted(files::os::WideText(argument).value_or(L""));
  }
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION started = {};
  if (!::CreateProcessW(file.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &start, &started)) {
    return;
  }
  ::WaitForSingleObject(started.hProcess, INFINITE);
  DWORD code = 0;
  ::GetExitCodeProcess(started.hProcess, &code);
  std::exit(static_cast<int>(code));
}

}  // namespace cli
