// SPDX-License-Identifier: MIT
#define PSAPI_VERSION 2
#include <windows.h>
// Needs the types of the header above.
#include <psapi.h>

#include <algorithm>

#include "bench/process.h"
#include "bench/report.h"

namespace bench {

ProcessResult RunProcess(const std::vector<std::string>& command, const std::string& output) {
  std::string line;
  for (const std::string& part : command) line += (line.empty() ? "\"" : " \"") + part + "\"";
  SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  STARTUPINFOA start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput =
      ::CreateFileA(output.empty() ? "NUL" : output.c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                    &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION started = {};
  const Stopwatch watch;
  const BOOL done = ::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                     nullptr, &start, &started);
  ::CloseHandle(start.hStdOutput);
  if (!done) return {};
  ProcessResult result;
  // A process that has ended no longer tells under Wine.
  constexpr DWORD kMilliseconds = 20;
  do {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof counters;
    ::GetProcessMemoryInfo(started.hProcess, &counters, sizeof counters);
    const double peak = static_cast<double>(counters.PeakWorkingSetSize) / (1024 * 1024);
    result.peak_mib = std::max(result.peak_mib, peak);
  } while (::WaitForSingleObject(started.hProcess, kMilliseconds) == WAIT_TIMEOUT);
  result.seconds = watch.Seconds();
  DWORD code = 0;
  ::GetExitCodeProcess(started.hProcess, &code);
  result.exit_code = static_cast<int>(code);
  ::CloseHandle(started.hThread);
  ::CloseHandle(started.hProcess);
  return result;
}

std::string OwnProgram() {
  char program[MAX_PATH];
  ::GetModuleFileNameA(nullptr, program, MAX_PATH);
  return program;
}

bool TakeDisplay(char**) { return true; }

}  // namespace bench
