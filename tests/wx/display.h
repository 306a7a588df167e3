// SPDX-License-Identifier: MIT
// A running program with a display, for tests: real keys and the mouse.
#pragma once

#include <wx/uiaction.h>
#include <wx/window.h>

#include <functional>
#include <string>
#include <type_traits>
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

// One step of a script: something to do, or a condition to wait for.
class Step {
 public:
  template <class Action>
  requires std::is_void_v<std::invoke_result_t<Action>> Step(Action action)
      : run_([action] {
          action();
          return true;
        }) {}
  // Is repeated until the condition holds or patience ends.
  static Step Until(std::function<bool()> condition) { return Step(std::move(condition), 0); }

  bool Run() const { return run_(); }

 private:
  Step(std::function<bool()> run, int) : run_(std::move(run)) {}
  std::function<bool()> run_;
};

// Runs the steps one after another while modal windows are open, also those that a step opens.
// Keys are pressed, but events are left to the modal window.
void DuringModal(std::vector<Step> steps);
// Whether such steps are left, or their end has not been noticed: the next modal window would be
// taken for theirs.
bool ScriptRuns();

}  // namespace display
