// SPDX-License-Identifier: MIT
// The main function of test programs that start themselves.
#include "tests/support/child_process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <string_view>
#include <thread>

namespace support {
namespace {

auto& Works() {
  static std::map<std::string, int (*)(const Arguments&)> works;
  return works;
}

int Do(const std::string& work, const Arguments& arguments) {
  try {
    return Works().at(work)(arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", work.c_str(), error.what());
    return 99;
  }
}

}  // namespace

Work::Work(const char* name, int (*function)(const Arguments&)) { Works()[name] = function; }

void Tell() {
  // Nobody listens any more: the test is over.
  if (std::putchar('t') == EOF || std::fflush(stdout) != 0) std::_Exit(0);
}

void Sleep(unsigned microseconds) {
  std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
}

}  // namespace support

int main(int argc, char** argv) {
  if (argc > 2 && argv[1] == std::string_view("--work")) {
    return support::Do(argv[2], support::Arguments(argv + 3, argv + argc));
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
