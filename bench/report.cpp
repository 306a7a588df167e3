// SPDX-License-Identifier: MIT
#include "bench/report.h"

#include <algorithm>
#include <cstdio>

namespace bench {

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void PrintHeading(const std::string& ours, const std::string& other) {
  std::printf("\n%-52s %12s %12s %8s %8s\n", "", ours.c_str(), other.c_str(), "ratio", "limit");
}

void PrintRatio(const std::string& what, double ours, double other, const std::string& unit,
                double limit) {
  const double ratio = other > 0 ? ours / other : 0;
  char bound[32] = "";
  if (limit > 0) std::snprintf(bound, sizeof bound, "%7.2f%s", limit, ratio <= limit ? "" : " !");
  std::printf("%-52s %12.4g %12.4g %8.2f %s\n", (what + " [" + unit + "]").c_str(), ours, other,
              ratio, bound);
  std::fflush(stdout);
}

void PrintNote(const std::string& text) {
  std::printf("%s\n", text.c_str());
  std::fflush(stdout);
}

}  // namespace bench
