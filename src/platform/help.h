// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/studio.h"

namespace platform {

// Shows topics of the help file.
class Help {
 public:
  virtual ~Help() = default;
  virtual void SetHelpFile(std::string_view path) = 0;
  // Topic 0 shows the contents.
  virtual void ShowTopic(WindowHandle owner, std::int32_t topic) = 0;
};

}  // namespace platform
