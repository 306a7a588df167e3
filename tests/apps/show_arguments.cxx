// SPDX-License-Identifier: MIT
// Prints each of its arguments in brackets, as UTF-8; ends with 7.
#include <windows.h>
// Needs the types of the header above.
#include <shellapi.h>

int main() {
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) {
    char text[4096] = "[";
    ::WideCharToMultiByte(CP_UTF8, 0, words[i], -1, text + 1, sizeof text - 3, nullptr, nullptr);
    ::lstrcatA(text, "]");
    DWORD written = 0;
    ::WriteFile(::GetStdHandle(STD_OUTPUT_HANDLE), text, static_cast<DWORD>(::lstrlenA(text)),
                &written, nullptr);
  }
  return 7;
}
