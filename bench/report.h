// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace bench {

class Stopwatch {
 public:
  double Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

double Median(std::vector<double> values);

// A heading for the comparisons that follow.
void PrintHeading(const std::string& ours, const std::string& other);
// One line: both figures, their ratio, and whether it keeps to the limit (0: none).
void PrintRatio(const std::string& what, double ours, double other, const std::string& unit,
                double limit);
void PrintNote(const std::string& text);

}  // namespace bench
