// SPDX-License-Identifier: MIT
// The code generator and the operations over it. All figures come from one run, so their ratios
// mean something on a noisy machine; smaller is better.
//
//   bench_codegen [generator|operations]...
#include <algorithm>
#include <string>
#include <vector>

#include "bench/codegen_workload.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  const auto wanted = [&](const std::string& name) {
    return arguments.empty() || std::ranges::count(arguments, name) > 0;
  };
  if (wanted("generator")) bench::CompareGenerator();
  if (wanted("operations")) bench::CompareOperations();
  return 0;
}
