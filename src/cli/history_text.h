// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "history/entries.h"
#include "project/change_text.h"

namespace cli {

// An entry of the history as one JSON object.
std::string EntryJson(const history::Entry& entry, const std::string& title,
                      const project::ToUtf8& to_utf8);

}  // namespace cli
