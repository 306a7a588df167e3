// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "desktop/code_lookup.h"
#include "desktop/code_pane.h"
#include "desktop/window_messages.h"
#include "desktop/window_parts.h"
#include "studio/unsaved_code.h"

namespace desktop {

// Keeps copies of unsaved code while a project is open, and offers what the last session left. The
// user has a state folder.
class UnsavedCodeKeeper {
 public:
  // All of it outlives this object.
  UnsavedCodeKeeper(const WindowParts& parts, const WindowMessages& messages, CodePane& pane,
                    CodeLookup& lookup, const std::string& project);
  ~UnsavedCodeKeeper() { pane_.KeepCopiesIn(nullptr); }
  UnsavedCodeKeeper(const UnsavedCodeKeeper&) = delete;
  UnsavedCodeKeeper& operator=(const UnsavedCodeKeeper&) = delete;

  // Offers the copy that was left. One that the user neither wants back nor gives up stays for the
  // next time.
  void Offer();

 private:
  const WindowParts& parts_;
  const WindowMessages& messages_;
  CodePane& pane_;
  CodeLookup& lookup_;
  studio::UnsavedCopies copies_;
};

}  // namespace desktop
