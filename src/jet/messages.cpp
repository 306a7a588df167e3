// SPDX-License-Identifier: MIT
#include "jet/messages.h"

#include <array>

namespace jet {

std::span<const messages::Pattern> Messages() {
#define MESSAGE(name, number, english) message::name,
  static constexpr messages::Pattern kAll[] = {
#include "jet/messages.def"
  };
#undef MESSAGE
  return kAll;
}

}  // namespace jet
