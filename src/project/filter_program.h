// SPDX-License-Identifier: MIT
// Runs a program that reads a text and writes another one.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace project {

enum class FilterOutcome {
  kDone,
  kMissing,  // the program is not found, or cannot be started
  kFailed,   // it ended otherwise than well
  kStopped,  // by `goes_on`
};

struct FilterResult {
  FilterOutcome outcome = FilterOutcome::kDone;
  std::string output;
};

// The program is looked for in the folders of PATH, never in the current one; what it writes on
// standard error is dropped. `goes_on` is asked several times a second; false ends the program.
FilterResult RunFilter(const std::string& program, const std::vector<std::string>& arguments,
                       std::string_view input, const std::function<bool()>& goes_on);

// A program that runs, with its two ends. Implemented for each system.
class FilterProcess {
 public:
  // Null when the program cannot be started.
  static std::unique_ptr<FilterProcess> Start(const std::string& program,
                                              const std::vector<std::string>& arguments);
  virtual ~FilterProcess() = default;
  // Writes all of it and closes that end; ends early when nobody reads.
  virtual void Write(std::string_view input) = 0;
  // Reads to the end.
  virtual std::string Read() = 0;
  // Waits a moment; whether it has ended.
  virtual bool WaitAMoment() = 0;
  virtual void Kill() = 0;
  // REQUIRES: it has ended.
  virtual bool Succeeded() = 0;
};

}  // namespace project
