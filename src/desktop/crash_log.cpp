// SPDX-License-Identifier: MIT
#include "desktop/crash_log.h"

#include <cxxabi.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <typeinfo>

#include "desktop/crash_report.h"

namespace desktop {

namespace {

constexpr std::size_t kStepLength = 60;
constexpr std::string_view kPrefix = "crash-";
constexpr std::string_view kSuffix = ".log";

// All that is written at the end, in memory that is there from the start.
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

void WriteNumber(const crash::File& file, long long number) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  file.Write({digits, static_cast<std::size_t>(end - digits)});
}

// The type says enough; what() may quote a project.
void OnTerminate() {
  const std::type_info* type = abi::__cxa_current_exception_type();
  crash::WriteOnce(type ? type->name() : "terminate", nullptr);
  std::abort();
}

std::string LogName() {
  const std::time_t now = std::time(nullptr);
  char text[32];
  const std::size_t length = std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", std::gmtime(&now));
  return std::string(kPrefix) + std::string(text, length) + "-" +
         std::to_string(crash::ProcessNumber()) + std::string(kSuffix);
}

bool WriteLog(std::string_view fault, const void* context) {
  if (state.path[0] == '\0') return false;
  const crash::File file(state.path.data());
  if (!file.IsOpen()) return false;
  file.Write("ovformula-desktop ");
  file.Write(state.version.data());
  file.Write("\nfault: ");
  file.Write(fault);
  file.Write("\ntime: ");
  WriteNumber(file, static_cast<long long>(std::time(nullptr)));
  file.Write("\nsteps, the last one last:\n");
  const std::size_t count = std::min(state.step_count, kRememberedSteps);
  for (std::size_t i = state.step_count - count; i < state.step_count; ++i) {
    file.Write("  ");
    file.Write(state.steps[i % kRememberedSteps].data());
    file.Write("\n");
  }
  file.Write("places:\n");
  file.WritePlaces(context);
  file.Write("\n");
  return true;
}

}  // namespace

void crash::WriteOnce(std::string_view fault, const void* context) {
  if (!state.written.exchange(true)) WriteLog(fault, context);
}

void InstallCrashLog(const std::string& folder, std::string_view version) {
  const std::string path = folder + "/" + LogName();
  if (folder.empty() || path.size() >= state.path.size()) return;
  Keep(state.path, path);
  Keep(state.version, version);
  crash::CatchFaults();
  std::set_terminate(OnTerminate);
}

void RememberStep(std::string_view step) noexcept {
  Keep(state.steps[state.step_count % kRememberedSteps], step);
  ++state.step_count;
}

std::string WriteCrashLog(std::string_view fault) noexcept {
  return WriteLog(fault, nullptr) ? std::string(state.path.data()) : std::string();
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
