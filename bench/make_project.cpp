// SPDX-License-Identifier: MIT
#include "bench/make_project.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "codegen/templates.h"
#include "files/replace_file.h"
#include "jet/database.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"
#include "store/formula_records.h"
#include "store/schema.h"
#include "texts/text_table.h"

namespace bench {
namespace {

using jet::Value;

constexpr std::array kParts = {"Level", "Flow", "Pressure", "Temperature", "Speed", "Open"};

// Adds rows to one table, the values in the order of the columns that are named.
class Inserter {
 public:
  Inserter(jet::Database& database, const std::string& table,
           std::initializer_list<const char*> columns)
      : table_(database.OpenTable(table)) {
    for (const char* column : columns) columns_.push_back(*table_.FindColumn(column));
  }
  void Add(std::initializer_list<Value> values) {
    row_.clear();
    for (const Value& value : values) row_.push_back({columns_[row_.size()], value});
    table_.Insert(row_);
  }

 private:
  jet::Table& table_;
  std::vector<std::size_t> columns_;
  std::vector<jet::ColumnValue> row_;
};

void AddRows(jet::Database& database, const ProjectSize& size) {
  Inserter aliases(database, "TvbfAlias", {"ItemID", "VBAlias"});
  for (std::size_t i = 0; i < size.aliases; ++i) {
    const std::string item = ItemName(i), name = AliasName(i);
    aliases.Add({Value::Text(item), Value::Text(name)});
  }
  Inserter formulas(database, "TvbfFormulas",
                    {"Name", "ProgID", "Type", "ScanTime", "Enabled", "Comment"});
  Inserter arguments(database, "TvbfParams", {"ParentID", "AliasID", "In", "Out"});
  for (std::size_t i = 0; i < size.formulas; ++i) {
    const std::string name = FormulaName(i), prog_id = ProgIdOf(i, size);
    const std::string comment = "Balance of section " + std::to_string(i % 40);
    const auto type = static_cast<std::int32_t>(i) % store::kCallTypes;
    formulas.Add({Value::Text(name), Value::Text(prog_id), Value::Integer(type),
                  Value::Integer(type == store::kAsynchronous ? 500 : 0),
                  Value::Boolean(i % 10 != 0), Value::Text(comment)});
    for (std::size_t n = 0; n < ArgumentsOf(i, size); ++n) {
      const auto alias = static_cast<std::int32_t>(AliasOfArgument(i, n, size)) + 1;
      arguments.Add({Value::Integer(static_cast<std::int32_t>(i) + 1), Value::Integer(alias),
                     Value::Boolean(n % 3 != 0), Value::Boolean(n % 3 == 0)});
    }
  }
}

void AppendLine(std::string& text, std::string_view line) { text.append(line).append("\r\n"); }

// Declarations of all aliases that the class's formulas use.
void AppendDeclarations(std::size_t number, const ProjectSize& size, std::string& text) {
  std::vector<std::size_t> used;
  for (std::size_t i = number; i < size.formulas; i += size.Classes()) {
    for (std::size_t n = 0; n < ArgumentsOf(i, size); ++n) {
      used.push_back(AliasOfArgument(i, n, size));
    }
  }
  std::sort(used.begin(), used.end());
  used.erase(std::unique(used.begin(), used.end()), used.end());
  for (const std::size_t alias : used) {
    AppendLine(text, codegen::Templates::Declaration(AliasName(alias), "Double", ItemName(alias)));
  }
}

void AppendFormula(std::size_t formula, const ProjectSize& size,
                   const codegen::Templates& templates, std::string& text) {
  std::vector<std::string> aliases;
  for (std::size_t n = 0; n < ArgumentsOf(formula, size); ++n) {
    aliases.push_back(AliasName(AliasOfArgument(formula, n, size)));
  }
  for (const std::string& line : templates.Header(FormulaName(formula), aliases)) {
    AppendLine(text, line);
  }
  AppendLine(text, codegen::Templates::SubDeclaration(FormulaName(formula)));
  for (std::size_t n = 1; n < aliases.size(); n += 4) {
    AppendLine(text, "    If " + aliases[n] + " > 0 Then " + aliases[0] + " = " + aliases[n]);
  }
  AppendLine(text, "End Sub");
}

void FillUp(std::size_t lines, std::string& text) {
  auto have = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  for (std::size_t i = 0; have < lines; ++i, have += 10) {
    AppendLine(text, "");
    AppendLine(text, "' Limits the step of a ramp, variant " + std::to_string(i));
    AppendLine(text, "Private Function Ramp" + std::to_string(i) + "(ByVal target As Double)");
    for (const char* line :
         {"    Dim difference As Double", "    difference = target - Ramp0Last",
          "    If difference > 10 Then difference = 10 ' per second",
          "    If difference < -10 Then difference = -10", "    Ramp0Last = Ramp0Last + difference",
          "    RampDone = (difference = 0)", "End Function"}) {
      AppendLine(text, line);
    }
  }
}

std::string ClassText(std::size_t number, const ProjectSize& size) {
  static const texts::TextTable english(texts::Language::kEnglish);
  static const codegen::Templates templates(english);
  std::string text = "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n";
  AppendLine(text, "Attribute VB_Name = \"" + ClassName(number) + "\"");
  for (const char* line :
       {"Attribute VB_GlobalNameSpace = False", "Attribute VB_Creatable = True",
        "Attribute VB_PredeclaredId = False", "Attribute VB_Exposed = True", "Option Explicit",
        "Private Ramp0Last As Double", "Private RampDone As Boolean"}) {
    AppendLine(text, line);
  }
  AppendDeclarations(number, size, text);
  for (std::size_t i = number; i < size.formulas; i += size.Classes()) {
    AppendFormula(i, size, templates, text);
  }
  FillUp(size.class_lines, text);
  return text;
}

void MakeCode(files::FileSystem& system, const std::string& folder, const ProjectSize& size) {
  std::string project = "Type=OleDll\r\n";
  for (std::size_t number = 0; number < size.Classes(); ++number) {
    const std::string name = ClassName(number);
    AppendLine(project, "Class=" + name + "; " + name + ".cls");
    files::ReplaceFile(system, system.Join(folder, name + ".cls"), ClassText(number, size));
  }
  AppendLine(project, std::string("Name=\"") + kServerName + "\"");
  files::ReplaceFile(system, system.Join(folder, std::string(kServerName) + ".vbp"), project);
}

void MakeItems(files::FileSystem& system, const std::string& folder, const ProjectSize& size) {
  if (size.items == 0) return;
  std::string text = "item,type,comment\r\n";
  for (std::size_t i = 0; i < size.items; ++i) {
    AppendLine(text, ItemName(i) + ",5,Measured by controller " + std::to_string(i % 60));
  }
  files::ReplaceFile(system, system.Join(folder, "items.csv"), text);
}

}  // namespace

std::string FormulaName(std::size_t formula) { return "Balance" + std::to_string(formula); }

std::string ItemName(std::size_t alias) {
  return "Section" + std::to_string(alias % 97) + ".Tank" + std::to_string(alias) + "." +
         kParts[alias % kParts.size()];
}

std::string AliasName(std::size_t alias) {
  std::string name = ItemName(alias);
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

std::string ClassName(std::size_t number) { return "CBalance" + std::to_string(number); }

std::string ProgIdOf(std::size_t formula, const ProjectSize& size) {
  return std::string(kServerName) + "." + ClassName(formula % size.Classes());
}

std::size_t ArgumentsOf(std::size_t formula, const ProjectSize& size) {
  const std::size_t rest = size.arguments % size.formulas;
  return std::min(size.arguments / size.formulas + (formula < rest ? 1 : 0), size.aliases);
}

std::size_t AliasOfArgument(std::size_t formula, std::size_t n, const ProjectSize& size) {
  const std::size_t of_each = size.arguments / size.formulas + 1;
  return (formula * of_each + n) % size.aliases;
}

void MakeLargeDatabase(files::FileSystem& system, const std::string& path,
                       const ProjectSize& size) {
  recordset::JetConnection connection(system);
  connection.Create(store::ProjectConnectionString(path));
  store::CompleteSchema(connection);
  jet::Transaction transaction(connection.database());
  AddRows(connection.database(), size);
  transaction.Commit();
}

void MakeLargeProject(files::FileSystem& system, const std::string& path, const ProjectSize& size) {
  MakeLargeDatabase(system, path, size);
  const std::string folder = system.Folder(path);
  MakeCode(system, folder, size);
  MakeItems(system, folder, size);
}

}  // namespace bench
