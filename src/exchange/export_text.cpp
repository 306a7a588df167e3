// SPDX-License-Identifier: MIT
#include "exchange/export_text.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "exchange/cell_values.h"
#include "exchange/delimited_text.h"
#include "exchange/json_text.h"
#include "exchange/series.h"

namespace exchange {
namespace {

constexpr std::size_t kPiece = 1 << 16;  // bytes

// Collects text and hands it on in larger pieces.
class Output {
 public:
  explicit Output(const Sink& sink) : sink_(sink) {}

  std::string& text() { return text_; }
  void Pass(std::size_t at_least = kPiece) {
    if (text_.empty() || text_.size() < at_least) return;
    sink_(text_);
    text_.clear();
  }

 private:
  const Sink& sink_;
  std::string text_;
};

// --- JSON ---

std::string Truth(bool value) { return value ? "true" : "false"; }

using Members = std::vector<std::pair<std::string_view, std::string>>;

std::string Object(const Members& members) {
  std::string text = "{";
  for (const auto& [name, value] : members) {
    if (text.size() > 1) text += ", ";
    text += JsonString(name) + ": " + value;
  }
  return text + "}";
}

std::string ArgumentsJson(const std::vector<store::ArgumentRecord>& arguments) {
  std::string list;
  for (const store::ArgumentRecord& argument : arguments) {
    if (argument.vb_alias.empty()) continue;  // its alias is missing
    list += (list.empty() ? "" : ", ") + Object({{"VBAlias", JsonString(argument.vb_alias)},
                                                 {"ItemID", JsonString(argument.item_id)},
                                                 {"In", Truth(argument.in)},
                                                 {"Out", Truth(argument.out)}});
  }
  return "[" + list + "]";
}

Members AliasMembers(const store::AliasRecord& alias) {
  return {{"ItemID", JsonString(alias.item_id)}, {"VBAlias", JsonString(alias.vb_alias)}};
}

Members FormulaMembers(const store::FormulaRecord& formula,
                       const std::vector<store::ArgumentRecord>& arguments) {
  return {{"Name", JsonString(formula.name)},
          {"ProgID", JsonString(formula.prog_id)},
          {"Type", std::to_string(formula.type)},
          {"ScanTime", std::to_string(formula.scan_time)},
          {"Enabled", Truth(formula.enabled)},
          {"Comment", formula.comment_is_null ? "null" : JsonString(formula.comment)},
          {"arguments", ArgumentsJson(arguments)}};
}

// An array of objects, a line each.
class JsonArray {
 public:
  JsonArray(Output& output, std::string_view name) : output_(output) {
    output_.text() += JsonString(name) + ": [";
  }
  void Add(const std::string& object) {
    output_.text() += std::exchange(empty_, false) ? "\n " : ",\n ";
    output_.text() += object;
    output_.Pass();
  }
  void End() { output_.text() += empty_ ? "]" : "\n]"; }

 private:
  Output& output_;
  bool empty_ = true;
};

// --- Tables ---

class TableWriter {
 public:
  explicit TableWriter(Output& output, char separator = ',', std::string_view line_end = "\r\n")
      : output_(output), separator_(separator), line_end_(line_end) {}

  // A cell that is text; what an import would take for a series is written otherwise.
  void Text(std::string_view text) {
    if (std::ranges::any_of(text, IsControlCharacter)) ++unreadable_;
    Raw(SafeCell(text));
  }
  void Name(std::string_view text) { Text(WithoutSeries(text)); }
  void Raw(std::string_view text) {
    if (!std::exchange(first_, false)) output_.text() += separator_;
    AppendCell(output_.text(), text, separator_);
  }
  void EndLine() {
    output_.text() += line_end_;
    output_.Pass();
    first_ = true;
  }
  std::size_t unreadable() const { return unreadable_; }

 private:
  Output& output_;
  char separator_;
  std::string_view line_end_;
  bool first_ = true;
  std::size_t unreadable_ = 0;
};

void WriteHeader(TableWriter& table, std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) table.Raw(name);
  table.EndLine();
}

void WriteAliases(store::Operations& operations, TableWriter& table) {
  WriteHeader(table, {"ItemID", "VBAlias"});
  operations.ForEachAlias([&](const store::AliasRecord& alias) {
    table.Name(alias.item_id);
    table.Name(alias.vb_alias);
    table.EndLine();
  });
}

void WriteFormulaHeader(TableWriter& table) {
  WriteHeader(table, {"Name", "ProgID", "Type", "ScanTime", "Enabled", "Comment", "arguments"});
}

void WriteFormula(const store::FormulaRecord& formula,
                  const std::vector<store::ArgumentRecord>& arguments, TableWriter& table) {
  table.Name(formula.name);
  table.Text(formula.prog_id);
  table.Raw(std::to_string(formula.type));
  table.Raw(std::to_string(formula.scan_time));
  table.Raw(Truth(formula.enabled));
  table.Text(formula.comment);
  std::string list;
  for (const store::ArgumentRecord& argument : arguments) {
    if (argument.vb_alias.empty()) continue;  // its alias is missing
    AppendArgument(list, WithoutSeries(argument.vb_alias), argument.in, argument.out);
  }
  table.Text(list);
  table.EndLine();
}

void WriteFormulas(store::Operations& operations, TableWriter& table) {
  WriteFormulaHeader(table);
  operations.ForEachFormula([&](const store::FormulaRecord& formula) {
    WriteFormula(formula, operations.ArgumentsOf(formula.id), table);
  });
}

}  // namespace

void ExportJson(store::Operations& operations, const ExportedRows& rows, const Sink& sink) {
  Output output(sink);
  output.text() = "{";
  if (rows.aliases) {
    JsonArray aliases(output, "aliases");
    operations.ForEachAlias(
        [&](const store::AliasRecord& alias) { aliases.Add(Object(AliasMembers(alias))); });
    aliases.End();
  }
  if (rows.aliases && rows.formulas) output.text() += ",\n";
  if (rows.formulas) {
    JsonArray formulas(output, "formulas");
    operations.ForEachFormula([&](const store::FormulaRecord& formula) {
      formulas.Add(Object(FormulaMembers(formula, operations.ArgumentsOf(formula.id))));
    });
    formulas.End();
  }
  output.text() += "}\n";
  output.Pass(0);
}

std::string AliasesAsJson(std::span<const store::AliasRecord> aliases) {
  std::string list;
  for (const store::AliasRecord& alias : aliases) {
    list += (list.empty() ? "" : ",\n ") + Object(AliasMembers(alias));
  }
  return "{\"aliases\": [" + list + "]}\n";
}

std::string FormulasAsJson(std::span<const CopySource> formulas) {
  std::string list;
  for (const CopySource& copied : formulas) {
    Members members = FormulaMembers(copied.formula, copied.arguments);
    if (!copied.code.empty()) members.emplace_back("Code", JsonString(copied.code));
    list += (list.empty() ? "" : ",\n ") + Object(members);
  }
  return "{\"formulas\": [" + list + "]}\n";
}

std::string FormulasAsLines(std::span<const CopySource> formulas) {
  std::string text;
  const Sink take = [&](std::string_view piece) { text += piece; };
  Output output(take);
  TableWriter table(output, '\t', "\n");
  WriteFormulaHeader(table);
  for (const CopySource& copied : formulas) WriteFormula(copied.formula, copied.arguments, table);
  output.Pass(0);
  return text;
}

std::size_t ExportCsv(store::Operations& operations, TableKind kind, const Sink& sink) {
  Output output(sink);
  TableWriter table(output);
  if (kind == TableKind::kAliases) {
    WriteAliases(operations, table);
  } else {
    WriteFormulas(operations, table);
  }
  output.Pass(0);
  return table.unreadable();
}

}  // namespace exchange
