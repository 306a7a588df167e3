// SPDX-License-Identifier: MIT
#include "desktop/check_list.h"

#include <wx/utils.h>

#include <algorithm>
#include <array>
#include <utility>

#include "check/project_parts.h"
#include "desktop/change_preview.h"
#include "desktop/pane_texts.h"
#include "editor/node_key.h"
#include "messages/error.h"
#include "project/change_text.h"
#include "store/project_rows.h"
#include "studio/formula_nodes.h"

namespace desktop {

namespace {

// The user stopped the check.
struct Stopped {};

}  // namespace

CheckList::CheckList(const Dependencies& own) : own_(own) {
  own_.pane.on_check = [this] { Check(); };
  own_.pane.on_repair = [this] { Repair(); };
  own_.pane.on_select = [this] { ShowSelected(); };
  own_.pane.on_activate = [this](std::size_t row) {
    GoTo(check::Finding(findings_[row]));  // the list may change by it
  };
}

CheckList::~CheckList() {
  own_.pane.Close();
  own_.pane.ShowFindings({}, {});
}

void CheckList::Check() {
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  if (!editor || own_.opened.unit().IsOpen()) return;
  editor->VerifyAdds(editor->CurrentKey());
  own_.pane.Open();
  std::vector<check::Finding> findings;
  try {
    const wxBusyCursor busy;
    const auto shown = own_.parts.toolkit.StartProgress(own_.parts.Text(kTextChecking));
    check::Options options;
    options.progress = [&](std::size_t done, std::size_t total) {
      if (!shown->Show(done, total)) throw Stopped();
    };
    findings = check::Find(
        check::PartsOf(own_.opened, editor->operations(), editor->cVBF.context(), options.progress),
        options);
  } catch (const Stopped&) {
    return own_.messages.Status(own_.parts.Text(kTextCheckStopped));
  } catch (const std::exception& error) {
    return own_.messages.Fail(own_.parts.Text(kTextCannotCheck), own_.parts.texts.Sentence(error));
  }
  Show(std::move(findings));
  if (on_checked) on_checked();
  own_.messages.Status(Title());
  own_.pane.TakeKeyboard();
}

// --- The list ---

std::string CheckList::Title() const {
  if (findings_.empty()) return own_.parts.Text(kTextNothingFound);
  std::array<std::size_t, 3> counts = {};
  for (const check::Finding& finding : findings_)
    ++counts[static_cast<std::size_t>(finding.rule->severity)];
  return own_.parts.texts.Text(kTextFindingCounts, {{"<Errors>", std::to_string(counts[0])},
                                                    {"<Warnings>", std::to_string(counts[1])},
                                                    {"<Hints>", std::to_string(counts[2])}});
}

// What an engineer calls the place: a name rather than the number of a row.
std::string CheckList::PlaceOf(const check::Where& where) const {
  if (where.table.empty()) {
    const std::string file = own_.parts.files.FileName(where.file);
    return where.line > 0 ? file + ":" + std::to_string(where.line) : file;
  }
  store::Operations& operations = own_.session.add_in().EditorWindow()->operations();
  if (where.table == store::kFormulasTable) {
    if (const auto formula = operations.FindFormula(where.id)) return formula->name;
  } else if (where.table == store::kAliasTable) {
    if (const auto alias = operations.FindAlias(where.id)) return alias->vb_alias;
  } else if (const auto argument = operations.FindArgument(where.id)) {
    const auto formula = operations.FindFormula(argument->parent_id);
    return (formula ? formula->name + ", " : std::string()) + argument->vb_alias;
  }
  return where.id == 0 ? where.table : where.table + " #" + std::to_string(where.id);
}

void CheckList::Show(std::vector<check::Finding> findings) {
  findings_ = std::move(findings);
  std::vector<PlaceTable::Row> rows;
  rows.reserve(findings_.size());
  for (const check::Finding& finding : findings_) {
    rows.push_back({own_.parts.Text(kTextFirstSeverity + static_cast<int>(finding.rule->severity)),
                    std::string(finding.rule->code), PlaceOf(finding.where),
                    own_.parts.texts.Sentence(finding.message)});
  }
  own_.pane.ShowFindings(Title(), std::move(rows));
  ShowSelected();
}

void CheckList::ShowSelected() {
  const std::vector<std::size_t> rows = own_.pane.Selected();
  own_.pane.OfferRepair(!ToRepair().empty());
  if (rows.size() != 1) {
    return own_.pane.ShowExplanation(findings_.empty() ? own_.parts.Text(kTextNothingFound)
                                                       : std::string());
  }
  const check::Finding& finding = findings_[rows.front()];
  std::string text = own_.parts.texts.Sentence(finding.message) + "\n\n" +
                     own_.parts.texts.Sentence(finding.Remedy());
  if (finding.IsRepairable()) text += "\n\n" + own_.parts.Text(kTextRepairable);
  own_.pane.ShowExplanation(text);
}

void CheckList::GoTo(const check::Finding& finding) {
  const check::Where& where = finding.where;
  if (!where.table.empty()) return GoToRow(where);
  if (!own_.lookup.GoToLine(where.file, std::max<std::int32_t>(where.line, 1)))
    own_.messages.Status(where.file);
}

void CheckList::GoToRow(const check::Where& where) {
  editor::frmtabgrid& editor = *own_.session.add_in().EditorWindow();
  std::string key(editor::kAliasesKey);
  if (where.table == store::kFormulasTable) key = editor::FormulaKey(where.id);
  if (where.table == store::kArgumentsTable) {
    const auto argument = editor.operations().FindArgument(where.id);
    key = editor::FormulaKey(argument ? argument->parent_id : 0);
  }
  if (!own_.session.studio().tree().Find(key)) return own_.messages.Status(PlaceOf(where));
  own_.session.studio().SelectNode(key);
  if (where.table == store::kFormulasTable) return own_.session.studio().ActivateTree();
  editor.CurrentGrid().SetCurrentId(where.id);
  editor.CurrentGrid().SetFocus();
}

// --- Repair ---

std::vector<check::Finding> CheckList::ToRepair() const {
  std::vector<check::Finding> findings;
  for (const std::size_t row : own_.pane.Selected()) {
    if (row < findings_.size() && findings_[row].IsRepairable()) findings.push_back(findings_[row]);
  }
  return findings;
}

bool CheckList::TellFailure(const store::OperationResult& result) {
  if (result.success()) return true;
  if (result.outcome == store::Outcome::kCancelled) {
    own_.messages.Status(own_.parts.texts.Sentence(result.message));
    return false;
  }
  own_.messages.Fail(own_.parts.Text(kTextCannotRepair),
                     own_.parts.texts.Sentence(messages::Lines(result.message, result.detail)));
  return false;
}

check::RepairResult CheckList::Mend(const check::Parts& parts,
                                    const std::vector<check::Finding>& findings,
                                    store::OperationOptions options) {
  const wxBusyCursor busy;
  const auto shown = own_.parts.toolkit.StartProgress(own_.parts.Text(kTextChecking));
  options.progress = [&](std::size_t done, std::size_t total) { return shown->Show(done, total); };
  return check::Repair(parts, findings, {}, std::move(options));
}

std::string CheckList::Preview(const check::Parts& parts,
                               const std::vector<check::Finding>& findings) {
  std::string code;
  store::OperationOptions dry;
  dry.dry_run = true;
  dry.inspect = [&] {
    if (own_.opened.vb()) code = project::DiffText(*own_.opened.vb());
  };
  const check::RepairResult result = Mend(parts, findings, dry);
  if (!TellFailure(result.operation)) return {};
  std::string text = project::RowsText(result.operation.rows) + code;
  if (text.empty()) own_.messages.Status(own_.parts.Text(kTextNothingToRepair));
  return text;
}

void CheckList::Repair() {
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  const std::vector<check::Finding> findings = ToRepair();
  if (!editor || findings.empty() || own_.opened.unit().IsOpen()) return;
  const check::Parts parts =
      check::PartsOf(own_.opened, editor->operations(), editor->cVBF.context());
  const std::string preview = Preview(parts, findings);
  const std::string count = std::to_string(findings.size());
  const bool confirmed =
      !preview.empty() &&
      ConfirmChange(wxGetTopLevelParent(&own_.pane), own_.parts.texts,
                    {own_.parts.Text(kTextRepairTitle),
                     own_.parts.texts.Text(kTextRepairHeading, {{"<Count>", count}}),
                     own_.parts.Text(kTextRepairNow), preview});
  if (!confirmed) return;
  check::RepairResult result = Mend(parts, findings, {});
  if (!TellFailure(result.operation)) return;
  studio::FollowFormulas(*own_.session.add_in().EditorWindow(), own_.session.studio(),
                         result.operation.rows);
  editor->Reload();
  if (on_repaired) on_repaired();
  Show(std::move(result.left));
  own_.messages.Status(
      own_.parts.texts.Text(kTextRepaired, {{"<Count>", std::to_string(result.mended.size())},
                                            {"<Left>", std::to_string(findings_.size())}}));
  own_.pane.TakeKeyboard();
}

}  // namespace desktop
