// SPDX-License-Identifier: MIT
#include "project/filter_program.h"

#include <thread>

namespace project {

FilterResult RunFilter(const std::string& program, const std::vector<std::string>& arguments,
                       std::string_view input, const std::function<bool()>& goes_on) {
  FilterResult result;
  const auto process = FilterProcess::Start(program, arguments);
  if (!process) return {FilterOutcome::kMissing, {}};
  // Neither end may wait for the other.
  std::thread writer([&] { process->Write(input); });
  std::thread reader([&] { result.output = process->Read(); });
  while (!process->WaitAMoment()) {
    if (result.outcome == FilterOutcome::kStopped || goes_on()) continue;
    result.outcome = FilterOutcome::kStopped;
    process->Kill();
  }
  writer.join();
  reader.join();
  if (result.outcome == FilterOutcome::kDone && !process->Succeeded()) {
    result.outcome = FilterOutcome::kFailed;
  }
  return result;
}

}  // namespace project
