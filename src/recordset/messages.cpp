// SPDX-License-Identifier: MIT
#include "recordset/messages.h"

#include <array>

namespace recordset {

std::span<const messages::Pattern> Messages() {
#define MESSAGE(name, number, english) message::name,
  static constexpr messages::Pattern kAll[] = {
#include "recordset/messages.def"
  };
#undef MESSAGE
  return kAll;
}

}  // namespace recordset
