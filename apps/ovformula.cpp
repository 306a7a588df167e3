// SPDX-License-Identifier: MIT
// The command line program.
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "apps/terminal.h"
#include "cli/run.h"
#include "files/real_file_system.h"

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

// The first Ctrl+C asks the operation to stop and put everything back; the second ends at once
// (the next start recovers).
void OnInterrupt(int signal) {
  if (interrupted.exchange(true)) std::_Exit(128 + signal);
}

std::string Environment(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  return value ? value : "";
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::signal(SIGINT, OnInterrupt);
  cli::Console console{std::cin,
                       std::cout,
                       std::cerr,
                       files::RealFileSystem(),
                       apps::IsTerminal(apps::StandardStream::kOut),
                       apps::IsTerminal(apps::StandardStream::kError),
                       Environment,
                       apps::ProgramFolder(argv[0]),
                       &interrupted};
  const int code = cli::Run(std::vector<std::string>(argv + 1, argv + argc), console);
  std::cout.flush();
  // A reader that went away or a full disk must not look like success.
  return code == 0 && !std::cout ? 3 : code;
}
