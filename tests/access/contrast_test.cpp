// SPDX-License-Identifier: MIT
// Text in our own colours can be read: 4.5 : 1 at least, as the guidelines for accessible content
// reckon contrast.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <regex>
#include <string>
#include <utility>

#include "desktop/colours.h"
#include "helpwindow/help_colours.h"
#include "project/report_style.h"

namespace {

constexpr double kMinimum = 4.5;

// "#rrggbb" or "#rgb".
double Luminance(const std::string& colour) {
  std::string digits = colour.substr(1);
  if (digits.size() == 3)
    digits = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
  constexpr std::array<double, 3> kWeights = {0.2126, 0.7152, 0.0722};
  double sum = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const double value = std::stoi(digits.substr(2 * i, 2), nullptr, 16) / 255.0;
    sum +=
        kWeights[i] * (value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4));
  }
  return sum;
}

double Contrast(const std::string& a, const std::string& b) {
  const double light = std::max(Luminance(a), Luminance(b));
  const double dark = std::min(Luminance(a), Luminance(b));
  return (light + 0.05) / (dark + 0.05);
}

void ExpectReadable(const std::string& text, const std::string& paper) {
  EXPECT_GE(Contrast(text, paper), kMinimum) << text << " on " << paper;
}

TEST(Contrast, IsReckonedAsTheGuidelinesSay) {
  EXPECT_NEAR(Contrast("#000", "#ffffff"), 21.0, 0.01);
  EXPECT_NEAR(Contrast("#777777", "#ffffff"), 4.48, 0.01);
}

TEST(Contrast, OfTheCodeIsEnough) {
  for (const desktop::CodePalette& code : {desktop::kLightCode, desktop::kDarkCode}) {
    ExpectReadable(code.comment, code.margin);
    for (const char* text : {code.ink, code.comment, code.keyword, code.string, code.number}) {
      ExpectReadable(text, code.paper);
      ExpectReadable(text, code.selection);
    }
  }
}

TEST(Contrast, OfTheDataFlowIsEnough) {
  for (const desktop::FlowPalette& flow : {desktop::kLightFlow, desktop::kDarkFlow}) {
    for (const char* fill : {flow.paper, flow.formula, flow.disabled, flow.item, flow.contested})
      ExpectReadable(flow.ink, fill);
    for (const char* line : {flow.read, flow.write, flow.formula_frame, flow.item_frame})
      ExpectReadable(line, flow.paper);
  }
}

TEST(Contrast, OfComparedLinesIsEnough) {
  for (const auto& [lines, paper] : {std::pair{desktop::kLightChange, desktop::kLightCode.paper},
                                     std::pair{desktop::kDarkChange, desktop::kDarkCode.paper}}) {
    for (const char* text : {lines.removed, lines.added, lines.place}) ExpectReadable(text, paper);
  }
}

TEST(Contrast, OfTheHelpIsEnough) {
  // The papers and inks of the desktops' usual themes.
  for (const char* paper : {"#ffffff", "#fcfcfc", "#f6f5f4", helpwindow::kLightHelp.shade}) {
    ExpectReadable(helpwindow::kLightHelp.link, paper);
    ExpectReadable("#2e3436", paper);
  }
  for (const char* paper : {"#1e1e1e", "#2d2d2d", "#353535", helpwindow::kDarkHelp.shade}) {
    ExpectReadable(helpwindow::kDarkHelp.link, paper);
    ExpectReadable("#ffffff", paper);
  }
}

// The report's colours are the custom properties of its style sheet: screen, dark screen, print.
TEST(Contrast, OfTheReportIsEnough) {
  const std::string style = project::kReportStyle;
  const std::regex block(":root \\{([^}]*)\\}"), property("--([a-z]+): (#[0-9a-f]+)");
  int blocks = 0;
  for (std::sregex_iterator found(style.begin(), style.end(), block), end; found != end; ++found) {
    const std::string text = (*found)[1];
    std::map<std::string, std::string> colours;
    for (std::sregex_iterator at(text.begin(), text.end(), property); at != end; ++at)
      colours[(*at)[1]] = (*at)[2];
    for (const char* ink : {"ink", "soft", "accent"})
      ExpectReadable(colours.at(ink), colours.at("paper"));
    for (const char* ink : {"ink", "accent", "comment", "string"})
      ExpectReadable(colours.at(ink), colours.at("code"));
    ++blocks;
  }
  EXPECT_EQ(blocks, 3);
}

}  // namespace
