// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <utility>

#include "tests/support/child_process.h"

namespace support {

struct ChildProcess::System {
  pid_t process = -1;
  int pipe = -1;
};

long PeakMemory() {
  struct rusage usage;
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

ChildProcess::ChildProcess(const std::string& work, const Arguments& arguments)
    : system_(std::make_unique<System>()) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  system_->pipe = ends[0];
  Arguments words = {"/proc/self/exe", "--work", work};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  const int failure = ::posix_spawn(&system_->process, words[0].c_str(), &actions, nullptr,
                                    pointers.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  if (failure != 0) throw std::runtime_error("the process does not start");
}

ChildProcess::ChildProcess(ChildProcess&&) noexcept = default;

ChildProcess::~ChildProcess() {
  if (!system_) return;
  Kill();
  Wait();
  ::close(system_->pipe);
}

bool ChildProcess::Hear() {
  char told;
  return ::read(system_->pipe, &told, 1) == 1;
}

void ChildProcess::Kill() {
  if (system_->process > 0) ::kill(system_->process, SIGKILL);
}

int ChildProcess::Wait() {
  int status = 0;
  const pid_t process = std::exchange(system_->process, -1);
  if (process > 0) ::waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace support
