// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "forms/menu_control.h"
#include "wx/control_view.h"

namespace wx {

std::unique_ptr<ControlView> MakeToolbarView(forms::Toolbar& toolbar, wxWindow* parent);

}  // namespace wx
