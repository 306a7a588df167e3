// SPDX-License-Identifier: MIT
#include "apps/process.h"

#include <fcntl.h>
#include <sys/select.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>

namespace apps {

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

void OnInterrupt(int signal) {
  if (interrupted.exchange(true)) std::_Exit(128 + signal);
}

std::error_code LastError() { return {errno, std::generic_category()}; }

// Returns when there is something to read or Ctrl+C was pressed, also a moment before the call.
void WaitForInput(int descriptor) {
  sigset_t interrupt, before;
  sigemptyset(&interrupt);
  sigaddset(&interrupt, SIGINT);
  sigprocmask(SIG_BLOCK, &interrupt, &before);
  fd_set set;
  do {
    FD_ZERO(&set);
    FD_SET(descriptor, &set);
  } while (!interrupted && pselect(descriptor + 1, &set, nullptr, nullptr, nullptr, &before) < 0 &&
           errno == EINTR);
  sigprocmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace

void PrepareProcess() {
  for (const int descriptor : {kStandardInput, kStandardOutput, kStandardError}) {
    if (fcntl(descriptor, F_GETFD) >= 0 || errno != EBADF) continue;
    // The lowest that is free, thus this one; open for what nobody does with it.
    if (open("/dev/null", descriptor == kStandardInput ? O_WRONLY : O_RDONLY) < 0) std::_Exit(3);
  }
  std::signal(SIGXFSZ, SIG_IGN);
}

const std::atomic<bool>& CatchInterrupts() {
  struct sigaction action = {};
  sigaction(SIGINT, nullptr, &action);
  if (action.sa_handler == SIG_IGN) return interrupted;  // the caller does not want it
  action = {};
  action.sa_handler = OnInterrupt;
  sigaction(SIGINT, &action, nullptr);
  return interrupted;
}

bool IsTerminal(StandardStream stream) { return isatty(stream) == 1; }

std::size_t Read(StandardStream stream, char* data, std::size_t size, std::error_code& failure) {
  WaitForInput(stream);
  if (interrupted) return 0;
  ssize_t count;
  do {
    count = read(stream, data, size);
  } while (count < 0 && errno == EINTR && !interrupted);
  if (count >= 0) return static_cast<std::size_t>(count);
  if (errno != EINTR) failure = LastError();
  return 0;
}

void Write(StandardStream stream, const char* data, std::size_t size, std::error_code& failure) {
  while (size > 0) {
    const ssize_t count = write(stream, data, size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) {
      failure = LastError();
      return;
    }
    data += count;
    size -= static_cast<std::size_t>(count);
  }
}

std::vector<std::string> Arguments(int argc, char** argv) {
  return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

std::string Environment(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  return value ? value : "";
}

std::string ProgramFolder(const char* argv0) {
  char buffer[4096];
  const ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer);
  const std::string_view path =
      length > 0 ? std::string_view(buffer, static_cast<std::size_t>(length)) : argv0;
  return std::string(
      path.substr(0, path.rfind('/') == std::string_view::npos ? 0 : path.rfind('/')));
}

}  // namespace apps
