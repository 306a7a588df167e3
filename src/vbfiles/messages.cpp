// SPDX-License-Identifier: MIT
#include "vbfiles/messages.h"

#include <array>

namespace vbfiles {

std::span<const messages::Pattern> Messages() {
#define MESSAGE(name, number, english) message::name,
  static constexpr messages::Pattern kAll[] = {
#include "vbfiles/messages.def"
  };
#undef MESSAGE
  return kAll;
}

}  // namespace vbfiles
