// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/statusbr.h>
#include <wx/timer.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "desktop/help_viewer.h"
#include "desktop/main_window.h"
#include "tests/support/sample_plant.h"
#include "tests/wx/display.h"
#include "workbench/language.h"
#include "wx/window_system.h"

namespace window_tests {

// Runs the event loop until the condition holds, and a little longer for what comes of it. A modal
// window that stays open is closed, which is a failure.
class Wait : public wxTimer {
 public:
  static void For(std::function<bool()> condition) {
    Wait wait(std::move(condition));
    wait.Start(kTick);
    wait.loop_.Run();
  }

 private:
  static constexpr int kTick = 50, kQuietTicks = 8, kMostTicks = 100;

  explicit Wait(std::function<bool()> condition) : condition_(std::move(condition)) {}
  void Notify() override {
    if (!condition_() || ++ticks_ < kQuietTicks) return;
    if (loop_.IsRunning() && wxEventLoopBase::GetActive() == &loop_) {
      Stop();
      loop_.ScheduleExit();
    } else if (ticks_ > kMostTicks) {
      CloseModal();
    }
  }
  static void CloseModal() {
    for (wxWindow* window : wxTopLevelWindows) {
      auto* dialog = dynamic_cast<wxDialog*>(window);
      if (!dialog || !dialog->IsModal()) continue;
      ADD_FAILURE() << "still open: " << dialog->GetTitle();
      return dialog->EndModal(wxID_CANCEL);
    }
  }

  std::function<bool()> condition_;
  wxGUIEventLoop loop_;
  int ticks_ = 0;
};

// Keys and clicks from another process, as xdotool's commands; ends when the program has handled
// them. They must also close the modal windows that they open.
inline void Input(const std::vector<std::string>& commands) {
  std::string chain;
  for (const std::string& command : commands) {
    chain += (chain.empty() ? "xdotool " : " && sleep 0.1 && xdotool ") + command;
  }
  std::atomic<bool> done = false;
  int result = 0;
  std::thread sender([&] {
    result = std::system(chain.c_str());
    done = true;
  });
  Wait::For([&] { return done.load(); });
  sender.join();
  EXPECT_EQ(result, 0) << chain;
}

// The list of the grid that is shown, with its rows; null when there is none.
inline wxDataViewCtrl* ShownGrid(const wxWindow& window) {
  for (wxWindow* child : window.GetChildren()) {
    auto* list = dynamic_cast<wxDataViewCtrl*>(child);
    if (list && list->IsShownOnScreen()) return list;
    if (wxDataViewCtrl* found = ShownGrid(*child)) return found;
  }
  return nullptr;
}

// The desktop program as its main function puts it together, on files that may be in memory.
class DesktopProgram {
 public:
  // `home`: where settings and state are kept.
  DesktopProgram(files::FileSystem& system, texts::Language language,
                 const std::string& home = "/home")
      : texts_(language), toolkit_(texts_), help_(texts_), settings_(system, home + "/config") {
    settings_.Override(texts::kLanguageKey, texts::kLanguageValue, workbench::LcidOf(language));
    state_ = std::make_unique<desktop::DesktopState>(settings_, system, home + "/state");
    workbench::ProjectOptions options;
    options.state_folder = home + "/state";
    window_ = new desktop::MainWindow(
        {system, toolkit_, window_system_, help_, settings_, texts_, *state_, options});
    window_->Show();
    Wait::For([this] { return window_->IsActive(); });
  }
  // Closes the window as its user would.
  ~DesktopProgram() {
    window_->Close();
    Wait::For([] { return true; });
  }

  bool Open(const std::string& database = support::kPlantDatabase) {
    const bool open = window_->OpenProject(database);
    Wait::For([] { return true; });
    return open;
  }

  desktop::MainWindow& window() const { return *window_; }
  desktop::DesktopState& state() { return *state_; }
  // The grid of the editor that is in front.
  wxDataViewCtrl& Grid() { return *ShownGrid(*window_->EditorHost()); }
  int Rows() {
    return static_cast<int>(
        dynamic_cast<wxDataViewVirtualListModel*>(Grid().GetModel())->GetCount());
  }
  // Position of the row with the keyboard; -1 when there is none.
  int CurrentRow() {
    const wxDataViewItem item = Grid().GetCurrentItem();
    auto* model = dynamic_cast<wxDataViewVirtualListModel*>(Grid().GetModel());
    return item.IsOk() ? static_cast<int>(model->GetRow(item)) : -1;
  }
  // The names of the formulas in the tree.
  std::vector<std::string> FormulaNodes() const {
    const wxDataViewModel& model = *ShownGrid(*window_)->GetModel();
    wxDataViewItemArray top, branches, formulas;
    model.GetChildren(wxDataViewItem(), top);
    model.GetChildren(top.at(0), branches);
    model.GetChildren(branches.at(1), formulas);
    std::vector<std::string> names;
    for (const wxDataViewItem& formula : formulas) {
      wxVariant value;
      model.GetValue(value, formula, 0);
      wxDataViewIconText name;
      name << value;
      names.push_back(name.GetText().utf8_string());
    }
    return names;
  }
  std::string Title() const { return window_->GetTitle().utf8_string(); }
  std::string Status() const { return window_->GetStatusBar()->GetStatusText().utf8_string(); }

 private:
  texts::TextTable texts_;
  desktop::DesktopToolkit toolkit_;
  wx::WindowSystem window_system_{"OVFormulaEditor.dll"};
  desktop::HelpViewer help_;
  workbench::FileSettingsService settings_;
  std::unique_ptr<desktop::DesktopState> state_;
  desktop::MainWindow* window_;  // destroys itself
};

}  // namespace window_tests
