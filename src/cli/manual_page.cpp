// SPDX-License-Identifier: MIT
#include "cli/command_texts.h"
#include "cli/help.h"

namespace cli {

namespace {

// Text of a line: no command, hyphens as they are.
std::string Escape(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  if (escaped.starts_with('.') || escaped.starts_with('\'')) escaped.insert(0, "\\&");
  return escaped;
}

void AppendItem(std::string& page, const std::string& term, const std::string& text) {
  page += ".TP\n.B " + Escape(term) + "\n" + Escape(text) + "\n";
}

void AppendCommand(std::string& page, const CommandSpec& command, const texts::TextTable& texts) {
  page += ".SS " + Escape(Synopsis(command)) + "\n" + Escape(texts.Text(command.text)) + "\n";
  for (const ArgumentSpec& argument : command.arguments) {
    AppendItem(page, std::string(argument.name), texts.Text(argument.text));
  }
  for (const OptionSpec& option : command.options) {
    AppendItem(page, OptionForm(option), texts.Text(option.text));
  }
  for (const std::string_view example : command.examples) {
    page += ".PP\n.RS\n" + Escape(example) + "\n.RE\n";
  }
}

}  // namespace

std::string ManualPage(const texts::TextTable& texts, std::string_view version) {
  std::string page = ".TH OVFORMULA 1 \"\" \"ovformula " + std::string(version) + "\"\n";
  page += ".SH NAME\novformula \\- " + Escape(texts.Text(kTextAbout)) + "\n";
  page += ".SH SYNOPSIS\n.B ovformula\n.I PROJECT.ovs\n.br\n.B ovformula\n.I COMMAND ...\n";
  page += ".SH COMMANDS\n";
  for (const CommandSpec& command : Commands()) AppendCommand(page, command, texts);
  page += ".SH OPTIONS\n";
  AppendItem(page, "--lang de|en", texts.Text(kTextOptLang));
  page += ".SH EXIT STATUS\n";
  AppendItem(page, "0", texts.Text(kTextExitDone));
  AppendItem(page, "1", texts.Text(kTextExitRefused));
  AppendItem(page, "2", texts.Text(kTextExitUsage));
  AppendItem(page, "3", texts.Text(kTextExitFile));
  AppendItem(page, "130", texts.Text(kTextExitInterrupted));
  return page;
}

}  // namespace cli
