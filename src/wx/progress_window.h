// SPDX-License-Identifier: MIT
#pragma once

#include <wx/stopwatch.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <memory>
#include <string>

#include "platform/toolkit.h"
#include "texts/text_table.h"

class wxDialog;
class wxGauge;
class wxStaticText;

namespace wx {

// Progress of a task that holds the program up: a window with a gauge and a Cancel button, which
// comes up when the task takes long. All other windows are disabled while it is there.
class ProgressWindow final : public platform::Progress {
 public:
  // `delay_ms`: how long the user waits before the window comes up.
  ProgressWindow(const texts::TextTable& texts, wxWindow* owner, std::string task, long delay_ms);
  ~ProgressWindow() override;

  bool Show(std::size_t done, std::size_t total) override;

 private:
  void Open();
  void Update(std::size_t done, std::size_t total);

  const texts::TextTable& texts_;
  wxWindow* owner_;
  std::string task_;
  long delay_ms_;
  wxStopWatch since_start_;
  long shown_at_ = 0;  // milliseconds after the start, of the last update
  wxDialog* dialog_ = nullptr;
  wxStaticText* text_ = nullptr;
  wxGauge* gauge_ = nullptr;
  std::unique_ptr<wxWindowDisabler> others_;
  wxWeakRef<wxWindow> focus_;
  bool stopped_ = false;
};

}  // namespace wx
