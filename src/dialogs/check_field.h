// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "dialogs/field_filter.h"
#include "forms/fields.h"
#include "forms/grid.h"
#include "forms/observable.h"
#include "platform/toolkit.h"

namespace dialogs {

// Guards what can be typed into one text box or one column of a grid: characters that the kind of
// the field does not take vanish as they come, with a beep. Flags are a FieldKind and
// kFieldAllowsBlanks; the option is the greatest number of characters, 0 for no limit. The control
// must outlive the guard.
class CCheckField {
 public:
  explicit CCheckField(platform::Toolkit& toolkit) : toolkit_(toolkit) {}

  void InitializeTextBox(forms::TextBox& text_box, std::int32_t option, std::int32_t flags);
  // Other columns of the grid pass unchecked.
  void InitializeGridColumn(forms::Grid& grid, std::size_t column, std::int32_t option,
                            std::int32_t flags);

  // Hears how many characters were left out; nobody does at first.
  std::function<void(const std::string& rejected)> on_report;

 private:
  std::string Filter(std::string_view text, bool report, bool beep);

  platform::Toolkit& toolkit_;
  std::int32_t option_ = 0;
  std::int32_t flags_ = 0;
  forms::Subscription subscription_;
};

}  // namespace dialogs
