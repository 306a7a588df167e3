// SPDX-License-Identifier: MIT
#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>

#include "desktop/crash_report.h"

namespace desktop::crash {

namespace {

constexpr int kSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr int kMaxFrames = 64;

std::string_view SignalName(int signal) {
  switch (signal) {
    case SIGSEGV:
      return "SIGSEGV";
    case SIGBUS:
      return "SIGBUS";
    case SIGFPE:
      return "SIGFPE";
    case SIGILL:
      return "SIGILL";
    default:
      return "SIGABRT";
  }
}

void OnSignal(int signal) {
  WriteOnce(SignalName(signal), nullptr);
  // The default action follows, with its core file.
  std::signal(signal, SIG_DFL);
  raise(signal);
}

int Descriptor(void* handle) { return static_cast<int>(reinterpret_cast<std::intptr_t>(handle)); }

}  // namespace

void CatchFaults() {
  // The first call loads a library, which a signal handler must not do.
  void* frame[1];
  backtrace(frame, 1);
  // A stack that ran over leaves no room for a handler.
  static std::array<char, std::size_t{64} * 1024> stack;
  stack_t alternative{};
  alternative.ss_sp = stack.data();
  alternative.ss_size = stack.size();
  sigaltstack(&alternative, nullptr);
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = SA_ONSTACK;
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

long ProcessNumber() { return getpid(); }

File::File(const char* path) {
  const std::intptr_t file = open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the handle holds what the system calls a file.
  handle_ = reinterpret_cast<void*>(file);
}

File::~File() {
  if (IsOpen()) close(Descriptor(handle_));
}

bool File::IsOpen() const { return Descriptor(handle_) >= 0; }

void File::Write(std::string_view text) const {
  while (!text.empty()) {
    const ssize_t count = write(Descriptor(handle_), text.data(), text.size());
    if (count <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

void File::WritePlaces(const void*) const {
  void* frames[kMaxFrames];
  backtrace_symbols_fd(frames, backtrace(frames, kMaxFrames), Descriptor(handle_));
}

}  // namespace desktop::crash
