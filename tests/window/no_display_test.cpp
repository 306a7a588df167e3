// SPDX-License-Identifier: MIT
// What the program answers where there is no display.
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>

#include <string>
#include <utility>

namespace {

// Exit code and output of the program without a display.
std::pair<int, std::string> Answer(const std::string& arguments) {
  const std::string command =
      "env -u DISPLAY -u WAYLAND_DISPLAY " OV_DESKTOP_PROGRAM " " + arguments + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  char buffer[256];
  while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe)) {
    output.append(buffer, count);
  }
  return {WEXITSTATUS(pclose(pipe)), output};
}

TEST(NoDisplay, HelpAndVersionNeedNone) {
  for (const char* option : {"--help", "-h", "--lang de --help"}) {
    const auto [code, output] = Answer(option);
    EXPECT_EQ(code, 0) << option;
    EXPECT_NE(output.find("--code-page"), std::string::npos) << output;
  }
  const auto [code, output] = Answer("--version");
  EXPECT_EQ(code, 0);
  EXPECT_TRUE(output.starts_with("ovformula-desktop ")) << output;
}

TEST(NoDisplay, WindowSaysWhatItLacks) {
  const auto [code, output] = Answer("--lang en Plant.ovs");
  EXPECT_EQ(code, 1);
  EXPECT_NE(output.find("needs a display"), std::string::npos) << output;
  EXPECT_EQ(output.find("BUG"), std::string::npos) << output;
}

}  // namespace
