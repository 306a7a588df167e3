// SPDX-License-Identifier: MIT
#include "exchange/table_reader.h"

#include <algorithm>
#include <cstdio>

#include "exchange/cell_values.h"
#include "exchange/series_columns.h"
#include "messages/text_number.h"
#include "platform/text.h"

namespace exchange {
namespace {

using enum Member;

// Ends the reading of a line.
struct LineProblem {
  Problem problem;
};

std::string CodeOf(char c) {
  char text[8];
  std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

void TableReader::Read(const Record& record) {
  record_ = &record;
  try {
    for (std::size_t i = 0; i < record.cells.size(); ++i) {
      const Place place = {record.line, static_cast<std::uint32_t>(i + 1)};
      const std::string_view text = record.cells[i].text;
      if (i >= header_.names.size() && !text.empty()) {
        throw LineProblem{{place, {{kTextSurplusCells}, {{"<Count>", header_.names.size()}}}}};
      }
      if (const auto found = std::ranges::find_if(text, IsControlCharacter); found != text.end()) {
        throw LineProblem{{place, {{kTextControlCharacter}, {{"<Code>", CodeOf(*found)}}}}};
      }
    }
    switch (header_.kind) {
      case TableKind::kAliases:
        return ReadAlias();
      case TableKind::kFormulas:
        return ReadFormula();
      case TableKind::kSignals:
        return ReadSignal();
    }
  } catch (const LineProblem& line) {
    contents_.problems.push_back(line.problem);
  } catch (const messages::Error& series) {
    contents_.problems.push_back({{record.line, 0}, series.message()});
  }
}

std::string_view TableReader::Text(Member member) const {
  const auto column = header_.Column(member);
  if (!column || *column >= record_->cells.size()) return {};
  return FromSafeCell(record_->cells[*column].text);
}

Place TableReader::PlaceOf(Member member) const {
  const auto column = header_.Column(member);
  return {record_->line, column ? static_cast<std::uint32_t>(*column + 1) : 0};
}

void TableReader::Refuse(Member member, const messages::Message& reason) const {
  throw LineProblem{{PlaceOf(member), reason}};
}

void TableReader::Refuse(Member member, messages::TextNumber text) const {
  Refuse(member, {{text}, {{"<Text>", Text(member)}}});
}

std::optional<bool> TableReader::Truth(Member member) const {
  const std::string_view text = Text(member);
  if (text.empty()) return std::nullopt;
  const auto value = ParseTruth(text);
  if (!value) Refuse(member, kTextNoTruthValue);
  return value;
}

std::optional<std::int32_t> TableReader::WholeNumber(Member member) const {
  const std::string_view text = Text(member);
  if (text.empty()) return std::nullopt;
  const auto value = ParseWholeNumber(text);
  if (!value) Refuse(member, IsUnclearNumber(text) ? kTextUnclearNumber : kTextNoWholeNumber);
  return value;
}

std::optional<std::int32_t> TableReader::CallType() const {
  const std::string_view text = Text(kType);
  if (text.empty()) return std::nullopt;
  const auto value = ParseCallType(text);
  if (!value) Refuse(kType, kTextNoCallType);
  return value;
}

// --- Aliases ---

void TableReader::ReadAlias() {
  if (Text(kItem).empty()) Refuse(kItem, kTextNoItem);
  if (!AppendAliases(Text(kItem), Text(kAlias), {record_->line, 0}, contents_)) {
    Refuse(kAlias, kTextSeriesLengths);
  }
}

// --- Formulas ---

void TableReader::ReadFormula() {
  FormulaRow row;
  row.prog_id = Text(kClass);
  row.type = CallType();
  row.scan_time = WholeNumber(kScanTime);
  row.enabled = Truth(kEnabled);
  if (!Text(kComment).empty()) row.comment = Text(kComment);
  row.place = {record_->line, 0};
  const std::string_view name = Text(kFormula), list = Text(kArguments);
  if (name.empty()) Refuse(kFormula, kTextNoFormulaName);
  const auto arguments = ParseArgumentList(list, PlaceOf(kArguments), contents_);
  if (!arguments) Refuse(kArguments, kTextArgumentList);
  row.all_arguments = !arguments->empty();

  SeriesColumns columns{name};
  for (const ArgumentRow& argument : *arguments) columns.Add(argument.alias);
  const std::size_t count = columns.Count();
  if (count == 0 || (count > 1 && !columns.IsSeries(0))) Refuse(kFormula, kTextSeriesLengths);
  for (std::size_t i = 0; i < count; ++i) {
    row.name = columns.At(0, i, contents_);
    row.arguments = *arguments;
    for (std::size_t n = 0; n < arguments->size(); ++n) {
      row.arguments[n].alias = columns.At(n + 1, i, contents_);
    }
    contents_.formulas.push_back(row);
  }
}

// --- Signals ---

void TableReader::ReadSignal() {
  const std::string_view item = Text(kItem), alias = Text(kAlias), formula = Text(kFormula);
  if (item.empty() && alias.empty()) Refuse(header_.Column(kItem) ? kItem : kAlias, kTextNoItem);
  SeriesColumns columns{item, alias, formula};
  const std::size_t count = columns.Count();
  const bool both = !item.empty() && !alias.empty();
  const bool signals = columns.Count() == 1 || columns.IsSeries(0) || columns.IsSeries(1);
  if (count == 0 || !signals || (count > 1 && both && columns.IsSeries(0) != columns.IsSeries(1))) {
    Refuse(kItem, kTextSeriesLengths);
  }
  for (std::size_t i = 0; i < count; ++i) {
    AddSignal(columns.At(0, i, contents_), columns.At(1, i, contents_),
              columns.At(2, i, contents_));
  }
}

void TableReader::AddSignal(std::string_view item, std::string_view alias,
                            std::string_view formula) {
  ArgumentRow argument;
  argument.alias = alias;
  argument.item = item;
  argument.in = Truth(kIn);
  argument.out = Truth(kOut);
  argument.place = {record_->line, 0};
  if (!item.empty()) argument.alias_row = AliasRowOf(item, alias);
  if (!formula.empty()) FormulaRowOf(formula, Text(kClass)).arguments.push_back(argument);
}

std::uint32_t TableReader::AliasRowOf(std::string_view item, std::string_view alias) {
  const std::string key = platform::FoldCase(alias) + '\n' + std::string(item);
  const auto [known, is_new] =
      alias_rows_.try_emplace(key, static_cast<std::uint32_t>(contents_.aliases.size()));
  if (is_new) contents_.aliases.push_back({item, alias, {record_->line, 0}});
  return known->second;
}

FormulaRow& TableReader::FormulaRowOf(std::string_view name, std::string_view prog_id) {
  const std::string key = platform::FoldCase(prog_id) + '\n' + platform::FoldCase(name);
  const auto [known, is_new] =
      formula_rows_.try_emplace(key, static_cast<std::uint32_t>(contents_.formulas.size()));
  if (is_new) {
    FormulaRow row;
    row.name = name;
    row.prog_id = prog_id;
    row.place = {record_->line, 0};
    contents_.formulas.push_back(std::move(row));
  }
  return contents_.formulas[known->second];
}

}  // namespace exchange
