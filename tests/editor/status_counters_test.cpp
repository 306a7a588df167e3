// SPDX-License-Identifier: MIT
#include "editor/status_counters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "platform/error.h"

namespace editor {
namespace {

using testing::ElementsAre;

struct Window : forms::Form {
  forms::StatusBar sb{this, "sb"};
  Window() : Form("window") {}

  std::vector<std::string> Panels() const {
    std::vector<std::string> texts;
    for (const auto& panel : sb.Panels()) texts.push_back(panel.text);
    return texts;
  }
};

TEST(StatusCounters, AddResetSetAndGet) {
  Window window;
  StatusCounters counters(window.sb);
  const auto text = [](messages::TextNumber number) { return std::to_string(ToInt(number)) + ":"; };
  const auto update = [&](CounterMode mode, Counts counts) {
    counters.Update(mode, counts, text);
    return counts;
  };
  update(CounterMode::kSet, {3, 1, 2});
  EXPECT_THAT(window.Panels(), ElementsAre("200:", "201:1", "202:2", "203:3"));
  update(CounterMode::kAdd, {10, -1, 5});
  EXPECT_THAT(window.Panels(), ElementsAre("200:", "201:0", "202:7", "203:13"));
  EXPECT_EQ(update(CounterMode::kGet, {}), (Counts{13, 0, 7}));

  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  EXPECT_THROW(update(CounterMode::kAdd, {kMax, 0, 0}), platform::Error);
  EXPECT_THROW(update(CounterMode::kAdd, {-14, 0, kMax}), platform::Error);
  EXPECT_EQ(update(CounterMode::kGet, {}), (Counts{13, 0, 7})) << "an overflow adds nothing";

  int told = 0;
  const forms::Subscription watch = window.sb.Observe([&](forms::Property) { ++told; });
  update(CounterMode::kSet, {13, 0, 7});
  EXPECT_EQ(told, 0) << "what is shown already does not flicker";
  update(CounterMode::kReset, {});
  EXPECT_THAT(window.Panels(), ElementsAre("200:", "201:0", "202:0", "203:0"));
}

}  // namespace
}  // namespace editor
