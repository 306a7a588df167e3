// SPDX-License-Identifier: MIT
// A toolkit without a display: a script acts in place of the user.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "forms/menu_control.h"
#include "platform/toolkit.h"

namespace support {

// Modal forms and questions take the next step of the script; one that nothing answers is a
// failure of the test.
class ScriptedToolkit : public platform::Toolkit {
 public:
  using Step = std::function<void(forms::Form&)>;

  std::deque<Step> modal_steps;  // each acts on one modal form and hides it
  std::deque<platform::MessageResult> answers;
  std::deque<std::optional<forms::Font>> fonts;
  std::function<void(forms::Band&)> on_popup;
  std::function<bool(std::size_t done, std::size_t total)> on_progress;

  std::vector<platform::MessageBox> boxes;  // what was shown
  std::vector<std::string> popups;          // names of the bands
  std::vector<std::string> keys;            // what SendKeys got
  std::vector<platform::Pointer> pointers;
  std::vector<std::string> tasks;  // that showed progress
  std::vector<std::pair<std::size_t, std::size_t>> progress;
  std::vector<forms::Form*> loaded;
  std::vector<forms::Form*> shown;  // modeless
  int beeps = 0;
  std::string clipboard;
  std::string own_clipboard;

  ~ScriptedToolkit() override {
    EXPECT_TRUE(modal_steps.empty()) << modal_steps.size() << " dialogs were never shown";
    EXPECT_TRUE(answers.empty()) << answers.size() << " questions were never asked";
  }

  // Shows the next modal form to `step`; a form that stays open afterwards is a failure.
  void OnModal(Step step) { modal_steps.push_back(std::move(step)); }
  void Answer(platform::MessageResult result) { answers.push_back(result); }
  // The prompts of the boxes shown since the last call.
  std::vector<std::string> TakePrompts() {
    std::vector<std::string> prompts;
    for (const auto& box : boxes) prompts.push_back(box.prompt);
    boxes.clear();
    return prompts;
  }
  // Runs what CallLater put off, tasks added meanwhile included.
  void RunLater() {
    while (!later_.empty()) {
      auto task = std::move(later_.front());
      later_.pop_front();
      task();
    }
  }

  void Load(forms::Form& form) override {
    form.Load();
    loaded.push_back(&form);
  }
  void Unload(forms::Form& form) override {
    form.Unload();
    std::erase(loaded, &form);
  }
  void ShowModal(forms::Form& form, forms::Form*) override {
    form.Load();
    form.SetVisible(true);
    if (modal_steps.empty()) {
      ADD_FAILURE() << "unexpected dialog " << form.Name();
    } else {
      Step step = std::move(modal_steps.front());
      modal_steps.pop_front();
      step(form);
      EXPECT_FALSE(form.Visible()) << form.Name() << " was left open";
    }
    form.Hide();
  }
  void ShowModeless(forms::Form& form) override {
    form.Load();
    form.SetVisible(true);
    shown.push_back(&form);
  }
  platform::WindowHandle Handle(forms::Form& form) override {
    auto found = std::find(loaded.begin(), loaded.end(), &form);
    return found == loaded.end() ? 0 : 1000 + (found - loaded.begin());
  }
  platform::MessageResult Show(const platform::MessageBox& box) override {
    boxes.push_back(box);
    if (box.buttons == platform::MessageButtons::kOk) return platform::MessageResult::kOk;
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected question: " << box.prompt;
      return box.default_button;
    }
    auto answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::optional<forms::Font> ChooseFont(const forms::Font&) override {
    if (fonts.empty()) return std::nullopt;
    auto font = fonts.front();
    fonts.pop_front();
    return font;
  }
  void PopupMenu(forms::Band& band) override {
    popups.push_back(band.Name());
    if (on_popup) on_popup(band);
  }
  void SetPointer(platform::Pointer pointer) override { pointers.push_back(pointer); }
  // Every call of Show is kept; `on_progress` may stop the task.
  std::unique_ptr<platform::Progress> StartProgress(std::string_view task) override {
    class Scripted final : public platform::Progress {
     public:
      explicit Scripted(ScriptedToolkit& toolkit) : toolkit_(toolkit) {}
      bool Show(std::size_t done, std::size_t total) override {
        toolkit_.progress.emplace_back(done, total);
        return !toolkit_.on_progress || toolkit_.on_progress(done, total);
      }

     private:
      ScriptedToolkit& toolkit_;
    };
    tasks.emplace_back(task);
    return std::make_unique<Scripted>(*this);
  }
  void Beep() override { ++beeps; }
  void SetClipboardText(std::string_view text) override { SetClipboard(text, {}); }
  std::string ClipboardText() override { return clipboard; }
  void SetClipboard(std::string_view text, std::string_view own) override {
    clipboard = text;
    own_clipboard = own;
  }
  std::string OwnClipboardText() override { return own_clipboard; }
  void CallLater(std::function<void()> task) override { later_.push_back(std::move(task)); }
  void SendKeys(std::string_view text) override { keys.emplace_back(text); }

 private:
  std::deque<std::function<void()>> later_;
};

}  // namespace support
