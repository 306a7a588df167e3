// SPDX-License-Identifier: MIT
#include "cli/invocation.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>

#include "cli/exchange_texts.h"
#include "cli/parser.h"
#include "files/real_file_system.h"

namespace cli {

std::string Invocation::Argument(std::string_view name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? std::string() : found->second.front();
}

std::vector<Given> Invocation::Arguments(std::string_view name) {
  std::vector<Given> all;
  for (const std::string& value : Options(name)) {
    if (value != "-") {
      all.push_back({value});
      continue;
    }
    for (Given& line : InputLines()) all.push_back(std::move(line));
  }
  return all;
}

std::vector<Given> Invocation::InputLines() {
  std::vector<Given> lines;
  std::size_t number = 0;
  std::istringstream text(InputText());
  for (std::string line; std::getline(text, line);) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty()) lines.push_back({std::move(line), number});
  }
  return lines;
}

std::string Invocation::InputText() {
  std::string text(std::istreambuf_iterator<char>(console_.in), {});
  if (Interrupted()) throw InterruptedError();
  if (console_.in_failure && *console_.in_failure) {
    files::os::RaiseSystem(*console_.in_failure, Text(kTextStandardInput),
                           files::message::kCannotBeRead);
  }
  return text;
}

std::string Invocation::AtLine(std::size_t line, const std::string& text) const {
  return line == 0 ? text : Text(kTextAtLine, {{"<Line>", std::to_string(line)}, {"<Text>", text}});
}

bool Invocation::Has(std::string_view option) const { return values_.contains(option); }

std::optional<std::string> Invocation::Option(std::string_view option) const {
  const auto found = values_.find(option);
  return found == values_.end() ? std::nullopt : std::optional(found->second.back());
}

std::vector<std::string> Invocation::Options(std::string_view option) const {
  const auto found = values_.find(option);
  return found == values_.end() ? std::vector<std::string>() : found->second;
}

std::optional<std::int32_t> Invocation::NumberOption(std::string_view option) const {
  const auto text = Option(option);
  if (!text) return std::nullopt;
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), value);
  if (error != std::errc() || end != text->data() + text->size()) {
    throw UsageError(Text(kTextBadNumber, {{"<Option>", option}, {"<Word>", *text}}));
  }
  return value;
}

std::optional<std::string> Invocation::OutputFileOption(std::string_view option) const {
  auto file = Option(option);
  const auto is_option = [&](const OptionSpec& known) { return file == known.name; };
  if (std::ranges::any_of(command_.options, is_option) ||
      std::ranges::any_of(CommonOptions(), is_option)) {
    throw UsageError(Text(kTextNoFileName, {{"<Option>", option}, {"<Word>", *file}}));
  }
  return file;
}

void Invocation::Exclude(std::string_view first, std::string_view second) const {
  if (Has(first) && Has(second)) {
    throw UsageError(Text(kTextContradiction, {{"<First>", first}, {"<Second>", second}}));
  }
}

std::optional<bool> Invocation::Switch(std::string_view on, std::string_view off) const {
  Exclude(on, off);
  if (Has(on)) return true;
  if (Has(off)) return false;
  return std::nullopt;
}

RowFormat Invocation::ListFormat() const {
  if (Has("--json")) return RowFormat::kJson;
  return console_.out_is_terminal ? RowFormat::kTerminal : RowFormat::kPlain;
}

void Invocation::Warn(std::string_view text) {
  console_.err << Text(kTextWarning, {{"<Text>", text}}) << '\n';
}

bool Invocation::Interrupted() const {
  return console_.interrupted && console_.interrupted->load();
}

}  // namespace cli
