// SPDX-License-Identifier: MIT
#include "apps/process.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "apps/console_windows.h"
#include "files/windows_path.h"
// Needs the types of the system's header.
#include <shellapi.h>

namespace apps {

namespace {

constexpr std::size_t kMaxBlock = 1 << 16;
constexpr int kInterruptedCode = 130;

std::atomic<bool> interrupted = false;

// Called on a thread of its own.
BOOL WINAPI OnControl(DWORD event) {
  const bool again = interrupted.exchange(true);
  if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) {
    if (again) ::TerminateProcess(::GetCurrentProcess(), kInterruptedCode);
    return TRUE;
  }
  // The window is closed or the user logs off: the process ends when this returns, or after some
  // seconds, in which the work is put back.
  ::Sleep(INFINITE);
  return TRUE;
}

HANDLE HandleOf(StandardStream stream) {
  constexpr DWORD kHandles[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
  return ::GetStdHandle(kHandles[stream]);
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
}

std::error_code LastFailure() {
  switch (::GetLastError()) {
    case ERROR_BROKEN_PIPE:
    case ERROR_NO_DATA:
      return {EPIPE, std::generic_category()};
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return {ENOSPC, std::generic_category()};
    case ERROR_INVALID_HANDLE:
    case ERROR_ACCESS_DENIED:
      return {EBADF, std::generic_category()};
    default:
      return {EIO, std::generic_category()};
  }
}

std::string LanguageOfUser() {
  wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
  const LCID language = MAKELCID(::GetUserDefaultUILanguage(), SORT_DEFAULT);
  ::LCIDToLocaleName(language, name, LOCALE_NAME_MAX_LENGTH, 0);
  return files::os::Utf8Text(name);
}

}  // namespace

// Files have handles of their own here; none gets that of a standard stream. A program of windows
// has no console of its own: it answers in that of its caller.
void PrepareProcess() {
  if (HandleOf(kStandardOutput) == nullptr) ::AttachConsole(ATTACH_PARENT_PROCESS);
}

const std::atomic<bool>& CatchInterrupts() {
  ::SetConsoleCtrlHandler(OnControl, TRUE);
  return interrupted;
}

bool IsTerminal(StandardStream stream) { return IsConsole(HandleOf(stream)); }

std::size_t Read(StandardStream stream, char* data, std::size_t size, std::error_code& failure) {
  static ConsoleInput console;
  const HANDLE handle = HandleOf(stream);
  if (IsConsole(handle)) {
    std::size_t count = 0;
    if (!console.Read(handle, data, size, count) && !interrupted) failure = LastFailure();
    return count;
  }
  DWORD count = 0;
  const auto block = static_cast<DWORD>(std::min(size, kMaxBlock));
  if (::ReadFile(handle, data, block, &count, nullptr)) return count;
  // The other end of a pipe was closed: so ends its text.
  if (::GetLastError() != ERROR_BROKEN_PIPE && !interrupted) failure = LastFailure();
  return 0;
}

void Write(StandardStream stream, const char* data, std::size_t size, std::error_code& failure) {
  static ConsoleOutput consoles[3];
  const HANDLE handle = HandleOf(stream);
  if (IsConsole(handle)) {
    if (!consoles[stream].Write(handle, data, size)) failure = LastFailure();
    return;
  }
  while (size > 0) {
    DWORD count = 0;
    const auto block = static_cast<DWORD>(std::min(size, kMaxBlock));
    if (!::WriteFile(handle, data, block, &count, nullptr)) {
      failure = LastFailure();
      return;
    }
    data += count;
    size -= count;
  }
}

// The narrow arguments that `main` gets have lost what the code page does not have.
std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(files::os::Utf8Text(words[i]));
  ::LocalFree(words);
  return arguments;
}

std::string Environment(const std::string& name) {
  const std::wstring wide = files::os::WideText(name).value_or(L"");
  std::wstring value(256, L'\0');
  for (;;) {
    const DWORD size =
        ::GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size()));
    const bool fits = size < value.size();
    value.resize(size);
    if (fits) break;
  }
  return value.empty() && name == "LANG" ? LanguageOfUser() : files::os::Utf8Text(value);
}

std::string ProgramFolder(const char* /*argv0*/) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (size < path.size()) {
      path.resize(size);
      break;
    }
    path.resize(2 * path.size());
  }
  return files::os::PlainPath(path.substr(0, path.find_last_of(L"\\/")));
}

}  // namespace apps
