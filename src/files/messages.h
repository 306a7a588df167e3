// SPDX-License-Identifier: MIT
// What the file layer says: files::message::kCannotBeRead and its like.
#pragma once

#include <span>

#include "messages/message.h"

namespace files {

namespace message {
#define MESSAGE(name, number, english) \
  inline constexpr messages::Pattern name{messages::TextNumber{number}, english};
#include "files/messages.def"
#undef MESSAGE
}  // namespace message

// All of them.
std::span<const messages::Pattern> Messages();

}  // namespace files
