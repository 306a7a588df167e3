// SPDX-License-Identifier: MIT
// What lists say and come to, as text that a test compares.
#pragma once

#include <string>

#include "exchange/import_plan.h"
#include "texts/text_table.h"

namespace support {

inline std::string ToText(const std::optional<bool>& value) {
  return !value ? "-" : *value ? "1" : "0";
}

inline std::string ToText(const exchange::Place& place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column);
}

// A line for each row, problem and ignored column.
inline std::string ToText(const exchange::Contents& contents) {
  std::string text;
  for (const exchange::AliasRow& row : contents.aliases) {
    text += "alias " + std::string(row.item) + "|" + std::string(row.alias) + "\n";
  }
  for (const exchange::FormulaRow& row : contents.formulas) {
    text += "formula " + std::string(row.prog_id) + "|" + std::string(row.name);
    if (row.type) text += " type " + std::to_string(*row.type);
    if (row.scan_time) text += " scan " + std::to_string(*row.scan_time);
    if (row.enabled) text += " enabled " + ToText(row.enabled);
    if (row.comment) text += " comment " + std::string(*row.comment);
    for (const exchange::ArgumentRow& argument : row.arguments) {
      text += " (" + std::string(argument.alias) + "|" + std::string(argument.item) + " " +
              ToText(argument.in) + ToText(argument.out) + ")";
    }
    text += row.all_arguments ? " all\n" : "\n";
  }
  for (const exchange::Problem& problem : contents.problems) {
    text += "problem " + ToText(problem.place) + " " +
            std::to_string(ToInt(problem.reason.number())) + "\n";
  }
  for (const std::string& name : contents.ignored) text += "ignored " + name + "\n";
  return text;
}

// A line for each line of the preview: what becomes of it, its name and detail, and why.
inline std::string ToText(const exchange::ImportPlan& plan) {
  static constexpr const char* kActions[] = {"new", "changed", "unchanged", "refused"};
  const texts::TextTable texts(texts::Language::kEnglish);
  std::string text;
  for (std::size_t i = 0; i < plan.LineCount(); ++i) {
    const exchange::ImportPlan::Line line = plan.LineAt(i);
    text += std::string(kActions[static_cast<int>(line.action)]) + " " +
            std::to_string(line.place.line) + " " + line.name;
    if (!line.detail.empty()) text += " [" + line.detail + "]";
    if (!line.reason.empty()) text += ": " + texts.Sentence(line.reason);
    text += "\n";
  }
  return text;
}

}  // namespace support
