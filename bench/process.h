// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace bench {

struct ProcessResult {
  int exit_code = -1;  // -1: could not be started
  double seconds = 0;
  double peak_mib = 0;  // largest resident memory
};

// Runs a program with its output thrown away, or written to a file.
ProcessResult RunProcess(const std::vector<std::string>& command,
                         const std::string& output = "/dev/null");
// Whether a program of that name is found.
bool IsInstalled(const std::string& program);
// How often the command and its children make one of the system calls; -1 without strace.
double CountSystemCalls(const std::vector<std::string>& command, const std::string& calls);

}  // namespace bench
