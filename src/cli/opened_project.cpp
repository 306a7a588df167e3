// SPDX-License-Identifier: MIT
#include "cli/opened_project.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "cli/commands.h"
#include "cli/suggest.h"
#include "jet/messages.h"
#include "platform/prog_id.h"
#include "platform/text.h"
#include "project/change_text.h"
#include "project/history_setting.h"
#include "project/skipped_items.h"
#include "project/user_folders.h"
#include "store/project_rows.h"

namespace cli {

namespace {

constexpr OptionSpec kVbp{"--vbp", "FILE", kTextOptVbp, true};
constexpr OptionSpec kCodePage{"--code-page", "NUMBER", kTextOptCodePage};

project::ProjectOptions OptionsFor(Invocation& invocation, OpenedProject::Use use) {
  project::ProjectOptions options = OptionsOf(invocation);
  options.with_code = use != OpenedProject::Use::kRows && !invocation.Has("--no-code");
  options.read_only = use != OpenedProject::Use::kChange;
  return options;
}

}  // namespace

project::ProjectOptions OptionsOf(Invocation& invocation) {
  project::ProjectOptions options;
  options.vb_files = invocation.Options("--vbp");
  options.items_file = invocation.Option("--items").value_or("");
  options.state_folder =
      project::FindUserFolders(invocation.console().files, invocation.console().environment).state;
  options.vb.code_page = invocation.NumberOption("--code-page").value_or(options.vb.code_page);
  options.vb.writable_folders = invocation.Options("--allow-folder");
  options.program = "ovformula";
  options.with_history =
      !invocation.Has("--no-history") &&
      project::KeepsHistory(invocation.console().files, invocation.console().environment);
  return options;
}

namespace {

std::optional<std::int32_t> ParseId(std::string_view name) {
  if (name.starts_with('#')) name.remove_prefix(1);
  std::int32_t id = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
  return error == std::errc() && end == name.data() + name.size() ? std::optional(id)
                                                                  : std::nullopt;
}

std::string FullName(const store::FormulaRecord& formula) {
  return formula.prog_id.empty() ? formula.name : formula.prog_id + "." + formula.name;
}

}  // namespace

std::vector<OptionSpec> CodeOptions(std::vector<OptionSpec> own) {
  own.insert(own.end(), {kVbp, kCodePage});
  return own;
}

std::vector<OptionSpec> OpenOptions(std::vector<OptionSpec> own) {
  own.insert(own.end(), {kVbp,
                         {"--items", "FILE", kTextOptItems},
                         {"--allow-folder", "FOLDER", kTextOptAllowFolder, true},
                         kCodePage});
  return own;
}

std::vector<OptionSpec> ChangeOptions(std::vector<OptionSpec> own) {
  own = OpenOptions(std::move(own));
  own.insert(own.end(), {{"--no-code", "", kTextOptNoCode},
                         {"--dry-run", "", kTextOptDryRun},
                         {"--no-history", "", kTextOptNoHistory}});
  return own;
}

std::vector<OptionSpec> RenameOptions(std::vector<OptionSpec> own) {
  own.insert(own.end(), {{"--with-uses", "", kTextOptWithUses},
                         {"--in-comments", "", kTextOptInComments},
                         {"--in-literals", "", kTextOptInLiterals}});
  return ChangeOptions(std::move(own));
}

OpenedProject::OpenedProject(Invocation& invocation, Use use, bool tells_problems)
    : OpenedProject(invocation, invocation.Argument("PROJECT.ovs"), OptionsFor(invocation, use),
                    tells_problems) {}

OpenedProject::OpenedProject(Invocation& invocation, Use use, const std::string& path,
                             std::vector<std::string> vb_files)
    : OpenedProject(
          invocation, path,
          [&] {
            project::ProjectOptions options = OptionsFor(invocation, use);
            options.vb_files = std::move(vb_files);
            return options;
          }(),
          true) {}

OpenedProject::OpenedProject(Invocation& invocation, const std::string& path,
                             const project::ProjectOptions& options, bool tells_problems)
    : invocation_(invocation),
      project_(std::make_unique<project::Project>(invocation.console().files, path, options,
                                                  invocation.texts())),
      progress_(invocation) {
  if (!project_->vb() || !tells_problems) return;
  for (const messages::Message& problem : project_->vb()->Problems()) {
    invocation.Warn(invocation.texts().Sentence(problem));
  }
}

store::OperationOptions OpenedProject::BaseOptions() {
  store::OperationOptions options;
  options.with_rows_only = invocation_.Has("--no-code");
  options.dry_run = dry_run();
  if (dry_run())
    options.inspect = [this] {
      if (project_->vb()) diff_ = project::DiffText(*project_->vb());
    };
  options.progress = [this](std::size_t done, std::size_t total) {
    progress_.Show(done, total);
    return !invocation_.Interrupted();
  };
  return options;
}

void OpenedProject::TakeRenameOptions(store::RenameOptions& options) {
  invocation_.Exclude("--no-code", "--with-uses");
  options.with_uses = invocation_.Has("--with-uses");
  for (const char* option : {"--in-comments", "--in-literals"}) {
    if (options.with_uses || !invocation_.Has(option)) continue;
    throw UsageError(invocation_.Text(kTextMissingArgument, {{"<Word>", "--with-uses"}}));
  }
  options.in_comments = invocation_.Has("--in-comments");
  options.in_literals = invocation_.Has("--in-literals");
}

int OpenedProject::TellMissingRows() {
  return TellMissingRows({store::kAliasTable, store::kFormulasTable, store::kArgumentsTable});
}

int OpenedProject::TellMissingRows(std::initializer_list<std::string_view> tables) {
  const auto count_read = [&](std::string_view table) {
    std::int32_t count = 0;
    const auto one_more = [&](const auto&) { ++count; };
    if (table == store::kAliasTable) operations().ForEachAlias(one_more);
    if (table == store::kFormulasTable) operations().ForEachFormula(one_more);
    if (table == store::kArgumentsTable) operations().ForEachArgument(one_more);
    return count;
  };
  int code = kDone;
  for (const std::string_view table : tables) {
    const std::int32_t counted = project_->connection()->TableRowCount(table);
    const std::int32_t found = count_read(table);
    if (counted <= found || project_->connection()->TableRowCount(table) != counted) continue;
    const messages::Message gap(jet::message::kRowsMissing, {{"<Path>", project_->path()},
                                                             {"<Table>", table},
                                                             {"<Count>", counted},
                                                             {"<Found>", found}});
    invocation_.Warn(invocation_.Text(
        kTextExportGap, {{"<Name>", table}, {"<Text>", invocation_.texts().Sentence(gap)}}));
    code = kFile;
  }
  return code;
}

void OpenedProject::Report(const store::OperationResult& result) {
  progress_.End();
  for (const messages::Message& warning : result.warnings)
    invocation_.Warn(invocation_.texts().Sentence(warning));
  const project::ItemFile& items = project_->items();
  if (const auto* catalogue = items.Loaded()) {
    for (const auto& skipped : SkippedItems(*catalogue, items.path(), invocation_.texts())) {
      invocation_.Warn(skipped);
    }
  }
  for (const messages::Message& problem : project_->history().TakeProblems()) {
    invocation_.Warn(invocation_.texts().Sentence(problem));
  }
  if (project_->vb()) {
    for (const auto& replaced : project_->vb()->TakeReplacedCharacters()) {
      invocation_.Warn(
          invocation_.Text(kTextReplacedCharacters, {{"<File>", replaced.file},
                                                     {"<Line>", std::to_string(replaced.line)},
                                                     {"<Text>", replaced.characters}}));
    }
  }
  if (result.success()) {
    if (dry_run()) invocation_.console().out << project::RowsText(result.rows) << diff_;
    return;
  }
  if (result.outcome == store::Outcome::kCancelled) throw InterruptedError();
  std::string message = invocation_.texts().Sentence(result.message);
  if (!result.detail.empty()) message += "\n" + invocation_.texts().Sentence(result.detail);
  throw CommandError(result.outcome == store::Outcome::kFileProblem ? kFile : kRefused, message);
}

void OpenedProject::ReportList(const store::OperationResult& result,
                               const std::vector<Given>& given,
                               const std::function<bool(std::size_t)>& refused) {
  try {
    Report(result);
  } catch (const CommandError& error) {
    if (error.code() != kRefused) throw;
    for (std::size_t i = 0; i < given.size(); ++i) {
      if (given[i].line > 0 && refused(i))
        throw CommandError(kRefused, invocation_.AtLine(given[i].line, error.what()));
    }
    throw;
  }
}

void OpenedProject::ReportEdit(const store::OperationResult& result) {
  Report(result);
  if (result.rows.empty()) {
    invocation_.console().err << invocation_.Text(kTextNothingToChange) << '\n';
  }
}

std::vector<store::FormulaRecord> OpenedProject::FormulasNamed(const std::string& name) {
  if (formulas_.empty()) return operations().FindFormulasByName(name);
  const auto found = formulas_.find(platform::FoldCase(name));
  return found == formulas_.end() ? std::vector<store::FormulaRecord>() : found->second;
}

store::FormulaRecord OpenedProject::Formula(const std::string& name) {
  // A name may itself hold no point, so the last part is the procedure.
  const auto point = name.rfind('.');
  const std::string procedure = point == std::string::npos ? name : name.substr(point + 1);
  std::vector<store::FormulaRecord> found = FormulasNamed(procedure);
  if (point != std::string::npos) {
    std::erase_if(found, [&](const auto& formula) {
      return !platform::ProgId(formula.prog_id).IsNamed(name.substr(0, point));
    });
  }
  if (found.size() == 1) return found.front();
  if (found.size() > 1) {
    std::string candidates;
    for (const auto& formula : found) {
      candidates += (candidates.empty() ? "" : ", ") + FullName(formula) + " (#" +
                    std::to_string(formula.id) + ")";
    }
    throw CommandError(
        kRefused,
        invocation_.Text(kTextAmbiguousFormula, {{"<Name>", name}, {"<Candidates>", candidates}}));
  }
  if (const auto id = ParseId(name)) {
    if (auto formula = operations().FindFormula(*id)) return *formula;
  }
  std::vector<std::string> names;
  operations().ForEachFormula(
      [&](const store::FormulaRecord& formula) { names.push_back(formula.name); });
  const std::string near = Nearest(procedure, names);
  throw CommandError(kRefused,
                     invocation_.Text(near.empty() ? kTextUnknownFormula : kTextUnknownFormulaNear,
                                      {{"<Name>", name}, {"<Near>", near}}));
}

store::AliasRecord OpenedProject::Alias(const std::string& name) {
  if (auto alias = operations().FindAliasByName(name)) return *alias;
  std::vector<std::string> names;
  operations().ForEachAlias(
      [&](const store::AliasRecord& alias) { names.push_back(alias.vb_alias); });
  const std::string near = Nearest(name, names);
  throw CommandError(kRefused,
                     invocation_.Text(near.empty() ? kTextUnknownAlias : kTextUnknownAliasNear,
                                      {{"<Name>", name}, {"<Near>", near}}));
}

std::string OpenedProject::Class(const std::string& name) {
  for (const store::ClassEntry& entry : operations().Classes().classes) {
    if (platform::ProgId(entry.prog_id).IsNamed(name)) return entry.prog_id;
  }
  return name;
}

store::ArgumentRecord OpenedProject::Argument(const store::FormulaRecord& formula,
                                              const std::string& alias) {
  const std::int32_t id = ArgumentIds(formula, {{alias}}).front();
  return operations().FindArgument(id).value();
}

template <typename Find>
std::vector<std::int32_t> OpenedProject::Ids(const std::vector<Given>& names, Find find) {
  std::vector<std::int32_t> ids;
  std::unordered_set<std::int32_t> known;
  for (const Given& name : names) {
    if (Interrupted()) throw InterruptedError();
    try {
      const std::int32_t id = find(name.text);
      if (known.insert(id).second) ids.push_back(id);
    } catch (const CommandError& error) {
      throw CommandError(error.code(), invocation_.AtLine(name.line, error.what()));
    }
  }
  return ids;
}

std::vector<std::int32_t> OpenedProject::FormulaIds(const std::vector<Given>& names) {
  // No index leads to names of formulas: one look at all of them instead of one for each name.
  constexpr std::size_t kFew = 4;
  if (names.size() > kFew) {
    operations().ForEachFormula([&](const store::FormulaRecord& formula) {
      formulas_[platform::FoldCase(formula.name)].push_back(formula);
    });
  }
  std::vector<std::int32_t> ids =
      Ids(names, [&](const std::string& name) { return Formula(name).id; });
  formulas_.clear();
  return ids;
}

std::vector<std::int32_t> OpenedProject::AliasIds(const std::vector<Given>& names) {
  return Ids(names, [&](const std::string& name) { return Alias(name).id; });
}

std::vector<std::int32_t> OpenedProject::ArgumentIds(const store::FormulaRecord& formula,
                                                     const std::vector<Given>& aliases) {
  std::unordered_map<std::string, std::int32_t> by_alias;
  for (const store::ArgumentRecord& argument : operations().ArgumentsOf(formula.id)) {
    by_alias.emplace(platform::FoldCase(argument.vb_alias), argument.id);
  }
  return Ids(aliases, [&](const std::string& alias) {
    const auto found = by_alias.find(platform::FoldCase(alias));
    if (found != by_alias.end()) return found->second;
    throw CommandError(kRefused,
                       invocation_.Text(kTextUnknownArgument,
                                        {{"<Alias>", alias}, {"<Formula>", FullName(formula)}}));
  });
}

}  // namespace cli
