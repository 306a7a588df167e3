// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "codegen/vb_formula_code.h"
#include "files/file_system.h"
#include "files/unit_of_work.h"
#include "history/recorder.h"
#include "history/undo.h"
#include "messages/message.h"
#include "platform/ado.h"
#include "project/component_list_file.h"
#include "project/connection_participant.h"
#include "project/foreign_changes.h"
#include "project/item_file.h"
#include "store/operations.h"
#include "texts/text_table.h"
#include "vbfiles/environment.h"

namespace project {

struct ProjectOptions {
  bool with_code = true;  // false: no Visual Basic project is looked at
  bool read_only = false;
  // False: whoever uses the connection first opens it; the project itself then has no operations.
  bool open_database = true;
  std::vector<std::string> vb_files;  // empty: all .vbp and .vbg beside and below the database
  std::string items_file;             // "": items.csv beside the database, which may be missing
  std::string state_folder;           // of the user; "" keeps no component list
  bool with_history = true;           // operations leave a record that they can be undone by
  std::string program = "ovformula-desktop";  // that works on the project, for the record
  vbfiles::Options vb;
};

// A project database with its Visual Basic projects, item catalogue and component list, wired to
// the operations. What one operation changes of all of them is one unit of work.
class Project {
 public:
  // A path that is a link means the file that it leads to, with what stands beside that. Raises
  // platform::Error or files::Error: a file that cannot be opened, a database that lacks one of the
  // tables, two Visual Basic projects of one name. The text table must outlive the project.
  Project(files::FileSystem& system, const std::string& path, const ProjectOptions& options,
          const texts::TextTable& texts);
  ~Project();
  Project(const Project&) = delete;
  Project& operator=(const Project&) = delete;

  const std::string& path() const { return path_; }
  // Of the studio project.
  const std::string& name() const { return name_; }
  // Only where the project opens its database, both.
  store::Operations& operations() { return *operations_; }
  codegen::CVBFormulaCode& code() { return code_; }
  std::shared_ptr<platform::Connection> connection() { return connection_; }
  // Null without code.
  std::shared_ptr<vbfiles::Environment> vb() { return vb_; }
  ItemFile& items() { return items_; }
  // Null without a state folder or code.
  ComponentListFile* components() { return components_.get(); }
  files::JournalledUnitOfWork& unit() { return unit_; }
  history::Recorder& history() { return history_; }
  // Takes operations back and does them again, by the project's own operations or by those that a
  // host made over its connection and unit of work. What it is made from must outlive it.
  history::UndoRedo MakeUndoRedo() { return MakeUndoRedo(*operations_, code_.context()); }
  history::UndoRedo MakeUndoRedo(store::Operations& operations, const codegen::CodeContext& code);
  // Why nothing can be changed; empty when changes are possible or the database is not open.
  messages::Message ReadOnlyReason() const;
  // What other programs do to the database.
  ForeignChanges& foreign_changes() { return foreign_changes_; }
  // Walks the whole database file; how many faults it has.
  std::size_t CountFaults(const std::function<void(std::uint64_t, std::uint64_t)>& progress);
  // The database, its history and every Visual Basic file that an operation may change.
  std::vector<std::string> ChangeableFiles();

 private:
  files::FileSystem& system_;
  files::Reach reach_;
  std::string path_;
  std::string name_;
  std::shared_ptr<recordset::JetConnection> connection_;
  ConnectionParticipant database_;
  ItemFile items_;
  std::unique_ptr<ComponentListFile> components_;
  std::shared_ptr<vbfiles::Environment> vb_;
  files::JournalledUnitOfWork unit_;
  ForeignChanges foreign_changes_;
  history::Recorder history_;
  codegen::CVBFormulaCode code_;
  std::unique_ptr<store::Operations> operations_;
};

// The name of the studio project where there is no studio: the database's file name without its
// extension.
std::string StudioProjectName(const files::FileSystem& system, const std::string& database_path);

// The files that an operation of the project may write besides its database, and that the journal
// of an interrupted one may name: modules in the folder of the database, of the Visual Basic files
// that the options name and in those that the engineer agreed to.
files::Reach ReachOf(files::FileSystem& system, const std::string& database_path,
                     const ProjectOptions& options);

}  // namespace project
