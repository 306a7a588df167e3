// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "cli/invocation.h"
#include "codegen/code_places.h"
#include "messages/message.h"

namespace cli {

// Says what could not be searched.
void WarnOfUnread(Invocation& invocation, const std::vector<messages::Message>& unread);

// Prints places in code: file, line, column, kind, procedure; the kind in the user's words where a
// person reads it. Says what could not be searched.
void WritePlaces(Invocation& invocation, const codegen::FoundPlaces& found);

}  // namespace cli
