// SPDX-License-Identifier: MIT
#include "jet/value.h"

namespace jet {

bool operator==(const Value& a, const Value& b) {
  if (a.kind_ != b.kind_) return false;
  switch (a.kind_) {
    case ValueKind::kNull:
      return true;
    case ValueKind::kBoolean:
    case ValueKind::kInteger:
    case ValueKind::kCurrency:
      return a.integer_ == b.integer_;
    case ValueKind::kReal:
    case ValueKind::kDate:
      return a.real_ == b.real_;
    default:
      return a.text() == b.text();
  }
}

}  // namespace jet
