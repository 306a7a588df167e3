// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "exchange/place.h"

namespace exchange {

struct RefusedLine {
  Place place;
  std::string reason;
};

// Of the bytes of a list just those lines, with a column or member more that says why; to be mended
// and read again. `reason_name` is the column's: "Reason" or "Grund". A table is written as it was,
// in UTF-8 with a mark.
std::string WriteRefusedLines(std::string bytes, const std::vector<RefusedLine>& lines,
                              const std::string& reason_name);

}  // namespace exchange
