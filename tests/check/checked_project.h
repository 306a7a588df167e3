// SPDX-License-Identifier: MIT
// A small project to put faults into, and what the check says of it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "store/project_rows.h"
#include "tests/support/formula_project.h"

namespace check {

class CheckedProject {
 public:
  // Level (1), Pump (2), Flow (3); Fill (1) in CPump with Level as input and Pump as return value,
  // Drain (2) in CTank with Level.
  CheckedProject() : project_({{"CPump", "Option Explicit\r\n"}, {"CTank", "' mine\r\n"}}) {
    project_.open->items.types = {{"Tank.Level", 5}, {"Tank.Pump", 11}, {"Tank.Flow", 5}};
    project_.AddAlias("Tank.Level", "Level");
    project_.AddAlias("Tank.Pump", "Pump");
    project_.AddAlias("Tank.Flow", "Flow");
    operations().AddFormula({"Fill", "PumpServer.CPump"});
    operations().AddFormula({"Drain", "PumpServer.CTank"});
    const store::ArgumentValues both[] = {{1, true, false}, {2, false, true}};
    operations().AddArguments(1, both);
    operations().AddArguments(2, {both, 1});
    Exchange("CPump", "Public Sub Fill()\r\n\r\n", "Public Sub Fill()\r\n  Pump = Level > 1\r\n");
  }

  store::Operations& operations() { return project_.operations(); }
  support::FormulaProject& project() { return project_; }
  std::string Code(std::string_view name) { return project_.Code(name); }

  // As an engineer's editor would, all places.
  void Exchange(std::string_view name, const std::string& from, const std::string& to) {
    std::string text = Code(name);
    std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from << "\n" << text;
    for (; at != std::string::npos; at = text.find(from, at + to.size())) {
      text.replace(at, from.size(), to);
    }
    project_.PutCode(name, text);
  }
  void Append(std::string_view name, const std::string& text) {
    project_.PutCode(name, Code(name) + text);
  }

  // As another program would, past the operations.
  void Add(std::string_view table, const std::vector<std::string>& fields,
           const std::vector<platform::Variant>& values) {
    const auto rows = support::MemoryDatabase::Open(*project_.open->connection, table);
    rows->AddNew(fields, values);
    rows->Close();
  }
  void Set(std::string_view table, std::int32_t id, std::string_view field,
           const platform::Variant& value) {
    const auto row = OpenRow(table, id);
    row->Fields(field).SetValue(value);
    row->Update();
    row->Close();
  }
  void Remove(std::string_view table, std::int32_t id) {
    const auto row = OpenRow(table, id);
    row->Delete();
    row->Close();
  }

  // All rows and lines of code, a text each.
  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (const std::string_view table :
         {store::kFormulasTable, store::kAliasTable, store::kArgumentsTable}) {
      const auto rows = support::MemoryDatabase::Open(
          *project_.open->connection, "SELECT * FROM " + std::string(table) + " ORDER BY ID");
      for (; !rows->EOF_(); rows->MoveNext()) {
        std::string line(table);
        for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
          line += ' ' + rows->Fields(i).Value().ToText();
          std::erase(line, '\0');
        }
        lines.push_back(line);
      }
    }
    for (const char* name : {"CPump", "CTank"}) {
      if (!project_.system.Exists(support::ClassPath(name))) continue;
      std::istringstream code(Code(name));
      for (std::string line; std::getline(code, line);) {
        std::erase(line, '\r');
        lines.push_back(std::string(name) + ": " + line);
      }
    }
    return lines;
  }

  Parts MakeParts() { return PartsOf(*project_.open); }
  static Parts PartsOf(support::OpenProject& open) {
    Parts parts{support::kDatabasePath, *open.operations, open.code.context(), *open.connection};
    parts.files = open.environment.get();
    parts.has_item = [&open](std::string_view item) { return open.items.types.contains(item); };
    return parts;
  }
  std::vector<Finding> Find(const Options& options = {}) {
    return check::Find(MakeParts(), options);
  }

 private:
  std::shared_ptr<platform::Recordset> OpenRow(std::string_view table, std::int32_t id) {
    return support::MemoryDatabase::Open(
        *project_.open->connection, "SELECT * FROM " + std::string(table) + " WHERE ID = ?", {id});
  }

  support::FormulaProject project_;
};

// What went and what came, a line each, in their order.
inline std::string Changes(const std::vector<std::string>& before,
                           const std::vector<std::string>& after) {
  std::string text;
  const auto list = [&](const char* sign, const auto& lines, auto others) {
    for (const std::string& line : lines) {
      const auto same = std::ranges::find(others, line);
      if (same == others.end()) {
        text += sign + line + '\n';
      } else {
        others.erase(same);
      }
    }
  };
  list("-", before, after);
  list("+", after, before);
  return text;
}

// "ARG001 TvbfParams #3 ParentID", "SUB001 CPump.cls:12", a line each.
inline std::string Describe(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    const Where& where = finding.where;
    text += std::string(finding.rule->code) + ' ';
    if (where.table.empty()) {
      text += where.file.substr(where.file.find_last_of('/') + 1);
      if (where.line > 0) text += ':' + std::to_string(where.line);
    } else {
      text += where.table + " #" + std::to_string(where.id) + ' ' + where.member;
    }
    text += '\n';
  }
  return text;
}

}  // namespace check
