// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace forms {

// A font as the object models describe it. The size is in points.
struct Font {
  std::string name = "Arial";
  double size = 8.25;
  std::int32_t charset = 0;
  bool italic = false;
  bool strikethrough = false;
  bool underline = false;
  std::int32_t weight = 400;  // 400 normal, 700 bold

  bool bold() const { return weight > 400; }

  friend bool operator==(const Font&, const Font&) = default;
};

}  // namespace forms
