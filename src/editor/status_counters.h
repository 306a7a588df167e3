// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "forms/form.h"
#include "forms/status_bar.h"

namespace editor {

struct Counts {
  std::int32_t aliases = 0;
  std::int32_t formulas = 0;
  std::int32_t arguments = 0;
  friend bool operator==(const Counts&, const Counts&) = default;
};

enum class CounterMode { kAdd = 0, kReset = 1, kSet = 2, kGet = 3 };

// The counts in the panels of the status bar.
class StatusCounters {
 public:
  // The bar must outlive the counters; it gets its four panels.
  explicit StatusCounters(forms::StatusBar& bar);

  // Adds, resets, sets or (kGet) returns the counts in `counts`, then writes the panels. Raises
  // platform::Error when a sum overflows; the counts stay as they were then.
  void Update(CounterMode mode, Counts& counts, const forms::TextLookup& text);

  // The panels' labels alone.
  void ShowLabels(const forms::TextLookup& text);

 private:
  forms::StatusBar& bar_;
  Counts counts_;
};

}  // namespace editor
