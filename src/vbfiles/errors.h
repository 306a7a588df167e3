// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "files/error.h"
#include "messages/message.h"
#include "platform/vbide.h"

namespace vbfiles {

inline constexpr std::int32_t kErrInvalidCall = 5;  // invalid procedure call or argument

// The failed file operation as the environment reports it, with Visual Basic's number for it.
platform::Error FromFileError(const files::Error& error);

// Error 9: a line number or an index that does not exist.
platform::Error SubscriptError(const messages::Message& message);

}  // namespace vbfiles
