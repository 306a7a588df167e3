// SPDX-License-Identifier: MIT
#include "apps/process.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>

namespace apps {

namespace {

constexpr std::size_t kLargestBlock = 1 << 16;

std::atomic<bool> interrupted = false;

void OnInterrupt(int signal) {
  if (interrupted.exchange(true)) std::_Exit(128 + signal);
  std::signal(SIGINT, OnInterrupt);  // the system takes the handler away at each call
}

std::error_code LastError() { return {errno, std::generic_category()}; }

}  // namespace

void PrepareProcess() {
  for (const int descriptor : {kStandardInput, kStandardOutput, kStandardError}) {
    if (_get_osfhandle(descriptor) != -1) continue;
    if (_open("NUL", descriptor == kStandardInput ? _O_WRONLY : _O_RDONLY) < 0) std::_Exit(3);
  }
}

const std::atomic<bool>& CatchInterrupts() {
  std::signal(SIGINT, OnInterrupt);
  return interrupted;
}

bool IsTerminal(StandardStream stream) { return _isatty(stream) != 0; }

std::size_t Read(StandardStream stream, char* data, std::size_t size, std::error_code& failure) {
  const int count = _read(stream, data, static_cast<unsigned>(std::min(size, kLargestBlock)));
  if (count >= 0) return static_cast<std::size_t>(count);
  if (!interrupted) failure = LastError();
  return 0;
}

void Write(StandardStream stream, const char* data, std::size_t size, std::error_code& failure) {
  while (size > 0) {
    const int count = _write(stream, data, static_cast<unsigned>(std::min(size, kLargestBlock)));
    if (count < 0) {
      failure = LastError();
      return;
    }
    data += count;
    size -= static_cast<std::size_t>(count);
  }
}

std::string ProgramFolder(const char* argv0) {
  const std::string_view path = argv0;
  const auto end = path.find_last_of("\\/");
  return std::string(path.substr(0, end == std::string_view::npos ? 0 : end));
}

}  // namespace apps
