// SPDX-License-Identifier: MIT
#include "desktop/flow_chart.h"

#include <wx/filedlg.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

#include "codegen/code_texts.h"
#include "desktop/chosen_file.h"
#include "desktop/crash_log.h"
#include "desktop/flow_canvas.h"
#include "desktop/flow_texts.h"
#include "editor/node_key.h"
#include "platform/error.h"
#include "project/call_type.h"
#include "project/data_flow_layout.h"
#include "project/data_flow_table.h"
#include "project/flow_texts.h"
#include "vbcode/program.h"
#include "wx/convert.h"

namespace desktop {

namespace {

using project::DataFlow;

constexpr std::size_t kMostArrows = 1000;  // that can be told apart, and laid out soon
constexpr int kDotFilter = 1;              // place in the dialog's list

// The user stopped it.
struct Stopped {};

std::string AccessText(const DataFlow::Edge& edge, const texts::TextTable& texts) {
  const auto kind = edge.reads && edge.writes ? vbcode::UseKind::kBoth
                    : edge.writes             ? vbcode::UseKind::kWrite
                                              : vbcode::UseKind::kRead;
  const std::string text = texts.Text(codegen::kTextFirstUseKind + static_cast<int>(kind));
  return edge.from_code ? text : text + " " + texts.Text(project::kFlowByArgument);
}

}  // namespace

FlowChart::FlowChart(const Dependencies& own) : own_(own) {
  own_.pane.on_depth = [this] { Read(); };
  own_.pane.on_save = [this] { Save(); };
  own_.pane.on_activate = [this](std::size_t row) { GoToRow(row); };
  own_.pane.canvas().on_node = [this](const project::PictureNode& node) {
    node.is_formula ? GoToFormula(node.index, false) : GoToItem(node.index, false);
  };
}

FlowChart::~FlowChart() {
  own_.pane.Close();
  own_.pane.ShowFlow({}, {});
  own_.pane.canvas().ShowMessage({});
}

void FlowChart::Open() {
  if (!own_.session.add_in().EditorWindow()) return;
  own_.pane.Open();
  if (const auto selected = Selected()) subject_ = selected;
  Read();
  own_.pane.TakeKeyboard();
}

std::optional<FlowChart::Subject> FlowChart::Selected() const {
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  if (!editor) return std::nullopt;
  const std::string& key = editor->CurrentKey();
  if (editor::IsFormulaKey(key)) {
    const auto formula = editor->operations().FindFormula(editor::KeyNumber(key));
    if (formula) return Subject{formula->name, formula->id, {}};
  } else if (editor::KeyKind(key) == editor::kAliasKind) {
    const auto row = static_cast<std::int32_t>(editor->CurrentGrid().CurrentId().value_or(0));
    const auto alias = editor->operations().FindAlias(row);
    if (alias) return Subject{alias->vb_alias, 0, alias->item_id};
  }
  return std::nullopt;
}

// What is selected for a moment only, on the way to something else, is not read.
void FlowChart::Look() {
  if (!own_.pane.IsShown()) return;
  const auto selected = Selected();
  const bool is_other = selected && selected != subject_;
  if (is_other && std::exchange(next_, selected) != selected) return;
  const auto stamp = own_.parts.files.Stamp(own_.opened.path());
  if (!is_other && stamp == seen_) return;
  if (is_other) subject_ = selected;
  Read();
}

// --- What is shown ---

void FlowChart::Read() {
  RememberStep("data flow");
  next_.reset();
  seen_ = own_.parts.files.Stamp(own_.opened.path());
  flow_ = {};
  own_.pane.canvas().ShowMessage(own_.parts.Text(kTextFlowChoose));
  own_.pane.ShowFlow(own_.parts.Text(project::kFlowTitle), {});
  if (!subject_) return;
  try {
    const wxBusyCursor busy;
    const auto progress = own_.parts.toolkit.StartProgress(own_.parts.Text(kTextFlowReading));
    project::FlowNodes nodes;
    if (subject_->formula != 0)
      nodes.formulas.push_back(subject_->formula);
    else
      nodes.items.push_back(subject_->item);
    flow_ = project::ReadNeighbourhood(own_.session.add_in().EditorWindow()->operations(),
                                       own_.opened.vb().get(), nodes, own_.pane.Depth(),
                                       [&](std::size_t done, std::size_t total) {
                                         if (!progress->Show(done, total)) throw Stopped();
                                       });
    own_.pane.ShowFlow(own_.parts.texts.Text(kTextFlowAround,
                                             {{"<Name>", subject_->name},
                                              {"<Formulas>", std::to_string(flow_.formulas.size())},
                                              {"<Items>", std::to_string(flow_.items.size())}}),
                       Rows());
    ShowPicture(*progress);
  } catch (const Stopped&) {
    own_.pane.canvas().ShowMessage(own_.parts.Text(kTextFlowStopped));
  } catch (const std::exception& error) {
    own_.pane.canvas().ShowMessage(own_.parts.Text(kTextFlowCannotRead) + " " +
                                   own_.parts.texts.Sentence(error));
  }
}

void FlowChart::ShowPicture(platform::Progress& progress) {
  FlowCanvas& canvas = own_.pane.canvas();
  const std::size_t arrows = flow_.edges.size();
  if (arrows == 0) return canvas.ShowMessage(own_.parts.Text(kTextFlowNothing));
  if (arrows > kMostArrows) {
    return canvas.ShowMessage(
        own_.parts.texts.Text(kTextFlowTooMany, {{"<Count>", std::to_string(arrows)}}));
  }
  try {
    const std::string plain = project::LayOut(
        project::DescribeForGraphviz(flow_, own_.parts.texts), [&] { return progress.Show(1, 1); },
        project::LayoutFormat::kPlain);
    if (plain.empty()) throw Stopped();
    canvas.ShowPicture(flow_, project::ReadLayout(plain, flow_), Centre());
  } catch (const platform::Error& error) {
    canvas.ShowMessage(error.message().number() == project::kFlowNoGraphviz
                           ? own_.parts.Text(kTextFlowInstall)
                           : own_.parts.texts.Sentence(error));
  }
}

std::optional<project::PictureNode> FlowChart::Centre() const {
  for (std::size_t i = 0; i < flow_.formulas.size(); ++i) {
    if (flow_.formulas[i].record.id == subject_->formula) return project::PictureNode{true, i};
  }
  for (std::size_t i = 0; i < flow_.items.size(); ++i) {
    if (subject_->formula == 0 && flow_.items[i].item_id == subject_->item)
      return project::PictureNode{false, i};
  }
  return std::nullopt;
}

std::vector<PlaceTable::Row> FlowChart::Rows() const {
  std::vector<PlaceTable::Row> rows;
  for (const DataFlow::Edge& edge : flow_.edges) {
    const DataFlow::Item& item = flow_.items[edge.item];
    const store::FormulaRecord& formula = flow_.formulas[edge.formula].record;
    std::string call = project::CallTypeText(formula, own_.parts.texts);
    if (!formula.enabled) call += ", " + own_.parts.Text(project::kFlowDisabled);
    rows.push_back({item.item_id, edge.alias, AccessText(edge, own_.parts.texts),
                    formula.prog_id + "." + formula.name, std::move(call),
                    item.writers > 1 ? project::WritersText(item, own_.parts.texts) : ""});
  }
  return rows;
}

// --- Going there ---

void FlowChart::GoToFormula(std::size_t index, bool with_keyboard) {
  const std::string key = editor::FormulaKey(flow_.formulas[index].record.id);
  if (!own_.session.studio().tree().Find(key)) return;
  own_.session.studio().SelectNode(key);
  if (with_keyboard) own_.session.add_in().ActivateEditor();
  Follow();
}

void FlowChart::GoToItem(std::size_t index, bool with_keyboard) {
  editor::frmtabgrid& editor = *own_.session.add_in().EditorWindow();
  const auto alias = editor.operations().FindAliasByName(flow_.items[index].aliases.front());
  if (!alias) return;
  own_.session.studio().SelectNode(editor::kAliasesKey);
  editor.CurrentGrid().SetCurrentId(alias->id);
  if (with_keyboard) editor.CurrentGrid().SetFocus();
  Follow();
}

// The picture goes along at once.
void FlowChart::Follow() {
  const auto selected = Selected();
  if (!selected || selected == subject_) return;
  subject_ = selected;
  Read();
}

// To the formula; to the item where the formula is what is shown already.
void FlowChart::GoToRow(std::size_t row) {
  const DataFlow::Edge edge = flow_.edges[row];  // the list changes by it
  if (flow_.formulas[edge.formula].record.id == subject_->formula)
    GoToItem(edge.item, true);
  else
    GoToFormula(edge.formula, true);
}

// --- Saving ---

void FlowChart::Save() {
  if (flow_.edges.empty()) return own_.messages.Status(own_.parts.Text(kTextFlowNothing));
  wxFileDialog dialog(
      wxGetTopLevelParent(&own_.pane), wx::ToWx(own_.parts.Text(kTextFlowSaveTitle)),
      wx::ToWx(own_.parts.files.Folder(own_.opened.path())), wx::ToWx(subject_->name),
      wx::ToWx(own_.parts.Text(kTextFlowFilter)), wxFD_SAVE);
  if (dialog.ShowModal() != wxID_OK) return;
  const char* extension = dialog.GetFilterIndex() == kDotFilter ? ".dot" : ".svg";
  std::string path = wx::FromWx(dialog.GetPath());
  if (!path.ends_with(extension)) path += extension;
  try {
    const wxBusyCursor busy;
    const std::string dot = project::DescribeForGraphviz(flow_, own_.parts.texts);
    const std::string contents = extension == std::string(".dot") ? dot : project::LayOut(dot);
    if (!WriteChosen(own_.parts, own_.messages, own_.opened, path, contents)) return;
    own_.messages.Status(own_.parts.texts.Text(kTextFlowSaved, {{"<File>", path}}));
  } catch (const std::exception& error) {
    own_.messages.Fail(own_.parts.Text(kTextFlowCannotSave), own_.parts.texts.Sentence(error));
  }
}

}  // namespace desktop
