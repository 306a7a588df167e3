// SPDX-License-Identifier: MIT
// What the commands on projects share: opening, names, results.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cli/invocation.h"
#include "cli/progress.h"
#include "project/project.h"
#include "store/operations.h"

namespace cli {

// Options that say how a project is to be read.
std::vector<OptionSpec> OpenOptions(std::vector<OptionSpec> own);
// What they say.
project::ProjectOptions OptionsOf(Invocation& invocation);
// Options of every command that changes something.
std::vector<OptionSpec> ChangeOptions(std::vector<OptionSpec> own);
// The same of those that give something another name in the code.
std::vector<OptionSpec> RenameOptions(std::vector<OptionSpec> own);
// Options of commands that look at code without changing it.
std::vector<OptionSpec> CodeOptions(std::vector<OptionSpec> own);

// An open project and the call it serves.
class OpenedProject {
 public:
  enum class Use { kRows, kCode, kChange };
  // Tells what is wrong with the files of Visual Basic projects, unless the caller does.
  OpenedProject(Invocation& invocation, Use use, bool tells_problems = true);
  // Another project than the one that the call is about, with its own Visual Basic projects.
  OpenedProject(Invocation& invocation, Use use, const std::string& path,
                std::vector<std::string> vb_files);

  project::Project& project() { return *project_; }
  store::Operations& operations() { return project_->operations(); }

  // Options for an operation: --no-code, --dry-run, progress and Ctrl+C.
  template <class Options = store::OperationOptions>
  Options MakeOptions() {
    Options options;
    static_cast<store::OperationOptions&>(options) = BaseOptions();
    return options;
  }

  // The same with --with-uses, --in-comments and --in-literals.
  template <class Options = store::RenameOptions>
  Options MakeRenameOptions() {
    Options options(BaseOptions());
    TakeRenameOptions(options);
    return options;
  }

  // Warns of rows of these tables that their definitions count and nobody can read; the exit code
  // of a list of them. What others change meanwhile is no gap.
  int TellMissingRows(std::initializer_list<std::string_view> tables);
  int TellMissingRows();  // of all tables

  // Prints warnings, the rows and code of a dry run, and raises CommandError unless it is done.
  void Report(const store::OperationResult& result);
  // The same for a list; a refusal has the line of the first word that `refused` says it is about.
  void ReportList(const store::OperationResult& result, const std::vector<Given>& given,
                  const std::function<bool(std::size_t)>& refused);
  // The same for an edit; says when there was nothing to change.
  void ReportEdit(const store::OperationResult& result);
  bool Interrupted() const { return invocation_.Interrupted(); }
  bool dry_run() const { return invocation_.Has("--dry-run"); }

  // The formula that NAME, CLASS.NAME, PROJECT.CLASS.NAME, ID or #ID means. Raises CommandError
  // with suggestions or candidates.
  store::FormulaRecord Formula(const std::string& name);
  store::AliasRecord Alias(const std::string& name);
  // The ProgID of the class that CLASS or PROJECT.CLASS means, as it is written in the project; a
  // class that is not in the list is passed on, the operation refuses it by name.
  std::string Class(const std::string& name);
  // The argument of the formula that passes the alias.
  store::ArgumentRecord Argument(const store::FormulaRecord& formula, const std::string& alias);

  // The IDs of all that are named, each once, in that order. Raise CommandError with the line of
  // an unknown name, also when Ctrl+C was pressed.
  std::vector<std::int32_t> FormulaIds(const std::vector<Given>& names);
  std::vector<std::int32_t> AliasIds(const std::vector<Given>& names);
  std::vector<std::int32_t> ArgumentIds(const store::FormulaRecord& formula,
                                        const std::vector<Given>& aliases);

 private:
  std::vector<store::FormulaRecord> FormulasNamed(const std::string& name);
  template <typename Find>
  std::vector<std::int32_t> Ids(const std::vector<Given>& names, Find find);
  store::OperationOptions BaseOptions();
  void TakeRenameOptions(store::RenameOptions& options);
  OpenedProject(Invocation& invocation, const std::string& path,
                const project::ProjectOptions& options, bool tells_problems);

  Invocation& invocation_;
  std::unique_ptr<project::Project> project_;
  Progress progress_;
  std::string diff_;  // of the code, in a dry run
  // By name in lower case, while a long list is looked up.
  std::unordered_map<std::string, std::vector<store::FormulaRecord>> formulas_;
};

}  // namespace cli
