// SPDX-License-Identifier: MIT
#include <array>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <string>

#include "desktop/crash_report.h"
#include "files/windows_api.h"

namespace desktop::crash {

namespace {

constexpr DWORD kMaxFrames = 64;
constexpr ULONG kStackForHandler = 64 * 1024;

std::string_view ExceptionName(DWORD code) {
  switch (code) {
    case EXCEPTION_ACCESS_VIOLATION:
    case EXCEPTION_IN_PAGE_ERROR:
      return "access violation";
    case EXCEPTION_STACK_OVERFLOW:
      return "stack overflow";
    case EXCEPTION_ILLEGAL_INSTRUCTION:
    case EXCEPTION_PRIV_INSTRUCTION:
      return "illegal instruction";
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
      return "division by zero";
    default:
      return "exception of the system";
  }
}

LONG WINAPI OnException(EXCEPTION_POINTERS* pointers) {
  WriteOnce(ExceptionName(pointers->ExceptionRecord->ExceptionCode), pointers);
  return EXCEPTION_CONTINUE_SEARCH;  // the system's own report follows
}

void OnAbort(int) { WriteOnce("abort", nullptr); }

void WriteHexadecimal(const File& file, std::uintptr_t number) {
  char digits[2 * sizeof number];
  const auto end = std::to_chars(digits, digits + sizeof digits, number, 16).ptr;
  file.Write("0x");
  file.Write({digits, static_cast<std::size_t>(end - digits)});
}

// The program or library and the place in it: it may have been loaded anywhere.
void WritePlace(const File& file, const void* address) {
  HMODULE module = nullptr;
  char path[MAX_PATH] = "";
  ::GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      static_cast<const wchar_t*>(address), &module);
  if (module) ::GetModuleFileNameA(module, path, MAX_PATH);
  const std::string_view name(path);
  file.Write(name.substr(name.find_last_of('\\') + 1));
  file.Write(" + ");
  WriteHexadecimal(
      file, reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(module));
  file.Write("\r\n");
}

}  // namespace

void CatchFaults() {
  ULONG stack = kStackForHandler;
  ::SetThreadStackGuarantee(&stack);  // a stack that ran over leaves no room for a handler
  ::SetUnhandledExceptionFilter(OnException);
  std::signal(SIGABRT, OnAbort);
}

long ProcessNumber() { return static_cast<long>(::GetCurrentProcessId()); }

File::File(const char* path) {
  std::array<wchar_t, 1024> wide{};
  ::MultiByteToWideChar(CP_UTF8, 0, path, -1, wide.data(), static_cast<int>(wide.size()));
  handle_ = ::CreateFileW(wide.data(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
}

File::~File() {
  if (IsOpen()) ::CloseHandle(handle_);
}

bool File::IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

void File::Write(std::string_view text) const {
  DWORD written = 0;
  ::WriteFile(handle_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

void File::WritePlaces(const void* context) const {
  if (const auto* pointers = static_cast<const EXCEPTION_POINTERS*>(context))
    WritePlace(*this, pointers->ExceptionRecord->ExceptionAddress);
  void* frames[kMaxFrames];
  const USHORT count = ::RtlCaptureStackBackTrace(0, kMaxFrames, frames, nullptr);
  for (USHORT i = 0; i < count; ++i) WritePlace(*this, frames[i]);
}

}  // namespace desktop::crash
