// SPDX-License-Identifier: MIT
// What the adapters say, by number in the text table.
#pragma once

#include "messages/message.h"

namespace com::message {

inline constexpr messages::Pattern kCodeNotRestored{messages::TextNumber{4001}};
inline constexpr messages::Pattern kChangedMeanwhile{messages::TextNumber{4002}};
inline constexpr messages::Pattern kNotInCodePage{messages::TextNumber{4476}};

}  // namespace com::message
