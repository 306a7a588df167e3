// SPDX-License-Identifier: MIT
#include "exchange/series.h"

#include <gtest/gtest.h>

#include "messages/error.h"

namespace exchange {
namespace {

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : " ") + text;
  return joined;
}

TEST(Series, AreWrittenOut) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"Tank", "Tank"},
      {"Tank{1..3}.Level", "Tank1.Level Tank2.Level Tank3.Level"},
      {"{3..1}", "3 2 1"},
      {"{08..11}", "08 09 10 11"},
      {"{1..03}", "01 02 03"},
      {"{0..2}", "0 1 2"},
      {"{5..5}x", "5x"},
      {"P{A,B,}x", "PAx PBx Px"},
      {"{1..2}{a,b}", "1a 1b 2a 2b"},
      {"{GUID}", "{GUID}"},
      {"{}", "{}"},
      {"a{", "a{"},
      {"{1..}", "{1..}"},
      {"{-1..2}", "{-1..2}"},
      {"{a{1..2}", "{a1 {a2"},
      {"{{1..2}", "{1..2}"},
      {"{{{1..2}}", "{1} {2}"},
      {"{99999999999..99999999999}", "{99999999999..99999999999}"},
  };
  for (const auto& c : cases) EXPECT_EQ(Joined(Expand(c.text)), c.expected) << c.text;
}

TEST(Series, HaveALimit) {
  EXPECT_EQ(Series("{1..100000}").size(), 100000u);
  for (const char* text : {"{0..100000}", "{1..400}{1..251}", "{999999999..0}"}) {
    EXPECT_THROW(Series{text}, messages::Error) << text;
  }
}

TEST(Series, TextsCanBeWrittenSoThatTheyAreNone) {
  for (const char* text :
       {"", "a", "{1..2}", "{{1..2}", "{{{", "{a,b}{", "x{{y", "{GUID}", "{1..9999999}"}) {
    EXPECT_EQ(Expand(WithoutSeries(text)), std::vector<std::string>{text});
  }
  EXPECT_EQ(WithoutSeries("{GUID}"), "{GUID}");
}

}  // namespace
}  // namespace exchange
