// SPDX-License-Identifier: MIT
#include "dialogs/check_field.h"

namespace dialogs {

std::string CCheckField::Filter(std::string_view text, bool report, bool beep) {
  FilteredText filtered = FilterField(text, flags_, option_);
  if (report && on_report && filtered.rejected > 0) on_report(std::to_string(filtered.rejected));
  if (beep && filtered.rejected > 0) toolkit_.Beep();
  return std::move(filtered.text);
}

void CCheckField::InitializeTextBox(forms::TextBox& text_box, std::int32_t option,
                                    std::int32_t flags) {
  option_ = option;
  flags_ = flags;
  subscription_ = text_box.Observe([this, &text_box](forms::Property property) {
    if (property == forms::Property::kText) text_box.SetText(Filter(text_box.Text(), true, true));
  });
}

void CCheckField::InitializeGridColumn(forms::Grid& grid, std::size_t column, std::int32_t option,
                                       std::int32_t flags) {
  option_ = option;
  flags_ = flags;
  subscription_ = grid.Observe([this, &grid, column](forms::Property property) {
    const bool typing = property == forms::Property::kEditValue && grid.EditActive();
    if (!typing || grid.CurrentColumn() != column || !grid.EditValue().IsText()) return;
    const std::string text = grid.EditValue().ToText();
    std::string filtered = Filter(text, true, true);
    if (filtered != text) grid.SetEditValue(filtered);
  });
}

}  // namespace dialogs
