// SPDX-License-Identifier: MIT
#include "cli/help.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "cli/command_texts.h"
#include "cli/parser.h"

namespace cli {

namespace {

using Lines = std::vector<std::pair<std::string, std::string>>;

// Two columns under a heading; "" without lines.
std::string Section(const std::string& heading, const Lines& lines) {
  if (lines.empty()) return {};
  std::size_t width = 0;
  for (const auto& [left, right] : lines) width = std::max(width, left.size());
  std::string text = "\n" + heading + "\n";
  for (const auto& [left, right] : lines) {
    text += "  " + left + std::string(width - left.size() + 2, ' ') + right + "\n";
  }
  return text;
}

Lines OptionLines(const CommandSpec& command, const texts::TextTable& texts) {
  Lines lines;
  for (const OptionSpec& option : command.options) {
    lines.emplace_back(OptionForm(option), texts.Text(option.text));
  }
  for (const OptionSpec& option : CommonOptions()) {
    lines.emplace_back(OptionForm(option), texts.Text(option.text));
  }
  return lines;
}

}  // namespace

std::string Synopsis(const CommandSpec& command) {
  std::string text = "ovformula " + std::string(command.path);
  for (const ArgumentSpec& argument : command.arguments) {
    const std::string name = std::string(argument.name) + (argument.repeatable ? "..." : "");
    text += argument.required ? " " + name : " [" + name + "]";
  }
  for (const OptionSpec& option : command.options) text += " [" + OptionForm(option) + "]";
  return text;
}

std::string Overview(const texts::TextTable& texts) {
  Lines lines;
  for (const CommandSpec& command : Commands()) {
    lines.emplace_back(command.path, texts.Text(command.text));
  }
  return texts.Text(kTextAbout) + "\n\n" + texts.Text(kTextUsage) +
         "\n  ovformula PROJECT.ovs\n  ovformula COMMAND ...\n" +
         Section(texts.Text(kTextCommands), lines) +
         Section(texts.Text(kTextOptions), {{"--lang de|en", texts.Text(kTextOptLang)},
                                            {"--help", texts.Text(kTextOptHelp)},
                                            {"--version", texts.Text(kTextOptVersion)}}) +
         "\n" + texts.Text(kTextMoreHelp) + "\n";
}

std::string CommandHelp(const CommandSpec& command, const texts::TextTable& texts) {
  Lines arguments, examples;
  for (const ArgumentSpec& argument : command.arguments) {
    arguments.emplace_back(argument.name, texts.Text(argument.text));
  }
  std::string text = texts.Text(command.text) + "\n\n" + texts.Text(kTextUsage) + "\n  " +
                     Synopsis(command) + "\n" + Section(texts.Text(kTextArguments), arguments) +
                     Section(texts.Text(kTextOptions), OptionLines(command, texts));
  text += "\n" + texts.Text(kTextExamples) + "\n";
  for (const std::string_view example : command.examples)
    text += "  " + std::string(example) + "\n";
  return text;
}

std::string GroupHelp(std::string_view group, const texts::TextTable& texts) {
  const std::string prefix = std::string(group) + " ";
  std::string text;
  for (const CommandSpec& command : Commands()) {
    if (!command.path.starts_with(prefix)) continue;
    text += "  " + Synopsis(command) + "\n      " + texts.Text(command.text) + "\n";
  }
  return text.empty() ? text : texts.Text(kTextUsage) + "\n" + text;
}

}  // namespace cli
