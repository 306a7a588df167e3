// SPDX-License-Identifier: MIT
#include "desktop/message_log.h"

#include <utility>

namespace desktop {

namespace {

constexpr std::size_t kMost = 500;

}  // namespace

void MessageLog::Add(std::string text) {
  if (text.empty()) return;
  entries_.push_back({std::chrono::system_clock::now(), std::move(text)});
  if (entries_.size() > kMost) entries_.pop_front();
  on_added();
}

}  // namespace desktop
