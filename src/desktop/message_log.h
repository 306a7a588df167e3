// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>

namespace desktop {

// What the window said since it was opened, the newest last; the oldest are forgotten at last.
class MessageLog {
 public:
  struct Entry {
    std::chrono::system_clock::time_point time;
    std::string text;  // may have several lines
  };

  void Add(std::string text);
  const std::deque<Entry>& entries() const { return entries_; }

  std::function<void()> on_added = [] {};

 private:
  std::deque<Entry> entries_;
};

}  // namespace desktop
