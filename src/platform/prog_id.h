// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/text.h"

namespace platform {

// The name of a Visual Basic class, "PumpServer.CPump". Letter case does not count. The text must
// outlive the object.
class ProgId {
 public:
  explicit ProgId(std::string_view text) : text_(text), point_(text.find('.')) {}

  // "" when only a class is named.
  std::string_view project() const {
    return point_ == std::string_view::npos ? std::string_view() : text_.substr(0, point_);
  }
  std::string_view class_name() const {
    return point_ == std::string_view::npos ? text_ : text_.substr(point_ + 1);
  }
  // Whether "CLASS" or "PROJECT.CLASS" means this class.
  bool IsNamed(std::string_view given) const {
    return EqualsIgnoringCase(given, text_) || EqualsIgnoringCase(given, class_name());
  }
  friend bool operator==(const ProgId& a, const ProgId& b) {
    return EqualsIgnoringCase(a.text_, b.text_);
  }

 private:
  std::string_view text_;
  std::size_t point_;
};

}  // namespace platform
