// SPDX-License-Identifier: MIT
// What a program asks of the operating system about itself.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <system_error>
#include <vector>

namespace apps {

enum StandardStream { kStandardInput = 0, kStandardOutput = 1, kStandardError = 2 };

// To be called before anything else. Opens the standard streams that the caller closed, so that
// no file of ours gets their descriptors; using such a stream fails. Makes a limit of file sizes
// an error of the write that meets it.
void PrepareProcess();

// From now on the first Ctrl+C sets the flag that is returned, so that the work can stop and put
// everything back; the second ends the program at once (the next start recovers).
const std::atomic<bool>& CatchInterrupts();

bool IsTerminal(StandardStream stream);

// Reads up to `size` bytes. 0 at the end, after a failure (`failure` is set) and when Ctrl+C was
// pressed while there was nothing to read.
std::size_t Read(StandardStream stream, char* data, std::size_t size, std::error_code& failure);
// Writes all bytes, or sets `failure`.
void Write(StandardStream stream, const char* data, std::size_t size, std::error_code& failure);

// What `main` was given, without the program's name, as UTF-8.
std::vector<std::string> Arguments(int argc, char** argv);

// A variable of the environment as UTF-8, "" when it is unset. Where no variable says the language
// of the user, the system's own setting stands for LANG.
std::string Environment(const std::string& name);

// The folder that the running program stands in.
std::string ProgramFolder(const char* argv0);

}  // namespace apps
