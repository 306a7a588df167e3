// SPDX-License-Identifier: MIT
// The views of the plain controls of a dialog.
#pragma once

#include <memory>

#include "forms/fields.h"
#include "forms/status_bar.h"
#include "wx/control_view.h"

namespace wx {

std::unique_ptr<ControlView> MakeLabelView(forms::Label& label, wxWindow* parent,
                                           const ViewContext& context);
std::unique_ptr<ControlView> MakeTextBoxView(forms::TextBox& box, wxWindow* parent,
                                             const ViewContext& context);
std::unique_ptr<ControlView> MakeCheckBoxView(forms::CheckBox& box, wxWindow* parent,
                                              const ViewContext& context);
std::unique_ptr<ControlView> MakeButtonView(forms::Button& button, wxWindow* parent,
                                            const ViewContext& context);
std::unique_ptr<ControlView> MakeSplitterView(forms::Splitter& splitter, wxWindow* parent);
std::unique_ptr<ControlView> MakeStatusBarView(forms::StatusBar& bar, wxWindow* parent);

// Width in pixels that shows that many average characters in the window's font.
int WidthOfChars(const wxWindow& window, int chars);

}  // namespace wx
