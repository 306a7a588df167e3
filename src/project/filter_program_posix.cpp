// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "project/filter_program.h"

namespace project {

namespace {

class Pipe {
 public:
  Pipe() {
    if (::pipe2(ends_.data(), O_CLOEXEC) != 0) ends_ = {-1, -1};
  }
  ~Pipe() {
    CloseEnd(0);
    CloseEnd(1);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  bool valid() const { return ends_[0] >= 0; }
  int End(std::size_t which) const { return ends_[which]; }
  void CloseEnd(std::size_t which) {
    if (ends_[which] >= 0) ::close(ends_[which]);
    ends_[which] = -1;
  }

 private:
  std::array<int, 2> ends_ = {-1, -1};  // read, write
};

// Writing to a program that has ended is no reason to end.
class WithoutPipeSignal {
 public:
  WithoutPipeSignal() {
    sigset_t pipe;
    ::sigemptyset(&pipe);
    ::sigaddset(&pipe, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &pipe, nullptr);  // of a thread that ends right after
  }
};

class Process final : public FilterProcess {
 public:
  ~Process() override {
    if (process_ > 0 && !ended_) {
      Kill();
      ::waitpid(process_, &status_, 0);
    }
  }

  bool Run(const std::string& program, const std::vector<std::string>& arguments) {
    if (!input_.valid() || !output_.valid()) return false;
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input_.End(0), STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output_.End(1), STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int failure =
        ::posix_spawnp(&process_, words[0].c_str(), &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    input_.CloseEnd(0);
    output_.CloseEnd(1);
    if (failure != 0) process_ = -1;
    return failure == 0;
  }

  void Write(std::string_view input) override {
    const WithoutPipeSignal quiet;
    while (!input.empty()) {
      const ssize_t count = ::write(input_.End(1), input.data(), input.size());
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) break;
      input.remove_prefix(static_cast<std::size_t>(count));
    }
    input_.CloseEnd(1);
  }

  std::string Read() override {
    std::string text;
    std::array<char, 1 << 16> block;
    for (;;) {
      const ssize_t count = ::read(output_.End(0), block.data(), block.size());
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return text;
      text.append(block.data(), static_cast<std::size_t>(count));
    }
  }

  bool WaitAMoment() override {
    constexpr int kMilliseconds = 10;
    if (::waitpid(process_, &status_, WNOHANG) != 0) ended_ = true;
    if (!ended_) ::poll(nullptr, 0, kMilliseconds);
    return ended_;
  }
  void Kill() override { ::kill(process_, SIGKILL); }
  bool Succeeded() override { return WIFEXITED(status_) && WEXITSTATUS(status_) == 0; }

 private:
  Pipe input_;
  Pipe output_;
  pid_t process_ = -1;
  int status_ = 0;
  bool ended_ = false;
};

}  // namespace

std::unique_ptr<FilterProcess> FilterProcess::Start(const std::string& program,
                                                    const std::vector<std::string>& arguments) {
  auto process = std::make_unique<Process>();
  if (!process->Run(program, arguments)) return nullptr;
  return process;
}

}  // namespace project
