// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace support {

using Arguments = std::vector<std::string>;

// What a process that a test starts does; a static object of the test program. The function's
// result is the exit code; an exception is told on standard error and ends with 99.
struct Work {
  Work(const char* name, int (*function)(const Arguments&));
};

// In the started process: tells the one that started it.
void Tell();

// The most memory that this process had so far, in KiB.
long PeakMemory();

void Sleep(unsigned microseconds);

// The test program once more, as a process of its own that does one work. Killed by the destructor
// if it still runs.
class ChildProcess {
 public:
  static constexpr int kKilled = -9;

  ChildProcess(const std::string& work, const Arguments& arguments);
  ChildProcess(ChildProcess&&) noexcept;
  ~ChildProcess();

  // Waits until the process calls Tell; false when it has ended.
  bool Hear();
  void Kill();
  // Waits for the end; the exit code, or kKilled.
  int Wait();

 private:
  struct System;
  std::unique_ptr<System> system_;
};

}  // namespace support
