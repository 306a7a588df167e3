// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/timer.h>

#include <atomic>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "desktop/code_editor.h"
#include "desktop/program.h"
#include "tests/support/sample_plant.h"
#include "tests/window/input.h"
#include "tests/wx/display.h"

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
  static constexpr int kTick = 50, kQuietTicks = 8, kMaxTicks = 100;

  explicit Wait(std::function<bool()> condition) : condition_(std::move(condition)) {}
  void Notify() override {
    if (!condition_() || ++ticks_ < kQuietTicks) return;
    if (loop_.IsRunning() && wxEventLoopBase::GetActive() == &loop_) {
      Stop();
      loop_.ScheduleExit();
    } else if (ticks_ > kMaxTicks) {
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

// Plays keys and clicks, see PlayInput; ends when the program has handled them. They must also
// close the modal windows that they open.
inline void Input(const std::vector<std::string>& commands) {
  std::atomic<bool> done = false;
  int result = 0;
  std::thread sender([&] {
    result = PlayInput(commands);
    done = true;
  });
  Wait::For([&] { return done.load(); });
  sender.join();
  EXPECT_EQ(result, 0) << commands.front();
}

// The list of the grid that is shown, with its rows; null when there is none.
inline wxDataViewCtrl* ShownGrid(const wxWindow& window) {
  for (wxWindow* child : window.GetChildren()) {
    if (!child->IsShownOnScreen()) continue;
    if (auto* list = dynamic_cast<wxDataViewCtrl*>(child)) return list;
    if (wxDataViewCtrl* found = ShownGrid(*child)) return found;
  }
  return nullptr;
}

// The first child of that kind, however deep; null when there is none.
template <class Kind>
Kind* FindChild(const wxWindow& window) {
  for (wxWindow* child : window.GetChildren()) {
    if (!child) continue;
    if (auto* found = dynamic_cast<Kind*>(child)) return found;
    if (auto* found = FindChild<Kind>(*child)) return found;
  }
  return nullptr;
}

// The desktop program as its main function puts it together, on files that may be in memory.
class DesktopProgram {
 public:
  // `home`: where settings and state are kept.
  DesktopProgram(files::FileSystem& system, texts::Language language,
                 const std::string& home = "/home")
      : program_(system, {home + "/config", home + "/state"}, language),
        window_(&program_.window()) {
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
  desktop::DesktopState& state() { return program_.state(); }
  // The grid of the editor that is in front.
  wxDataViewCtrl& Grid() {
    wxDataViewCtrl* grid = ShownGrid(*window_->EditorHost());
    if (!grid) throw std::logic_error("the editor shows no grid");
    return *grid;
  }
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
    std::vector<std::string> names;
    for (const auto* formula :
         FindChild<desktop::ProjectTree>(*window_)->Tree()->Find("FORF0")->children)
      names.push_back(formula->text);
    return names;
  }
  // Chooses the entry of that name, wherever it stands in the menus, when all events are handled.
  void Choose(const std::string& name) const {
    const std::function<int(const wxMenuItemList&)> find = [&](const wxMenuItemList& items) {
      for (const wxMenuItem* item : items) {
        if (item->GetItemLabelText().utf8_string() == name && item->IsEnabled())
          return item->GetId();
        if (const int id = item->GetSubMenu() ? find(item->GetSubMenu()->GetMenuItems()) : 0)
          return id;
      }
      return 0;
    };
    int id = 0;
    const wxMenuBar* bar = window_->GetMenuBar();
    for (std::size_t i = 0; i < bar->GetMenuCount() && id == 0; ++i)
      id = find(bar->GetMenu(i)->GetMenuItems());
    ASSERT_NE(id, 0) << "no " << name << " in the menus";
    window_->CallAfter([window = window_, id] { window->ProcessCommand(id); });
  }
  desktop::CodeEditor& Code() const { return *FindChild<desktop::CodeEditor>(*window_); }
  // Puts the caret into the code by F6, which goes round.
  void GoToCode() const {
    for (int keys = 0; keys < 4 && !Code().HasFocus(); ++keys) Input({"key F6"});
    EXPECT_TRUE(Code().HasFocus());
  }
  std::string Title() const { return window_->GetTitle().utf8_string(); }
  std::string Status() const { return window_->GetStatusBar()->GetStatusText().utf8_string(); }

 private:
  desktop::Program program_;
  desktop::MainWindow* window_;
};

}  // namespace window_tests
