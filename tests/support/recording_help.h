// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/help.h"

namespace support {

class RecordingHelp : public platform::Help {
 public:
  struct Topic {
    platform::WindowHandle owner;
    std::int32_t number;
    friend bool operator==(const Topic&, const Topic&) = default;
  };

  std::string help_file;
  std::vector<Topic> topics;

  void SetHelpFile(std::string_view path) override { help_file = path; }
  void ShowTopic(platform::WindowHandle owner, std::int32_t topic) override {
    topics.push_back({owner, topic});
  }
};

}  // namespace support
