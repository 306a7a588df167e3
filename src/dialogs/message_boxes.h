// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string_view>

#include "platform/studio.h"
#include "platform/toolkit.h"

namespace texts {
class TextTable;
}

namespace dialogs {

// The one place that shows message boxes. While one is open, and until the activation events that
// it caused have been handled, the editor window neither saves nor reloads: it asks Guarded.
class MessageBoxes {
 public:
  // Both must outlive this object.
  MessageBoxes(platform::Toolkit& toolkit, const texts::TextTable& texts);

  // An empty title is replaced by the application's.
  platform::MessageResult Show(const platform::MessageBox& box);
  // An OK button only.
  void Warn(std::string_view prompt, std::string_view detail = {});
  // What a failure has to say, alone or as the detail.
  void Warn(const std::exception& failure);
  void Warn(std::string_view prompt, const std::exception& failure);
  // Yes and No, No being the default. Whether Yes was chosen.
  bool Ask(std::string_view prompt, std::string_view detail);
  // An error text shown by the studio.
  void ShowHostError(platform::AddIn& studio, std::string_view text);

  bool Guarded() const { return *depth_ > 0; }

  // Holds the guard for as long as it lives, and over the events that are queued then. Menus of
  // the window take it too: they are no deactivation.
  class Guard {
   public:
    explicit Guard(MessageBoxes& boxes);
    ~Guard();
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

   private:
    platform::Toolkit& toolkit_;
    std::shared_ptr<std::int32_t> depth_;
  };

 private:
  platform::Toolkit& toolkit_;
  const texts::TextTable& texts_;
  std::shared_ptr<std::int32_t> depth_ = std::make_shared<std::int32_t>(0);
};

}  // namespace dialogs
