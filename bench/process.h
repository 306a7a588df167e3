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

// Runs a program with its output thrown away, or written to a file. An argument holds no quotes.
ProcessResult RunProcess(const std::vector<std::string>& command, const std::string& output = "");
// Whether a program of that name is found.
bool IsInstalled(const std::string& program);
// The program that runs, as RunProcess wants it.
std::string OwnProgram();
// Whether there is a display. Where there is none but one can be made, the program starts anew on
// that and this does not return.
bool TakeDisplay(char** argv);
// How often the command and its children make one of the system calls; -1 without strace. Not on
// Windows.
double CountSystemCalls(const std::vector<std::string>& command, const std::string& calls);

}  // namespace bench
