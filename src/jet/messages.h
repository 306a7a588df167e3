// SPDX-License-Identifier: MIT
// What the database engine says: jet::message::kNoTable and its like.
#pragma once

#include <span>

#include "messages/message.h"

namespace jet {

namespace message {
#define MESSAGE(name, number, english) \
  inline constexpr messages::Pattern name{messages::TextNumber{number}, english};
#include "jet/messages.def"
#undef MESSAGE
}  // namespace message

// All of them.
std::span<const messages::Pattern> Messages();

}  // namespace jet
