// SPDX-License-Identifier: MIT
// What connections, recordsets and queries say: recordset::message::kNoCurrentRow and its like.
#pragma once

#include <span>

#include "messages/message.h"

namespace recordset {

namespace message {
#define MESSAGE(name, number, english) \
  inline constexpr messages::Pattern name{messages::TextNumber{number}, english};
#include "recordset/messages.def"
#undef MESSAGE
}  // namespace message

// All of them.
std::span<const messages::Pattern> Messages();

}  // namespace recordset
