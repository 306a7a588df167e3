// SPDX-License-Identifier: MIT
#include <cxxabi.h>
#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <typeinfo>

#include "desktop/crash_log.h"

namespace desktop {

namespace {

constexpr int kSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr std::size_t kStepLength = 60;
constexpr int kMaxFrames = 64;
constexpr std::string_view kPrefix = "crash-";
constexpr std::string_view kSuffix = ".log";

// All that a signal handler needs, in memory that is there from the start.
struct State {
  std::array<char, 1024> path{};
  std::array<char, 64> version{};
  std::array<std::array<char, kStepLength + 1>, kRememberedSteps> steps{};
  std::size_t step_count = 0;
  std::atomic<bool> written = false;
};
State state;

template <std::size_t N>
void Keep(std::array<char, N>& target, std::string_view text) {
  const std::size_t length = std::min(text.size(), N - 1);
  std::copy_n(text.begin(), length, target.begin());
  target[length] = '\0';
}

// Only what a signal handler may call.
void Write(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(file, text.data(), text.size());
    if (count <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

void WriteNumber(int file, long long number) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  Write(file, {digits, static_cast<std::size_t>(end - digits)});
}

bool WriteLog(std::string_view fault) {
  if (state.path[0] == '\0') return false;
  const int file = open(state.path.data(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  if (file < 0) return false;
  Write(file, "ovformula-desktop ");
  Write(file, state.version.data());
  Write(file, "\nfault: ");
  Write(file, fault);
  Write(file, "\ntime: ");
  WriteNumber(file, static_cast<long long>(time(nullptr)));
  Write(file, "\nsteps, the last one last:\n");
  const std::size_t count = std::min(state.step_count, kRememberedSteps);
  for (std::size_t i = state.step_count - count; i < state.step_count; ++i) {
    Write(file, "  ");
    Write(file, state.steps[i % kRememberedSteps].data());
    Write(file, "\n");
  }
  Write(file, "places:\n");
  void* frames[kMaxFrames];
  backtrace_symbols_fd(frames, backtrace(frames, kMaxFrames), file);
  Write(file, "\n");
  close(file);
  return true;
}

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
  if (!state.written.exchange(true)) WriteLog(SignalName(signal));
  // The default action follows, with its core file.
  std::signal(signal, SIG_DFL);
  raise(signal);
}

// The type says enough; what() may quote a project.
void OnTerminate() {
  const std::type_info* type = abi::__cxa_current_exception_type();
  if (!state.written.exchange(true)) WriteLog(type ? type->name() : "terminate");
  std::abort();
}

std::string LogName() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[32];
  const std::size_t length = std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &parts);
  return std::string(kPrefix) + std::string(text, length) + "-" + std::to_string(getpid()) +
         std::string(kSuffix);
}

}  // namespace

void InstallCrashLog(const std::string& folder, std::string_view version) {
  const std::string path = folder + "/" + LogName();
  if (folder.empty() || path.size() >= state.path.size()) return;
  Keep(state.path, path);
  Keep(state.version, version);
  // The first call loads a library, which a signal handler must not do.
  void* frame[1];
  backtrace(frame, 1);
  // A stack that ran over leaves no room for a handler.
  static std::array<char, 64 * 1024> stack;
  stack_t alternative{};
  alternative.ss_sp = stack.data();
  alternative.ss_size = stack.size();
  sigaltstack(&alternative, nullptr);
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = SA_ONSTACK;
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
  std::set_terminate(OnTerminate);
}

void RememberStep(std::string_view step) noexcept {
  Keep(state.steps[state.step_count % kRememberedSteps], step);
  ++state.step_count;
}

std::string WriteCrashLog(std::string_view fault) noexcept {
  return WriteLog(fault) ? std::string(state.path.data()) : std::string();
}

std::string NewestCrashLog(files::FileSystem& files, const std::string& folder) {
  std::string newest;
  if (folder.empty() || !files.IsDirectory(folder)) return newest;
  for (const files::DirectoryEntry& entry : files.List(folder)) {
    if (entry.name.starts_with(kPrefix) && entry.name.ends_with(kSuffix))
      newest = std::max(newest, entry.name);  // the names are in the order of time
  }
  return newest.empty() ? newest : files.Join(folder, newest);
}

}  // namespace desktop
