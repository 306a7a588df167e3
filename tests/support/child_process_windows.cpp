// SPDX-License-Identifier: MIT
#define PSAPI_VERSION 2
#include <windows.h>
// Needs the types of the header above.
#include <psapi.h>

#include <stdexcept>
#include <utility>

#include "tests/support/child_process.h"

namespace support {

struct ChildProcess::System {
  HANDLE process = nullptr;
  HANDLE pipe = nullptr;
};

long PeakMemory() {
  PROCESS_MEMORY_COUNTERS counters = {};
  counters.cb = sizeof counters;
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
  return static_cast<long>(counters.PeakWorkingSetSize / 1024);
}

ChildProcess::ChildProcess(const std::string& work, const Arguments& arguments)
    : system_(std::make_unique<System>()) {
  char program[MAX_PATH];
  ::GetModuleFileNameA(nullptr, program, MAX_PATH);
  std::string line = "\"" + std::string(program) + "\" --work " + work;
  for (const std::string& argument : arguments) line += " \"" + argument + "\"";
  SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE write_end = nullptr;
  if (!::CreatePipe(&system_->pipe, &write_end, &inherited, 0)) throw std::runtime_error("no pipe");
  ::SetHandleInformation(system_->pipe, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOA start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
  start.hStdOutput = write_end;
  start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION started = {};
  const BOOL done = ::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                     nullptr, &start, &started);
  ::CloseHandle(write_end);
  if (!done) throw std::runtime_error("the process does not start");
  ::CloseHandle(started.hThread);
  system_->process = started.hProcess;
}

ChildProcess::ChildProcess(ChildProcess&&) noexcept = default;

ChildProcess::~ChildProcess() {
  if (!system_) return;
  Kill();
  Wait();
  ::CloseHandle(system_->pipe);
}

bool ChildProcess::Hear() {
  char told;
  DWORD count = 0;
  return ::ReadFile(system_->pipe, &told, 1, &count, nullptr) && count == 1;
}

void ChildProcess::Kill() {
  if (system_->process) ::TerminateProcess(system_->process, static_cast<UINT>(kKilled));
}

int ChildProcess::Wait() {
  const HANDLE process = std::exchange(system_->process, nullptr);
  if (!process) return 0;
  ::WaitForSingleObject(process, INFINITE);
  DWORD code = 0;
  ::GetExitCodeProcess(process, &code);
  ::CloseHandle(process);
  return static_cast<int>(code);
}

}  // namespace support
