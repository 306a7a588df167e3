// SPDX-License-Identifier: MIT
#include "editor/commands.h"

#include <algorithm>
#include <array>
#include <optional>

#include "dialogs/argument_dialogs.h"
#include "dialogs/formula_dialogs.h"
#include "dialogs/outcome.h"
#include "editor/name_list.h"
#include "editor/node_key.h"
#include "editor/tools.h"
#include "messages/text_number.h"

namespace editor {

namespace {

constexpr messages::TextNumber kAskAliases{190};
constexpr messages::TextNumber kAskArguments{191};
constexpr messages::TextNumber kAskFormula{192};
constexpr messages::TextNumber kFormulaWithArguments{1613};
constexpr messages::TextNumber kFormulaWithArgument{1614};
constexpr messages::TextNumber kFormulaAlone{1615};
constexpr messages::TextNumber kArgumentsDetail{1616};
constexpr messages::TextNumber kAliasesDetail{1617};
constexpr messages::TextNumber kInUseDetail{1618};
constexpr messages::TextNumber kReportRemedy{1628};
constexpr messages::TextNumber kMoreInUse{1635};
constexpr messages::TextNumber kDeleteThereFirst{1636};
constexpr messages::TextNumber kOneArgumentDeleted{1637};  // the next text is of several
constexpr messages::TextNumber kOneAliasDeleted{1655};
constexpr messages::TextNumber kOneFormula{4530};
constexpr messages::TextNumber kOneArgument{4532};
constexpr messages::TextNumber kOneAlias{4534};
constexpr messages::TextNumber kNoArgument{1620};
constexpr messages::TextNumber kNotText{1663};
constexpr messages::TextNumber kNothingToPaste{1664};
constexpr messages::TextNumber kOnlyShown{4386};
constexpr messages::TextNumber kDeletingArguments{1646};
constexpr messages::TextNumber kDeletingAliases{1649};

// Aliases that a message names with their uses.
constexpr std::size_t kUsesShown = 10;

// German in every language, on purpose.
constexpr const char* kAliasInUse =
    "Der zu löschende Alias wird in einer Funktion benutzt. Er kann nicht gelöscht werden";

std::int32_t CurrentIdOf(const forms::Grid& grid) {
  return static_cast<std::int32_t>(grid.CurrentId().value_or(0));
}

std::vector<std::int32_t> SelectedIdsOf(const forms::Grid& grid) {
  std::vector<std::int32_t> ids;
  for (const std::int64_t id : grid.SelectedIds()) ids.push_back(static_cast<std::int32_t>(id));
  return ids;
}

// What comes next is about that row alone.
void GoTo(forms::Grid& grid, std::int64_t id) {
  if (grid.SetCurrentId(id)) grid.SetSelection({id});
}

}  // namespace

void Commands::Run(std::string_view tool_name) {
  if (tool_name == kShowEditorTool) {
    context_.host.ActivateEditor();
    return;
  }
  const ToolRow* row = FindToolRow(tool_name);
  if (!row || !row->command) return;
  view_.VerifyAdds(view_.CurrentKey());
  try {
    (this->*row->command)(row->action);
  } catch (const std::exception& error) {
    context_.messages.Warn(error);
  }
}

void Commands::mnuFunction(std::int16_t action) {
  if (action == kNew) {
    NewFormula();
    return;
  }
  if (action == kPaste) return lists_.PasteFormulas();
  const std::int32_t id = KeyNumber(view_.ContextKey());
  if (!context_.operations.FindFormula(id)) return;
  if (action == kEdit) EditFormula(id);
  if (action == kDelete) DeleteFormula(id);
  if (action == kShowCode) ShowCode(id);
  if (action == kCopy) lists_.CopyFormulas({&id, 1});
  if (action == kDuplicate) lists_.Duplicate(id);
}

void Commands::mnuEdit(std::int16_t action) {
  UndoEntries* const entries = context_.services.undo;
  if (!entries) return;
  const std::string reason = entries->Look(action == kUndo).reason;
  reason.empty() ? entries->Run(action == kUndo) : Say(reason);
}

void Commands::mnuParameter(std::int16_t action) {
  if (action == kNew) NewArgument();
  if (action == kEdit) EditArgument();
  if (action == kDelete) DeleteArguments();
}

void Commands::mnuAlias(std::int16_t action) {
  if (action == kNew) NewAlias();
  if (action == kEdit) EditAlias();
  if (action == kDelete) DeleteAliases();
}

void Commands::mnuGrid(std::int16_t action) {
  forms::Grid& grid = KeyKind(view_.CurrentKey()) == kAliasKind ? aliases_ : arguments_;
  if (action == kPasteCell && lists_.Paste(grid.CurrentId().has_value())) return;
  if (!grid.CurrentId()) return Say(grid.EmptyText());
  if (action == kEditCell) EditCell(grid);
  if (action == kPasteCell) PasteCell(grid);
  if (action == kCopyRows) CopyRows(grid);
}

void Commands::mnuExtra(std::int16_t action) {
  if (action == kRefresh) context_.host.RebuildViews();
  if (action == kStatistics) ShowStatistics();
  if (action == kOptions && view_.ChangeOptions()) context_.host.RebuildViews();
  if (action == kReport) ShowReport();
}

bool Commands::Confirmed(messages::TextNumber question, const std::string& detail) {
  return !context_.SettingIsOn("RequestOnDelete") ||
         context_.messages.Ask(context_.Text(question), detail);
}

void Commands::Say(const std::string& text) const {
  if (!text.empty()) context_.studio->ShowWarnings({{text}});
}

std::string Commands::Counted(messages::TextNumber text_of_one, std::int64_t count) const {
  if (count == 1) return context_.Text(text_of_one);
  return context_.texts.Text(text_of_one + 1, {{"<Count>", std::to_string(count)}});
}

// --- Formulas ---

void Commands::NewFormula() {
  const dialogs::AddedFormula added = dialogs::AddFormula(context_.dialog_context);
  if (!added.added) return;
  const std::string key = FormulaKey(added.id);
  platform::AddIn& studio = *context_.studio;
  studio.AddNode(kFormulasKey, added.name, key, "", KeyIcon(key), {0, 0, 0, 0});
  studio.SelectNode(key);
  view_.ShowNode(key, added.name);
  arguments_.SetFocus();  // arguments come next
}

void Commands::EditFormula(std::int32_t id) {
  const bool changed = dialogs::EditFormula(context_.dialog_context, id);
  context_.KeepChoices();
  if (!changed) return;
  const auto record = context_.operations.FindFormula(id);
  if (!record) return;
  const std::string key = FormulaKey(id);
  context_.studio->SetNodeText(key, record->name);
  if (view_.CurrentKey() != key) return;
  view_.MakeMyCaption(key, record->name);
  view_.Reload();
}

void Commands::DeleteFormula(std::int32_t id) {
  store::Operations& operations = context_.operations;
  const store::FormulaRecord formula = operations.FindFormula(id).value();
  const std::size_t arguments = operations.ArgumentsOf(id).size();
  const messages::TextNumber detail = arguments == 0   ? kFormulaAlone
                                      : arguments == 1 ? kFormulaWithArgument
                                                       : kFormulaWithArguments;
  if (!Confirmed(kAskFormula,
                 context_.texts.Text(detail, {{"<Name>", formula.name},
                                              {"<Class>", formula.prog_id},
                                              {"<Count>", std::to_string(arguments)}}))) {
    return;
  }
  const std::array ids = {id};
  const store::OperationResult result = dialogs::RunOperation(
      context_.dialog_context, [&] { return operations.DeleteFormulas(ids); });
  if (!result.success()) {
    dialogs::WarnFailure(context_.dialog_context, result);
    return;
  }
  const std::string key = FormulaKey(id);
  platform::AddIn& studio = *context_.studio;
  const std::string neighbour = Neighbour(studio, key);
  studio.RemoveNode(key);
  const auto next = operations.FindFormula(KeyNumber(neighbour));
  if (view_.CurrentKey() == key) {
    studio.SelectNode(neighbour);
    view_.ShowNode(neighbour, next ? next->name : std::string());
  }
  if (next) context_.ShowFunction(next->prog_id, next->name);
}

void Commands::ShowCode(std::int32_t id) {
  const store::FormulaRecord formula = context_.operations.FindFormula(id).value();
  if (context_.ShowFunction(formula.prog_id, formula.name)) return;
  constexpr messages::TextNumber kNoCode{1629};
  context_.messages.Warn(
      context_.texts.Text(kNoCode, {{"<Name>", formula.name}, {"<Class>", formula.prog_id}}));
}

// --- Arguments ---

void Commands::NewArgument() {
  const std::int32_t id =
      dialogs::AddArgument(context_.dialog_context, KeyNumber(view_.CurrentKey()));
  if (id == 0) return;
  view_.Reload();
  GoTo(arguments_, id);
}

void Commands::EditArgument() {
  if (!arguments_.CurrentId()) return Say(context_.Text(kNoArgument));
  const std::vector<std::int32_t> selected = SelectedIdsOf(arguments_);
  const bool done = selected.size() > 1
                        ? dialogs::EditArguments(context_.dialog_context, selected)
                        : dialogs::EditArgument(context_.dialog_context, CurrentIdOf(arguments_));
  if (done) view_.Reload();
}

void Commands::DeleteArguments() {
  store::Operations& operations = context_.operations;
  const std::vector<std::int32_t> ids = SelectedIdsOf(arguments_);
  if (ids.empty()) return;
  std::vector<std::string> names;
  for (const std::int32_t id : ids) {
    if (const auto argument = operations.FindArgument(id)) names.push_back(argument->vb_alias);
  }
  const auto formula = operations.FindFormula(KeyNumber(view_.CurrentKey()));
  const std::string detail = context_.texts.Text(
      kArgumentsDetail, {{"<Names>", NameList(names)}, {"<Name>", formula ? formula->name : ""}});
  if (!Confirmed(kAskArguments, detail)) return;
  const store::OperationResult result = dialogs::RunListOperation(
      context_.dialog_context, kDeletingArguments,
      [&](const auto& options) { return operations.DeleteArguments(ids, options); });
  if (!result.success()) dialogs::WarnFailure(context_.dialog_context, result);
  view_.Reload();
  if (result.success()) Say(Counted(kOneArgumentDeleted, std::ssize(ids)));
}

// --- Aliases ---

void Commands::NewAlias() {
  const std::int32_t id = dialogs::AddAlias(context_.dialog_context);
  if (id == 0) return;
  view_.Reload();
  GoTo(aliases_, id);
}

void Commands::EditAlias() {
  if (dialogs::EditAlias(context_.dialog_context, CurrentIdOf(aliases_))) view_.Reload();
}

void Commands::DeleteAliases() {
  store::Operations& operations = context_.operations;
  const std::vector<std::int32_t> selected = SelectedIdsOf(aliases_);
  if (selected.empty()) return;
  std::vector<std::string> names;
  for (const std::int32_t id : selected) {
    if (names.size() > kNamesShown) break;
    if (const auto alias = operations.FindAlias(id)) names.push_back(alias->vb_alias);
  }
  const std::string detail =
      context_.texts.Text(kAliasesDetail, {{"<Names>", NameList(names, selected.size())}});
  if (!Confirmed(kAskAliases, detail)) return;
  const std::optional<AliasUses> uses = FindUses(selected);
  if (!uses) return;
  std::string done;
  if (!uses->unused.empty()) {
    const store::OperationResult result = dialogs::RunListOperation(
        context_.dialog_context, kDeletingAliases,
        [&](const auto& options) { return operations.DeleteAliases(uses->unused, options); });
    view_.Reload();
    if (!result.success()) return dialogs::WarnFailure(context_.dialog_context, result);
    done = Counted(kOneAliasDeleted, std::ssize(uses->unused));
  }
  if (uses->used.empty()) return Say(done);
  context_.messages.Warn(kAliasInUse, DescribeUses(uses->used) + (done.empty() ? "" : "\n" + done));
}

std::optional<Commands::AliasUses> Commands::FindUses(const std::vector<std::int32_t>& aliases) {
  const dialogs::MessageBoxes::Guard guard(context_.messages);
  const dialogs::BusyPointer busy(context_.services.toolkit);
  const auto progress = context_.services.toolkit.StartProgress(context_.Text(kDeletingAliases));
  AliasUses uses;
  for (std::size_t i = 0; i < aliases.size(); ++i) {
    if (!progress->Show(i, aliases.size())) return std::nullopt;
    std::vector<store::FormulaRecord> formulas = context_.operations.UsesOfAlias(aliases[i]);
    if (formulas.empty()) {
      uses.unused.push_back(aliases[i]);
    } else {
      uses.used.emplace_back(aliases[i], std::move(formulas));
    }
  }
  return uses;
}

// A line for each alias, and the remedy.
std::string Commands::DescribeUses(const std::vector<AliasUse>& used) {
  std::string text;
  for (std::size_t i = 0; i < std::min(used.size(), kUsesShown); ++i) {
    const auto alias = context_.operations.FindAlias(used[i].first);
    std::vector<std::string> users;
    for (const store::FormulaRecord& formula : used[i].second) {
      users.push_back(formula.prog_id + "." + formula.name);
    }
    text += context_.texts.Text(kInUseDetail, {{"<Name>", alias ? alias->vb_alias : ""},
                                               {"<Names>", NameList(users)}}) +
            "\n";
  }
  if (used.size() > kUsesShown) {
    text +=
        context_.texts.Text(kMoreInUse, {{"<Count>", std::to_string(used.size() - kUsesShown)}}) +
        "\n";
  }
  return text + context_.Text(kDeleteThereFirst);
}

// --- Cells ---

void Commands::EditCell(forms::Grid& grid) {
  if (grid.ColumnAt(grid.CurrentColumn()).Locked()) return Say(context_.Text(kOnlyShown));
  if (grid.ColumnAt(grid.CurrentColumn()).Kind() == forms::ColumnKind::kCheckBox)
    return Say(context_.Text(kNotText));
  grid.BeginEdit(grid.CurrentColumn());
}

void Commands::CopyRows(const forms::Grid& grid) {
  const std::vector<std::int32_t> ids = SelectedIdsOf(grid);
  if (ids.empty()) return;
  if (&grid == &arguments_) {
    context_.services.toolkit.SetClipboardText(lists_.ArgumentLines(ids));
  } else {
    lists_.CopyAliases(ids, grid.SelectedText(grid.CopiedColumns()));
  }
}

void Commands::PasteCell(forms::Grid& grid) {
  if (grid.ColumnAt(grid.CurrentColumn()).Locked()) return Say(context_.Text(kOnlyShown));
  std::string text = context_.services.toolkit.ClipboardText();
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  if (text.empty()) return Say(context_.Text(kNothingToPaste));
  if (grid.ColumnAt(grid.CurrentColumn()).Kind() == forms::ColumnKind::kCheckBox)
    return Say(context_.Text(kNotText));
  grid.EditCell(grid.CurrentColumn(), platform::Variant(text));
}

// --- Extras ---

void Commands::ShowStatistics() {
  const dialogs::BusyPointer busy(context_.services.toolkit);
  const store::Statistics statistics = context_.operations.Count();
  Counts counts{statistics.aliases, statistics.formulas, statistics.arguments};
  counters_.Update(CounterMode::kSet, counts, context_.Lookup());
  if (!context_.services.in_workbench) return;
  Say(Counted(kOneFormula, counts.formulas) + "  ·  " + Counted(kOneArgument, counts.arguments) +
      "  ·  " + Counted(kOneAlias, counts.aliases));
}

void Commands::ShowReport() {
  std::shared_ptr<platform::Object> created;
  try {
    created = context_.services.objects.Create("OVProjectReport.Connect");
  } catch (const platform::Error& error) {
    context_.messages.Warn(std::to_string(error.number()) + "\r\n" + context_.texts.Sentence(error),
                           context_.Text(kReportRemedy));
    return;
  }
  const auto report = std::dynamic_pointer_cast<platform::ReportAddIn>(created);
  if (!report) return;
  const dialogs::MessageBoxes::Guard guard(context_.messages);
  const dialogs::BusyPointer busy(context_.services.toolkit);
  std::string database_path = context_.project.database_path;
  report->Show(
      "OVFormula", database_path,
      static_cast<std::int32_t>(context_.services.toolkit.Handle(*context_.dialog_context.owner)));
}

}  // namespace editor
