// SPDX-License-Identifier: MIT
#include "files/messages.h"

namespace files {

std::span<const messages::Pattern> Messages() {
#define MESSAGE(name, number, english) message::name,
  static constexpr messages::Pattern kAll[] = {
#include "files/messages.def"
  };
#undef MESSAGE
  return kAll;
}

}  // namespace files
