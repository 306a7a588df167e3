// SPDX-License-Identifier: MIT
// Arguments are what was typed, whatever they look like: by the table of commands, for each
// argument and option of every command.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "cli/command_texts.h"
#include "cli/parser.h"
#include "tests/cli/transcript.h"

using namespace cli;

namespace {

using Words = std::vector<std::string>;

const Words kHostile = {"",    "--dry-run", "-h",       "--help",  "--lang=de",
                        "--",  "-5",        "-",        "[a,b]",   "[P]T[3]",
                        "a,b", "{x}",       "\"q\"",    "'q'",     "@file",
                        "#1",  "%s%n",      "$HOME",    "a\\b",    "a=b",
                        "=",   "a\tb\nc",   "\x1B[31m", "ä\xFF",   "=1+1",
                        " ",   "x;true",    "\x7F",     "--name=", std::string(5000, 'x')};

std::string Quoted(const std::string& word) {
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

TEST(Arguments, EveryValueIsWhatWasTyped) {
  for (const CommandSpec& command : Commands()) {
    for (const std::string& hostile : kHostile) {
      Words arguments(command.arguments.size(), hostile);
      if (!arguments.empty() && command.arguments.back().repeatable) arguments.push_back(hostile);
      Words words;
      for (const OptionSpec& option : command.options) {
        const std::string name(option.name);
        words.push_back(option.value.empty() ? name : name + "=" + hostile);
        const bool apart = !option.value.empty() && !HasOptionalValue(option);
        if (apart) words.insert(words.end(), {name, hostile});
      }
      words.push_back("--");
      words.insert(words.end(), arguments.begin(), arguments.end());
      const Call call = ParseCall(command, words);
      ASSERT_FALSE(call.complaint) << command.path << " " << hostile << call.complaint->word;
      std::size_t values = 0;
      for (const ArgumentSpec& argument : command.arguments) {
        const Words expected(argument.repeatable ? 2 : 1, hostile);
        EXPECT_EQ(call.values.find(argument.name)->second, expected) << command.path;
        ++values;
      }
      for (const OptionSpec& option : command.options) {
        const std::size_t given = HasOptionalValue(option) ? 1 : 2;
        const Words expected = option.value.empty() ? Words{""} : Words(given, hostile);
        EXPECT_EQ(call.values.find(option.name)->second, expected) << command.path;
        ++values;
      }
      EXPECT_EQ(call.values.size(), values) << command.path << " with " << hostile;
    }
  }
}

TEST(Arguments, WhatIsWrongIsNamed) {
  const CommandSpec& edit = *FindCommand("formula edit");
  struct Case {
    Words words;
    messages::TextNumber text;
    std::string word;
  };
  const Case cases[] = {
      {{"P", "F", "--comment"}, kTextOptionNeedsValue, "--comment"},
      {{"P", "F", "--enabled=1"}, kTextOptionTakesNoValue, "--enabled"},
      {{"P", "F", "--enabled="}, kTextOptionTakesNoValue, "--enabled"},
      {{"P", "F", "--coment", "x"}, kTextUnknownOptionNear, "--coment"},
      {{"P", "F", "-x"}, kTextUnknownOption, "-x"},
      {{"P", "F", "--", "--dry-run"}, kTextSurplusArgument, "--dry-run"},
      {{"P"}, kTextMissingArgument, "FORMULA"},
  };
  for (const Case& c : cases) {
    const Call call = ParseCall(edit, c.words);
    ASSERT_TRUE(call.complaint) << c.words.back();
    EXPECT_EQ(call.complaint->text, c.text) << c.words.back();
    EXPECT_EQ(call.complaint->word, c.word);
  }
}

TEST(Arguments, AnEmptyValueIsTakenWhereItMeansSomething) {
  for (const CommandSpec& command : Commands()) {
    for (const ArgumentSpec& argument : command.arguments) {
      const auto complaint = FindEmptyValue(command, {{std::string(argument.name), {"x", ""}}});
      ASSERT_TRUE(complaint) << command.path;
      EXPECT_EQ(complaint->word, argument.name);
    }
  }
  EXPECT_TRUE(FindEmptyValue(*FindCommand("formula edit"), {{"--name", {""}}}));
  EXPECT_FALSE(FindEmptyValue(*FindCommand("formula edit"), {{"--comment", {""}}}));
  EXPECT_FALSE(FindEmptyValue(*FindCommand("formula edit"), {{"--enabled", {""}}}));
  EXPECT_FALSE(FindEmptyValue(*FindCommand("find"), {{"--replace", {""}}}));
  EXPECT_FALSE(FindEmptyValue(*FindCommand("check"), {{"--repair", {""}}}));
}

// Name and contents of every file below the folder.
std::string Contents(const std::filesystem::path& folder) {
  Words files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream in(entry.path(), std::ios::binary);
    files.push_back(entry.path().string() + "\n" +
                    std::string(std::istreambuf_iterator<char>(in), {}));
  }
  std::sort(files.begin(), files.end());
  std::string all;
  for (const std::string& file : files) all += file;
  return all;
}

// The call of a command with that word wherever the project does not count.
std::string CallWith(const CommandSpec& command, const std::string& hostile) {
  std::string call = "ovformula " + std::string(command.path);
  for (const OptionSpec& option : command.options) {
    const bool decides_what_is_read = option.text == kTextOptVbp || option.text == kTextOptItems ||
                                      option.text == kTextOptCodePage;
    if (!option.value.empty() && !decides_what_is_read && option.text != kTextOptType &&
        option.text != kTextOptScanTime) {
      call += " " + std::string(option.name) + "=" + Quoted(hostile);
    }
  }
  call += " --dry-run --";
  bool first = true;
  for (const ArgumentSpec& argument : command.arguments) {
    call += first ? " Plant.ovs" : argument.text == kTextArgFormula ? " F" : " " + Quoted(hostile);
    first = false;
  }
  return call + " >/dev/null 2>&1";
}

TEST(Arguments, NoneTurnsADryRunIntoAChange) {
  const transcript::Room room;
  ASSERT_EQ(room.Run("cp -r \"$EXAMPLE\"/. . && chmod -R u+w . && ovformula new Plant.ovs --vbp "
                     "PumpServer.vbp 2>/dev/null && ovformula alias add Plant.ovs Tank1.Level L && "
                     "ovformula formula add Plant.ovs --name F --class PumpServer.CPump && "
                     "ovformula argument add Plant.ovs F L"),
            "1\tL\n1\tF\n1\tL\n");
  const std::string before = Contents(room.folder() / "room");
  int commands = 0;
  for (const CommandSpec& command : Commands()) {
    if (std::none_of(command.options.begin(), command.options.end(),
                     [](const OptionSpec& option) { return option.name == "--dry-run"; }))
      continue;
    ++commands;
    std::string script;
    for (const std::string& hostile : kHostile) {
      script += CallWith(command, hostile) + "; case $? in [0-3]) ;; *) echo " + Quoted(hostile) +
                ": $? ;; esac\n";
    }
    EXPECT_EQ(room.Run(script), "") << command.path;
    EXPECT_EQ(Contents(room.folder() / "room"), before) << command.path;
  }
  EXPECT_GE(commands, 9);
}

}  // namespace
