// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "forms/combo_box.h"
#include "wx/control_view.h"

namespace wx {

// A native drop-down for a short list; for a long one a field that is searched by typing, with a
// virtual list below.
std::unique_ptr<ControlView> MakeComboView(forms::ComboBox& combo, wxWindow* parent,
                                           const ViewContext& context);

}  // namespace wx
