// SPDX-License-Identifier: MIT
// wxWidgets' application object. On Windows its header brings the system's along, which takes a
// name away from everybody else.
#pragma once

#include <wx/app.h>

#undef MessageBox
