// SPDX-License-Identifier: MIT
// What is said of the machine's database provider: com::message::kProviderSays and its like.
#pragma once

#include <span>

#include "messages/message.h"

namespace com {

namespace message {
#define MESSAGE(name, number, english) \
  inline constexpr messages::Pattern name{messages::TextNumber{number}, english};
#include "com/provider_messages.def"
#undef MESSAGE
}  // namespace message

// All of them.
inline std::span<const messages::Pattern> ProviderMessages() {
#define MESSAGE(name, number, english) message::name,
  static constexpr messages::Pattern kAll[] = {
#include "com/provider_messages.def"
  };
#undef MESSAGE
  return kAll;
}

}  // namespace com
