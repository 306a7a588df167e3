// SPDX-License-Identifier: MIT
#include "editor/status_counters.h"

#include <limits>
#include <string>

#include "messages/text_number.h"
#include "platform/error.h"

namespace editor {

namespace {

constexpr messages::TextNumber kFirstLabel{200};
constexpr std::size_t kPanels = 4;
constexpr std::int32_t kErrOverflow = 6;

std::int32_t Sum(std::int32_t a, std::int32_t b) {
  const std::int64_t sum = std::int64_t{a} + b;
  if (sum > std::numeric_limits<std::int32_t>::max() ||
      sum < std::numeric_limits<std::int32_t>::min()) {
    throw platform::Error(platform::ErrorKind::kInternal, kErrOverflow,
                          messages::Message::Verbatim("Overflow"));
  }
  return static_cast<std::int32_t>(sum);
}

}  // namespace

StatusCounters::StatusCounters(forms::StatusBar& bar) : bar_(bar) {
  for (std::size_t i = 0; i < kPanels; ++i) bar_.AddPanel();
}

void StatusCounters::Update(CounterMode mode, Counts& counts, const forms::TextLookup& text) {
  switch (mode) {
    case CounterMode::kAdd:
      counts_ = {Sum(counts_.aliases, counts.aliases), Sum(counts_.formulas, counts.formulas),
                 Sum(counts_.arguments, counts.arguments)};
      break;
    case CounterMode::kReset:
      counts_ = {};
      break;
    case CounterMode::kSet:
      counts_ = counts;
      break;
    case CounterMode::kGet:
      counts = counts_;
      break;
  }
  bar_.SetPanelText(0, text(kFirstLabel));
  bar_.SetPanelText(1, text(kFirstLabel + 1) + std::to_string(counts_.formulas));
  bar_.SetPanelText(2, text(kFirstLabel + 2) + std::to_string(counts_.arguments));
  bar_.SetPanelText(3, text(kFirstLabel + 3) + std::to_string(counts_.aliases));
}

void StatusCounters::ShowLabels(const forms::TextLookup& text) {
  for (std::size_t i = 0; i < kPanels; ++i) {
    bar_.SetPanelText(i, text(kFirstLabel + static_cast<std::int32_t>(i)));
  }
}

}  // namespace editor
