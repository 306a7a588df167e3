// SPDX-License-Identifier: MIT
#pragma once

#include "forms/fields.h"
#include "forms/keys.h"

namespace forms {

// Ctrl+F in a list moves the keyboard to its search field.
inline void FindBy(TextBox& search, KeyEvent& event) {
  if (event.key_code != 'F' || event.shift != kControl) return;
  event.handled = true;
  search.SetFocus();
}

}  // namespace forms
