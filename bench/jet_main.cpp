// SPDX-License-Identifier: MIT
// The database engine beside SQLite on its own format, and beside the mdbtools. All figures come
// from one run, so their ratios mean something on a noisy machine; smaller is better.
//
//   bench_jet [processes|inserts|seeks|durable|growth]...
#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/jet_workload.h"
#include "bench/report.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.size() == 3 && arguments[0] == "--durable") {
    return bench::RunDurable(arguments[1], std::strtoul(arguments[2].c_str(), nullptr, 10));
  }
  if (arguments.size() == 2 && arguments[0] == "--make") {
    bench::MakeForProcesses(arguments[1]);
    return 0;
  }
  const auto wanted = [&](const std::string& name) {
    return arguments.empty() || std::ranges::count(arguments, name) > 0;
  };
  const std::string program = argv[0];
  // First, while this program is small: the memory of its children is at least its own.
  bench::PrintHeading("ovformula", "mdbtools");
  if (wanted("processes")) bench::CompareProcesses(program);
  bench::PrintHeading("Jet", "SQLite");
  if (wanted("inserts")) bench::CompareInserts();
  if (wanted("seeks")) bench::CompareSeeks();
  if (wanted("durable")) bench::CompareDurableInserts(program);
  if (wanted("growth")) bench::ShowGrowth(1000000);
  return 0;
}
