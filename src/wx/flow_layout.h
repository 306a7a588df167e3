// SPDX-License-Identifier: MIT
#pragma once

#include <wx/sizer.h>

#include <functional>
#include <memory>
#include <vector>

#include "forms/control.h"
#include "wx/control_view.h"

namespace wx {

// Makes a view for a control of the container, as a child of the window.
using ViewMaker = std::function<ControlView*(forms::Control& control, wxWindow* parent)>;

// Lays the controls of a container out in rows: labels in the first column, fields in the second,
// hints under their fields; the buttons that belong to no field end the form as a row of their own.
wxSizer* BuildFlow(forms::Container& container, wxWindow* parent, const ViewMaker& make_view);

}  // namespace wx
