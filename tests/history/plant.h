// SPDX-License-Identifier: MIT
// A project in memory whose operations leave a history.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "history/entries.h"
#include "history/undo.h"
#include "project/project.h"
#include "tests/support/formula_project.h"
#include "tests/support/memory_database.h"
#include "tests/support/project_files.h"

namespace history {

inline constexpr const char* kHistory = "/plant/Plant.history";

// The files of a plant with these classes.
inline void PutPlant(files::MemoryFileSystem& system,
                     const std::map<std::string, std::string>& classes = {
                         {"CPump", "Option Explicit\r\n"}, {"CTank", "Option Explicit\r\n"}}) {
  support::PutProject(system, classes);
  support::PutDatabase(system);
}

// One program at work on it.
class Program {
 public:
  explicit Program(files::FileSystem& system, const project::ProjectOptions& options = {})
      : texts_(texts::Language::kEnglish),
        project_(system, support::kDatabasePath, options, texts_) {}

  store::Operations& operations() { return project_.operations(); }
  project::Project& project() { return project_; }
  HistoryFile& file() { return project_.history().file(); }

  std::int32_t AddAlias(const std::string& item, const std::string& name) {
    const store::AliasValues values[] = {{item, name}};
    return Done(operations().AddAliases(values));
  }
  std::int32_t AddFormula(const std::string& name, const std::string& class_name = "CPump") {
    return Done(operations().AddFormula({name, "PumpServer." + class_name}));
  }
  std::int32_t AddArgument(std::int32_t formula, std::int32_t alias) {
    const store::ArgumentValues values[] = {{alias, true, false}};
    return Done(operations().AddArguments(formula, values));
  }
  void RenameAlias(std::int32_t id, const std::string& name) {
    store::AliasValues values = *operations().FindAlias(id);
    values.vb_alias = name;
    Done(operations().EditAlias(id, values));
  }

  store::OperationResult Undo(std::optional<std::uint64_t> number = {}) {
    return project_.MakeUndoRedo().Undo(number).result;
  }
  store::OperationResult Redo(std::optional<std::uint64_t> number = {}) {
    return project_.MakeUndoRedo().Redo(number).result;
  }

  // The titles, the newest first, those that are undone in brackets.
  std::vector<std::string> Titles() {
    std::vector<std::string> titles;
    for (const Entry& entry : NewestEntries(file(), 1000).entries) {
      const std::string title = texts_.Sentence(entry.record.title);
      titles.push_back(entry.undone ? "(" + title + ")" : title);
    }
    return titles;
  }

 private:
  static std::int32_t Done(const store::OperationResult& result) {
    EXPECT_TRUE(result.success()) << support::ToText(result);
    return result.id();
  }

  texts::TextTable texts_;
  project::Project project_;
};

// Every row of the three tables with all its columns, and every byte of every class.
inline std::vector<std::string> StateOf(Program& program, files::MemoryFileSystem& system) {
  std::vector<std::string> state = support::RowsOf(program.operations());
  for (const auto& [path, contents] : system.Snapshot()) {
    if (path.ends_with(".cls")) state.push_back(path + '\n' + contents);
  }
  return state;
}

inline bool Holds(const store::OperationResult& result, const std::string& text) {
  return support::ToText(result).find(text) != std::string::npos;
}

}  // namespace history
