// SPDX-License-Identifier: MIT
#include "tests/wx/display.h"

#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/log.h>
#include <wx/timer.h>
#include <wx/toplevel.h>

#include <memory>

#include "wx/application.h"
#include "wx/native.h"

namespace display {

namespace {

constexpr int kPatience = 5000;
constexpr int kStep = 20;
constexpr int kPause = 200;    // for a key to arrive
constexpr int kMaxTries = 60;  // of waiting for the keyboard or a condition

bool HasKeyboard() {
  for (wxWindow* window : wxTopLevelWindows) {
    auto* top = dynamic_cast<wxTopLevelWindow*>(window);
    if (top && top->IsShown() && top->IsActive()) return true;
  }
  return false;
}

wxDialog* ModalDialog() {
  for (wxWindow* window : wxTopLevelWindows) {
    auto* dialog = dynamic_cast<wxDialog*>(window);
    if (dialog && dialog->IsModal()) return dialog;
  }
  return nullptr;
}

// A dialog that the script left open would stop the test for ever.
void CloseModalDialogs() {
  wxDialog* dialog = ModalDialog();
  if (!dialog) return;
  ADD_FAILURE() << "the dialog " << dialog->GetTitle() << " is still open";
  dialog->EndModal(wxID_CANCEL);
}

int running_scripts = 0;  // while one runs, events are left to the modal window

class Script : public wxTimer {
 public:
  explicit Script(std::vector<Step> steps) : steps_(std::move(steps)) {
    ++running_scripts;
    StartOnce(300);
  }

 private:
  void Notify() override {
    if (MustWait() && ++tries_ < kMaxTries) {
      StartOnce(kStep);
    } else if (next_ < steps_.size()) {
      StartOnce(kPause);  // a step may open a modal window: the next one runs inside it
      RunStep();
    } else {
      --running_scripts;
      CloseModalDialogs();
    }
  }
  // Before the first step, until the window manager has given it the keyboard; after the last one,
  // until the modal windows are closed.
  bool MustWait() const {
    if (next_ == 0) return !HasKeyboard();
    return next_ >= steps_.size() && ModalDialog();
  }
  void RunStep() {
    std::size_t step = next_;
    if (steps_[step].Run() || ++tries_ == kMaxTries) {
      next_ = step + 1;
      tries_ = 0;
    }
  }
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  int tries_ = 0;
};

wxWindow* FindIn(const wxWindowList& windows, const wxString& name) {
  for (wxWindow* window : windows) {
    if (window->GetName() == name && window->IsShownOnScreen()) return window;
    if (wxWindow* found = FindIn(window->GetChildren(), name)) return found;
  }
  return nullptr;
}

class TestApp : public wxApp {
 public:
  bool OnInit() override {
    wx::OnDiagnostic([](const std::string& report) {
      const bool no_session_bus = report.find("bus") != std::string::npos;
      if (!no_session_bus) ADD_FAILURE() << report;
    });
    return true;
  }
  int OnRun() override {
    wxGUIEventLoop loop;
    wxEventLoopActivator activate(&loop);
    return RUN_ALL_TESTS();
  }
  void OnAssertFailure(const wxChar* file, int line, const wxChar* function,
                       const wxChar* condition, const wxChar* message) override {
    ADD_FAILURE() << "assertion of the toolkit: " << wxString(file) << ":" << line << " "
                  << wxString(function) << " " << wxString(condition) << " "
                  << wxString(message ? message : wxT(""));
  }
};

}  // namespace

void Pump(int milliseconds) {
  wxStopWatch watch;
  while (watch.Time() < milliseconds) {
    wxTheApp->Yield(true);
    wxTheApp->ProcessIdle();
    wxMilliSleep(kStep / 4);
  }
}

bool WaitFor(const std::function<bool()>& condition) {
  wxStopWatch watch;
  while (!condition()) {
    if (watch.Time() > kPatience) return false;
    Pump(kStep);
  }
  return true;
}

void Press(int key, int modifiers) {
  wxUIActionSimulator().Char(key, modifiers);
  if (running_scripts == 0) Pump(kPause);
}

void Type(const std::string& text) {
  wxUIActionSimulator().Text(text.c_str());
  if (running_scripts == 0) Pump(kPause);
}

void Click(wxWindow& window, wxPoint point, wxMouseButton button) {
  wxUIActionSimulator simulator;
  simulator.MouseMove(window.ClientToScreen(point));
  Pump(60);
  simulator.MouseClick(button);
  Pump(120);
}

void DoubleClick(wxWindow& window, wxPoint point) {
  wxUIActionSimulator simulator;
  simulator.MouseMove(window.ClientToScreen(point));
  Pump(60);
  simulator.MouseDblClick();
  Pump(120);
}

void Drag(wxWindow& window, wxPoint from, wxPoint to) {
  wxPoint start = window.ClientToScreen(from), end = window.ClientToScreen(to);
  wxUIActionSimulator simulator;
  simulator.MouseMove(start);
  Pump(60);
  simulator.MouseDown();
  Pump(60);
  constexpr int kSteps = 8;
  for (int step = 1; step <= kSteps; ++step) {
    simulator.MouseMove(start + (end - start) * step / kSteps);
    Pump(30);
  }
  simulator.MouseUp();
  Pump(120);
}

wxWindow* FindWindow(const std::string& name) { return FindIn(wxTopLevelWindows, name); }

bool ScriptRuns() { return running_scripts > 0; }

void DuringModal(std::vector<Step> steps) {
  static std::vector<std::unique_ptr<Script>> scripts;  // a timer must outlive its last notice
  scripts.push_back(std::make_unique<Script>(std::move(steps)));
}

}  // namespace display

wxIMPLEMENT_APP_NO_MAIN(display::TestApp);

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return wx::RunApp(argc, argv);
}
