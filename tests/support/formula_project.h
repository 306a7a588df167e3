// SPDX-License-Identifier: MIT
// A whole project in memory: database, Visual Basic project, generator and operations, all of
// them the real parts.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "codegen/vb_formula_code.h"
#include "files/unit_of_work.h"
#include "recordset/jet_connection.h"
#include "store/operations.h"
#include "tests/support/any_file.h"
#include "tests/support/memory_database.h"
#include "tests/support/project_doubles.h"
#include "tests/support/project_files.h"
#include "tests/support/sentence.h"
#include "texts/text_table.h"
#include "vbfiles/environment.h"

namespace support {

// The parts of the system over files that are there. The file system must outlive them.
class OpenProject {
 public:
  explicit OpenProject(files::FileSystem& system,
                       texts::Language language = texts::Language::kEnglish)
      : texts(language),
        environment(std::make_shared<vbfiles::Environment>(system)),
        connection(std::make_shared<recordset::JetConnection>(system, AnyFileOptions())),
        unit(system, kDatabasePath, kAnyFile),
        code(texts, &items, &components) {
    connection->Open(store::ProjectConnectionString(kDatabasePath));
    environment->Open(kProjectPath);
    unit.Enlist(connection->database());
    unit.Enlist(*environment);
    Use(environment);
  }

  // Puts a code model in front of the environment's.
  void Use(std::shared_ptr<platform::VBE> vbe) {
    code.Initialize(connection, vbe, "Plant");
    operations = std::make_unique<store::Operations>(
        store::Operations::Parts{connection, std::move(vbe), &code, &unit, &texts});
  }

  texts::TextTable texts;
  TableItems items;
  RecordingComponentList components;
  std::shared_ptr<vbfiles::Environment> environment;
  std::shared_ptr<recordset::JetConnection> connection;
  files::JournalledUnitOfWork unit;
  codegen::CVBFormulaCode code;
  std::unique_ptr<store::Operations> operations;
};

// Files in memory and the system over them.
class FormulaProject {
 public:
  explicit FormulaProject(const std::map<std::string, std::string>& classes = {{"CPump", ""}},
                          texts::Language language = texts::Language::kEnglish) {
    PutProject(system, classes);
    PutDatabase(system);
    open.emplace(system, language);
  }

  store::Operations& operations() { return *open->operations; }
  // The code of a class as it stands in its file.
  std::string Code(std::string_view name) {
    return system.Get(ClassPath(name)).substr(ClassHeader(name).size());
  }
  // As an engineer's editor would.
  void PutCode(std::string_view name, const std::string& text) {
    system.Put(ClassPath(name), ClassHeader(name) + text);
  }

  std::int32_t AddAlias(std::string item, std::string name) {
    const store::AliasValues values[] = {{std::move(item), std::move(name)}};
    return operations().AddAliases(values).id();
  }

  files::MemoryFileSystem system;
  std::optional<OpenProject> open;
};

inline std::string ToText(const store::OperationResult& result) {
  std::string text =
      result.success() ? "done" : Sentence(result.message) + " | " + Sentence(result.detail);
  for (const messages::Message& warning : result.warnings) text += "\n! " + Sentence(warning);
  return text;
}

// All rows of the project's tables, one text each.
inline std::vector<std::string> RowsOf(store::Operations& operations) {
  std::vector<std::string> rows;
  operations.ForEachAlias([&](const store::AliasRecord& alias) {
    rows.push_back("alias " + std::to_string(alias.id) + ' ' + alias.item_id + ' ' +
                   alias.vb_alias);
  });
  std::vector<std::int32_t> ids;
  operations.ForEachFormula([&](const store::FormulaRecord& formula) {
    ids.push_back(formula.id);
    rows.push_back("formula " + std::to_string(formula.id) + ' ' + formula.name + ' ' +
                   formula.prog_id + ' ' + std::to_string(formula.type) + ' ' +
                   std::to_string(formula.scan_time) + ' ' + std::to_string(formula.enabled) + ' ' +
                   formula.comment);
  });
  for (const std::int32_t id : ids) {
    for (const store::ArgumentRecord& argument : operations.ArgumentsOf(id)) {
      rows.push_back("argument " + std::to_string(argument.id) + " of " + std::to_string(id) + ' ' +
                     argument.vb_alias + ' ' + std::to_string(argument.in) + ' ' +
                     std::to_string(argument.out));
    }
  }
  return rows;
}

}  // namespace support
