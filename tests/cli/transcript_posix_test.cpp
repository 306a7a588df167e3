// SPDX-License-Identifier: MIT
// The command line as its users meet it: each file in transcripts/ is a session that must answer
// word for word as it stands there. OV_UPDATE=1 writes the answers anew, to be read as a diff.
#include "tests/cli/transcript.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <regex>

namespace {

const std::filesystem::path kFolder = OV_SOURCE_DIR "/tests/cli/transcripts";

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// "# needs PROGRAM" in the first comment: what must be installed.
std::string MissingProgram(const std::vector<transcript::Step>& steps) {
  std::smatch needs;
  if (steps.empty() ||
      !std::regex_search(steps.front().comment, needs, std::regex("# needs (\\S+)")))
    return "";
  return std::system(("command -v " + needs[1].str() + " >/dev/null").c_str()) == 0
             ? ""
             : needs[1].str();
}

// The sanitizers look at an object through a pipe, and report one when no descriptor is left.
#ifdef __SANITIZE_ADDRESS__
constexpr bool kNeedsDescriptors = true;
#else
constexpr bool kNeedsDescriptors = false;
#endif

// Whether the step cannot be done here: it leaves too few descriptors, or the program for Windows
// is tried and its command has a word that tests/not_under_wine.txt names.
bool IsLeftOut(const std::string& command) {
  if (kNeedsDescriptors && command.find("ulimit -n") != std::string::npos) return true;
  if (std::getenv("OV_WINDOWS_PROGRAMS") == nullptr) return false;
  std::ifstream in(OV_SOURCE_DIR "/tests/not_under_wine.txt");
  for (std::string kind, word, rest; in >> kind && std::getline(in >> word, rest);) {
    if (kind == "step" && command.find(word) != std::string::npos) return true;
  }
  return false;
}

class Transcript : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Sessions, Transcript, testing::ValuesIn(Names()),
                         [](const auto& test) { return test.param; });

TEST_P(Transcript, AnswersWordForWord) {
  const std::filesystem::path file = kFolder / (GetParam() + ".txt");
  std::vector<transcript::Step> steps = transcript::Read(file);
  ASSERT_FALSE(steps.empty());
  const std::string missing = MissingProgram(steps);
  if (!missing.empty()) GTEST_SKIP() << missing << " is not installed";
  const bool update = std::getenv("OV_UPDATE") != nullptr;
  const transcript::Room room;
  for (transcript::Step& step : steps) {
    if (IsLeftOut(step.command)) continue;
    const std::string answer = room.Run(step.command);
    if (!update) {
      EXPECT_EQ(answer, step.answer) << "$ " << step.command;
    }
    step.answer = answer;
  }
  if (update) transcript::Write(file, steps);
}

// The fenced blocks of a section of a Markdown file.
std::vector<std::string> Blocks(const std::filesystem::path& file, const std::string& section) {
  std::ifstream in(file);
  std::vector<std::string> blocks;
  bool in_section = false;
  bool in_block = false;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("## ")) in_section = line == "## " + section;
    if (!in_section) continue;
    if (line.starts_with("```")) {
      in_block = !in_block;
      if (in_block) blocks.emplace_back();
    } else if (in_block) {
      blocks.back() += line + "\n";
    }
  }
  return blocks;
}

TEST(Readme, TourWorksWordForWord) {
  const auto blocks = Blocks(OV_SOURCE_DIR "/README.md", "Five-minute tour");
  ASSERT_EQ(blocks.size(), 3u) << "commands, what the last of them prints, commands";
  const transcript::Room room;
  const std::string first = room.Run("set -e\nexec 2>&1\n" + blocks[0]);
  EXPECT_TRUE(first.ends_with(blocks[1])) << first;
  const std::string rest = room.Run("set -e\ncd tour\n" + blocks[2]);
  EXPECT_NE(rest.find("\nok: "), std::string::npos) << rest;
  EXPECT_EQ(rest.find("\n["), std::string::npos) << rest;
}

}  // namespace
