// SPDX-License-Identifier: MIT
// Operations on formulas, arguments and aliases, as whole processes and in one. All figures come
// from one run, so their ratios mean something on a noisy machine; smaller is better.
//
//   bench_operations [start|processes|inside|history]...
#include <algorithm>
#include <string>
#include <vector>

#include "bench/operations_workload.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const auto wanted = [&](const std::string& name) {
    return arguments.empty() || std::ranges::count(arguments, name) > 0;
  };
  const std::string self = argv[0];
  const std::string folder = self.substr(0, self.rfind('/') + 1);
  if (wanted("start")) bench::CompareStart(folder + "ovformula", folder + "empty-program");
  if (wanted("processes")) bench::CompareOperationProcesses(folder + "ovformula");
  if (wanted("inside")) bench::CompareOperationsInProcess();
  if (wanted("history")) bench::CompareHistory();
  return 0;
}
