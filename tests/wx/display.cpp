// SPDX-License-Identifier: MIT
#include "tests/wx/display.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/log.h>
#include <wx/timer.h>
#include <wx/toplevel.h>

#include <memory>

namespace display {

namespace {

constexpr int kPatience = 5000;
constexpr int kStep = 20;
constexpr int kMostEnds = 100;
constexpr int kMostWaits = 50;  // native boxes do not tell that they have the keyboard

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

// Counts the keys that arrived, so that a test can wait for those it pressed.
class KeyCounter : public wxEventFilter {
 public:
  KeyCounter() { wxEvtHandler::AddFilter(this); }
  ~KeyCounter() override { wxEvtHandler::RemoveFilter(this); }
  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() == wxEVT_KEY_UP) ++count;
    return Event_Skip;
  }
  int count = 0;
};

class StepTimer : public wxTimer {
 public:
  explicit StepTimer(std::vector<std::function<void()>> steps) : steps_(std::move(steps)) {
    StartOnce(300);
  }

 private:
  void Notify() override {
    if (next_ == 0 && !HasKeyboard() && ++waits_ < kMostWaits) {
      StartOnce(kStep);  // the window manager still has to give it the keyboard
      return;
    }
    if (next_ == steps_.size()) {
      if (++ends_ < kMostEnds && ModalDialog()) {
        StartOnce(kStep);
        return;
      }
      CloseModalDialogs();
      wxTheApp->CallAfter([this] { delete this; });
      return;
    }
    auto step = steps_[next_++];
    StartOnce(200);  // a step may open a modal window: the next one runs inside it
    step();
  }
  std::vector<std::function<void()>> steps_;
  std::size_t next_ = 0;
  int waits_ = 0;
  int ends_ = 0;
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
  bool OnInit() override { return true; }
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
  KeyCounter keys;
  wxUIActionSimulator().Char(key, modifiers);
  // Native parts swallow keys without a word: then it is a matter of time.
  for (int waited = 0; keys.count == 0 && waited < 10; ++waited) Pump(kStep);
  Pump(kStep);
}

void Type(const std::string& text) {
  for (char c : text) {
    KeyCounter keys;
    wxUIActionSimulator().Text(std::string(1, c).c_str());
    for (int waited = 0; keys.count == 0 && waited < 10; ++waited) Pump(kStep);
  }
  Pump(kStep);
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
  simulator.MouseMove((start.x + end.x) / 2, (start.y + end.y) / 2);
  Pump(60);
  simulator.MouseMove(end);
  Pump(60);
  simulator.MouseUp();
  Pump(120);
}

wxWindow* FindWindow(const std::string& name) { return FindIn(wxTopLevelWindows, name); }

void DuringModal(std::vector<std::function<void()>> steps) { new StepTimer(std::move(steps)); }

}  // namespace display

wxIMPLEMENT_APP_NO_MAIN(display::TestApp);

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return wxEntry(argc, argv);
}
