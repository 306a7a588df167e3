// SPDX-License-Identifier: MIT
// Lists of thousands take a time that grows with them, not with their square.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <string>

#include "tests/cli/transcript.h"

namespace {

constexpr int kSmall = 1000, kLarge = 8 * kSmall;

// Of the programs that have ended, in seconds.
double ProcessorTime() {
  rusage usage;
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// A class of procedures that all hold the same line, and lists that name them.
class Lists {
 public:
  explicit Lists(int count) {
    EXPECT_EQ(room_.Run("ovformula new Plant.ovs 2>/dev/null"), "");
    std::ofstream code(room_.folder() / "room/CFormulas.cls", std::ios::app | std::ios::binary);
    std::ofstream names(room_.folder() / "room/names"), list(room_.folder() / "room/list.csv");
    list << "Name,Type\n";
    for (int i = 0; i < 10; ++i) code << "' Note " << i << "\r\n";
    for (int i = 0; i < count; ++i) {
      const std::string name = "P" + std::to_string(i);
      code << "Public Sub " << name << "()\r\n  limit = 1\r\nEnd Sub\r\n";
      names << name << '\n';
      list << name << ",2\n";
    }
  }

  // Processor time of a command that is to succeed.
  double Time(const std::string& command) {
    const double before = ProcessorTime();
    EXPECT_EQ(room_.Run(command + " >/dev/null 2>said || head -n 3 said"), "") << command;
    return ProcessorTime() - before;
  }

 private:
  transcript::Room room_;
};

TEST(LongLists, TakeTimeByTheirLength) {
  Lists small(kSmall), large(kLarge);
  const auto expect_linear = [&](const std::string& command) {
    const double one = small.Time(command), eight = large.Time(command);
    EXPECT_LT(eight, 20 * std::max(one, 0.01)) << command << ": " << one << " s, " << eight << " s";
  };
  // An operation that another one came after.
  for (const char* letter : {"A", "B"}) {
    expect_linear(
        std::string("sed 's/.*/X&,C.F,2,X&:in/;1i Name,ProgID,Type,arguments' names | tr X ") +
        letter + " | ovformula import Plant.ovs - --create-aliases --no-code");
  }
  expect_linear("ovformula undo Plant.ovs 1");
  // Procedures that stand there become formulas; the same list again changes nothing.
  expect_linear("ovformula import Plant.ovs list.csv");
  expect_linear("ovformula import Plant.ovs list.csv");
  // Somebody adds a line at the top: each place is found by what stands around it.
  expect_linear("ovformula find Plant.ovs limit --word --replace bound");
  expect_linear("sed -i \"s/^' Note 0/' Mine\\r\\n&/\" CFormulas.cls");
  expect_linear("ovformula undo Plant.ovs");
  expect_linear("ovformula formula delete Plant.ovs - <names");
}

}  // namespace
