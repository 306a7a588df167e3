// SPDX-License-Identifier: MIT
// A running program with a display, for tests: real keys and the mouse.
#pragma once

#include <wx/uiaction.h>
#include <wx/window.h>

#include <functional>
#include <string>
#include <vector>

#include "texts/text_table.h"
#include "wx/toolkit.h"

namespace display {

// Handles events for that long.
void Pump(int milliseconds);
// Handles events until the condition holds; false when it does not within a few seconds.
bool WaitFor(const std::function<bool()>& condition);

// Presses keys in the window that has the keyboard.
void Press(int key, int modifiers = wxMOD_NONE);
void Type(const std::string& text);
// Clicks at a point of a window.
void Click(wxWindow& window, wxPoint point, wxMouseButton button = wxMOUSE_BTN_LEFT);
void DoubleClick(wxWindow& window, wxPoint point);
void Drag(wxWindow& window, wxPoint from, wxPoint to);

// The window of that name among all windows; null when there is none.
wxWindow* FindWindow(const std::string& name);

// Runs the steps one after another while a modal window is open.
void DuringModal(std::vector<std::function<void()>> steps);

}  // namespace display
