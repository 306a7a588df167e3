// SPDX-License-Identifier: MIT
#include "bench/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "bench/report.h"

namespace bench {

ProcessResult RunProcess(const std::vector<std::string>& command, const std::string& output) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& part : command) arguments.push_back(const_cast<char*>(part.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO,
                                   output.empty() ? "/dev/null" : output.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const Stopwatch watch;
  pid_t child = 0;
  const int started =
      posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (started != 0) return {};
  int status = 0;
  rusage usage = {};
  wait4(child, &status, 0, &usage);
  ProcessResult result;
  result.seconds = watch.Seconds();
  result.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.peak_mib = static_cast<double>(usage.ru_maxrss) / 1024;
  return result;
}

bool IsInstalled(const std::string& program) {
  const char* path = getenv("PATH");
  std::istringstream folders(path ? path : "");
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (access((folder + "/" + program).c_str(), X_OK) == 0) return true;
  }
  return false;
}

std::string OwnProgram() { return "/proc/self/exe"; }

bool TakeDisplay(char** argv) {
  if (getenv("DISPLAY")) return true;
  if (!IsInstalled("xvfb-run") || !IsInstalled("openbox")) return false;
  execlp("xvfb-run", "xvfb-run", "-a", "-s", "-screen 0 1280x900x24", "sh", "-c",
         "openbox >/dev/null 2>&1 & NO_AT_BRIDGE=1 GTK_THEME=Adwaita exec \"$0\"", argv[0],
         nullptr);
  return false;
}

double CountSystemCalls(const std::vector<std::string>& command, const std::string& calls) {
  if (!IsInstalled("strace")) return -1;
  char log[] = "/tmp/bench-calls-XXXXXX";
  close(mkstemp(log));
  std::vector<std::string> traced = {"strace", "-f", "-o", log, "-e", "trace=" + calls};
  traced.insert(traced.end(), command.begin(), command.end());
  const ProcessResult result = RunProcess(traced);
  double count = 0;
  std::ifstream lines(log);
  for (std::string line; std::getline(lines, line);) count += line.find('(') != std::string::npos;
  unlink(log);
  return result.exit_code == 0 ? count : -1;
}

}  // namespace bench
