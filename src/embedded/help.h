// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/help.h"
#include "texts/text_table.h"

namespace embedded {

// The studio's help file where there is one, shown by the system; our help window where not.
class Help final : public platform::Help {
 public:
  explicit Help(const texts::TextTable& texts);
  ~Help() override;

  void SetHelpFile(std::string_view path) override { file_ = path; }
  void ShowTopic(platform::WindowHandle owner, std::int32_t topic) override;

 private:
  bool ShowFile(platform::WindowHandle owner, std::int32_t topic);

  const texts::TextTable& texts_;
  std::string file_;
  bool file_shown_ = false;
  std::unique_ptr<platform::Help> own_;
};

}  // namespace embedded
