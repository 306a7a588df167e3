// SPDX-License-Identifier: MIT
// What reading and changing Visual Basic files says: vbfiles::message::kNoSourceText and its like.
#pragma once

#include <span>

#include "messages/message.h"

namespace vbfiles {

namespace message {
#define MESSAGE(name, number, english) \
  inline constexpr messages::Pattern name{messages::TextNumber{number}, english};
#include "vbfiles/messages.def"
#undef MESSAGE
}  // namespace message

// All of them.
std::span<const messages::Pattern> Messages();

}  // namespace vbfiles
