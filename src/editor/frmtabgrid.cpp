// SPDX-License-Identifier: MIT
// The editor window: set-up and the selected node. Its outside is in frmtabgrid_window.cpp.
#include "editor/frmtabgrid.h"

#include <cmath>
#include <utility>
#include <vector>

#include "dialogs/alias_table.h"
#include "dialogs/dialog_form.h"
#include "editor/drag_kinds.h"
#include "editor/fconfig_editor.h"
#include "editor/grid_columns.h"
#include "editor/menu_switcher.h"
#include "editor/node_key.h"
#include "editor/note_columns.h"
#include "editor/tools.h"
#include "messages/text_number.h"

namespace editor {

namespace {

constexpr messages::TextNumber kProductCaption{180};
constexpr messages::TextNumber kFormulaCaption{181};
constexpr messages::TextNumber kAliasCaption{182};
constexpr messages::TextNumber kNoArguments{1620};
constexpr messages::TextNumber kNoFormulaSelected{1621};
constexpr messages::TextNumber kNoAliases{1622};
constexpr messages::TextNumber kNothingFound{1623};
constexpr messages::TextNumber kFound{4985};
constexpr messages::TextNumber kArguments{1633};
constexpr messages::TextNumber kAliases{1634};
constexpr messages::TextNumber kMissing{4385};

constexpr double kMinimumWidth = 4500;
constexpr double kMinimumHeight = 3000;
constexpr double kIdentifierWidth = 3000;
constexpr double kColumnWidth = 1995;
constexpr double kWidthPrecision = 1;  // of what is kept; the user's changes are larger

// Keeps the current row, if there is one.
void ChooseARow(forms::Grid& grid) {
  if (!grid.CurrentId() && grid.RowCount() > 0) grid.SetCurrentId(grid.IdAt(0));
}

}  // namespace

frmtabgrid::frmtabgrid(EditorHost& host, const Services& services, const texts::TextTable& texts,
                       dialogs::MessageBoxes& messages, Project project)
    : Form("frmtabgrid", forms::FormLayout::kFixed),
      context_(host, services, texts, messages, std::move(project), *this),
      parameter_splitter_(pctParamTabSplit, tdbP),
      alias_splitter_(pctAliasTabSplit, tdbA) {
  BuildBands(abr, context_.Lookup());
  ShowUndoTools(abr, context_.services.undo != nullptr);
  tdbP.AddSplit(kIdentifierWidth).AddColumn("AliasID", kIdentifierWidth);
  forms::Split& flags = tdbP.AddSplit(0);
  flags.AddColumn("In", kColumnWidth).SetKind(forms::ColumnKind::kCheckBox);
  flags.AddColumn("Out", kColumnWidth).SetKind(forms::ColumnKind::kCheckBox);
  tdbP.ColumnAt(kAliasIdColumn).SetKind(forms::ColumnKind::kDropDown);
  tdbA.AddSplit(kColumnWidth).AddColumn("ItemID", kColumnWidth);
  tdbA.AddSplit(0).AddColumn("VBAlias", kColumnWidth);
  if (context_.services.notes) {
    AddArgumentNotes(tdbP, context_.Lookup());
    AddAliasNotes(tdbA, context_.Lookup());
  }
  lblFind.SetTag("C1624");
  tdbA.SetDragKind(kDraggedAliases);
  tdbP.SetAccessibleName(Text(kArguments));
  tdbA.SetAccessibleName(Text(kAliases));
  lblFind.SetVisible(false);
  txtFind.SetVisible(false);
  lblFound.SetVisible(false);
  SetResizable(true);
  SetMinimumSize(kMinimumWidth, kMinimumHeight);
  SetHelpContextId(dialogs::kEditorHelpTopic);
  WireEvents();
  tdbP.ColumnAt(kAliasIdColumn)
      .SetList(std::make_shared<dialogs::AliasList>(context_.rows.AliasesByName()));
  tdbP.SetRowSource(context_.rows.Arguments());
}

frmtabgrid::~frmtabgrid() = default;

void frmtabgrid::WireEvents() {
  abr.on_tool_click = [this](forms::Tool& tool) { abr_ToolClick(tool); };
  abr.on_band_open = [this](forms::Band& band) {
    // A menu of the tree has its own node as context, which must stay.
    const bool opened_by_bar =
        band.Name() == kFunctionBand || band.Name() == kParameterBand || band.Name() == kAliasBand;
    if (opened_by_bar && !toolbar_flag_) MenuSwitcher(key_, toolbar_flag_);
    if (band.Name() == kEditBand) ShowUndo();
  };
  cVBF.SetNeedFunctionName([this](std::string& name) {
    name = context_.studio->NodeInformation(key_, platform::kNodeInformationText);
  });
  on_load = [this] { OnLoad(); };
  on_query_unload = [this](bool& cancel, forms::CloseReason reason) {
    OnQueryUnload(cancel, reason);
  };
  on_resize = [this] { abr_Resize(ClientWidth(), ClientHeight()); };
  on_activate = [this] {
    if (!hooked_) Activated();
  };
  on_deactivate = [this] {
    if (!hooked_) Deactivated();
  };
  on_help = [this] {
    context_.services.help.ShowTopic(context_.services.toolkit.Handle(*this), HelpTopic(key_));
  };
  txtFind.on_change = [this] {
    const dialogs::BusyPointer busy(context_.services.toolkit);  // the first letter reads all rows
    CurrentGrid().SetFilter(txtFind.Text());
    ShowEmptyText();
  };
  for (forms::Grid* grid : {&tdbP, &tdbA}) grid->on_clear_filter = [this] { LeaveFind(); };
  txtFind.on_key_down = [this](forms::KeyEvent& event) {
    if (event.key_code == forms::kKeyEscape) {
      event.handled = true;
      LeaveFind();
    } else if (event.key_code == forms::kKeyReturn || event.key_code == forms::kKeyDown) {
      event.handled = true;
      forms::Grid& grid = CurrentGrid();
      ChooseARow(grid);
      grid.SetFocus();
    }
  };
}

// What they take back, or why they cannot.
void frmtabgrid::ShowUndo() {
  UndoEntries* const entries = context_.services.undo;
  if (!entries) return;
  for (const bool undo : {true, false}) {
    const UndoEntries::Entry entry = entries->Look(undo);
    abr.FindTool(undo ? kUndoTool : kRedoTool)
        ->SetCaption(entry.caption)
        .SetEnabled(entry.reason.empty())
        .SetDisabledReason(entry.reason);
  }
}

void frmtabgrid::OnLoad() {
  Counts none;
  counters_.Update(CounterMode::kReset, none, context_.Lookup());
  SetCaption(Text(kProductCaption));
  abr.LocaliseTools(context_.Lookup());
  forms::LocaliseCaptions(*this, context_.Lookup());
  counters_.ShowLabels(context_.Lookup());
  inits.LoadDefaultInit(settings::kEditorSettings);
  if (context_.services.notes) {
    AddNoteWidths(tdbP, inits);
    AddNoteWidths(tdbA, inits);
  }
  inits.LoadInits(context_.SettingsFile());
  if (context_.services.in_workbench) {
    sb.SetVisible(false);
  } else {
    inits.SetInitToControl(*this, "sb");
  }
  inits.SetInitToMotherObject(*this);
  ShowEditorTools(abr, toolbar_flag_);
  InitializeGrids();
  SwitchGrids(kRootKey);
  MenuSwitcher(kRootKey, toolbar_flag_);
}

void frmtabgrid::InitializeGrid(forms::Grid& grid, std::string_view orders_key) {
  std::vector<double> widths;
  const std::size_t own = OwnColumns(grid), count = grid.ColumnCount();
  for (std::size_t i = 0; i < count; ++i) widths.push_back(grid.ColumnAt(i).Width());
  inits.SetInitToControl(*this, grid.Name());
  for (std::size_t i = 0; i < count; ++i) {
    forms::Column& column = grid.ColumnAt(i);
    const bool sized = std::abs(column.Width() - widths[i]) > kWidthPrecision;
    const bool fills = i < own ? column.Kind() != forms::ColumnKind::kCheckBox : column.Fills();
    column.SetFills(fills && !sized);
  }
  ApplyColumnOrder(grid, inits.ReadAValueFromCInits(orders_key).ToText());
}

void frmtabgrid::InitializeGrids() {
  constexpr messages::TextNumber kArgumentHeaders{110};
  constexpr messages::TextNumber kAliasHeaders{101};
  for (std::int32_t column = 0; column < 3; ++column) {
    tdbP.ColumnAt(static_cast<std::size_t>(column)).SetCaption(Text(kArgumentHeaders + column));
  }
  for (std::int32_t column = 0; column < 2; ++column) {
    tdbA.ColumnAt(static_cast<std::size_t>(column)).SetCaption(Text(kAliasHeaders + column));
  }
  tdbP.ColumnAt(kAliasIdColumn).SetButtonPicture("PICCHOOSE");
  tdbA.ColumnAt(kItemIdColumn).SetButtonPicture("PICCHOOSE");
  InitializeGrid(tdbP, "tdbPColOrders");
  InitializeGrid(tdbA, "tdbAColOrders");
  abr_Resize(ClientWidth(), ClientHeight());
  ShowEmptyText();
}

forms::Grid& frmtabgrid::CurrentGrid() { return KeyKind(key_) == kAliasKind ? tdbA : tdbP; }

void frmtabgrid::ShowNode(std::string_view key, std::string_view text) {
  VerifyAdds(key_);
  CloseFind();
  const bool other_node = key_ != key;
  key_ = key;
  context_key_ = key;
  SwitchGrids(key);
  AliasesChanged();
  context_.ReadArguments(key_);
  RebindGrid(CurrentGrid(), other_node);
  MakeMyCaption(key, text);
  MenuSwitcher(key, toolbar_flag_);
}

void frmtabgrid::ShowUnreadable() {
  const std::string problem = context_.texts.Sentence(context_.rows.Problem());
  if (problem == std::exchange(told_problem_, problem) || problem.empty()) return;
  context_.messages.Warn(problem);
}

void frmtabgrid::Reload() {
  AliasesChanged();
  context_.ReadArguments(key_);
  RebindGrid(CurrentGrid(), false);
  MenuSwitcher(key_, toolbar_flag_);
}

void frmtabgrid::RebindGrid(forms::Grid& grid, bool other_rows) {
  refreshing_grid_ = true;
  if (other_rows && &grid == &tdbP) {
    grid.SetRowSource(context_.rows.Arguments());
  } else {
    grid.Rebind();
  }
  ChooseARow(grid);
  refreshing_grid_ = false;
  ShowEmptyText();
}

void frmtabgrid::ShowEmptyText() {
  forms::Grid& grid = CurrentGrid();
  lblFound.SetVisible(!grid.Filter().empty());
  if (!grid.Filter().empty()) {
    lblFound.SetCaption(context_.texts.Text(
        kFound, {{"<Count>", std::to_string(grid.RowCount())},
                 {"<Total>", std::to_string(grid.Source() ? grid.Source()->RowCount() : 0)}}));
    grid.SetEmptyText(context_.texts.Text(kNothingFound, {{"<Text>", txtFind.Text()}}));
    return;
  }
  tdbP.SetEmptyText(Text(IsFormulaKey(key_) ? kNoArguments : kNoFormulaSelected));
  tdbA.SetEmptyText(Text(kNoAliases));
}

void frmtabgrid::SetTreeContext(std::string_view key, bool toolbar_flag) {
  context_key_ = key;
  MenuSwitcher(key, toolbar_flag);
}

void frmtabgrid::ShowAliases() {
  const std::shared_ptr<dialogs::AliasTable>& table = context_.rows.AliasesById();
  if (!context_.services.notes) {
    tdbA.SetRowSource(
        std::make_shared<dialogs::AliasRows>(table, dialogs::AliasRows::Columns::kItemAlias));
    return;
  }
  alias_notes_ = std::make_shared<AliasNoteRows>(table, context_.operations,
                                                 *context_.services.notes, Text(kMissing));
  tdbA.SetRowSource(alias_notes_);
}

void frmtabgrid::AliasesChanged() {
  context_.rows.AliasesChanged();
  if (alias_notes_) alias_notes_->Forget();
}

void frmtabgrid::SwitchGrids(std::string_view key) {
  const std::string_view kind = KeyKind(key);
  if (kind == kRootKind || kind == kFormulaKind) {
    tdbP.BringToFront();
    pctParamTabSplit.BringToFront();
    tbrfunc.SetBand(abr.FindBand(kArgumentToolbar));
  } else if (kind == kAliasKind) {
    // Not before: a project may have 100,000 aliases, and they may be unreadable.
    if (!std::exchange(aliases_seen_, true)) ShowAliases();
    tdbA.BringToFront();
    pctAliasTabSplit.BringToFront();
    tbrfunc.SetBand(abr.FindBand(kAliasToolbar));
  }
}

void frmtabgrid::MakeMyCaption(std::string_view key, std::string_view formula_name) {
  const std::string_view kind = KeyKind(key);
  if (kind == kAliasKind) {
    SetCaption(Text(kProductCaption) + Text(kAliasCaption));
  } else if (kind == kFormulaKind) {
    std::string caption = Text(kProductCaption) + Text(kFormulaCaption);
    if (KeyNumber(key) != 0) caption += formula_name;
    SetCaption(caption);
  }
}

void frmtabgrid::VerifyAdds(std::string_view key) {
  const std::string_view kind = KeyKind(key);
  forms::Grid* grid = kind == kFormulaKind ? &tdbP : kind == kAliasKind ? &tdbA : nullptr;
  if (!grid) return;
  if (const auto error = grid_editing_.WritePending(*grid))
    context_.messages.ShowHostError(*context_.studio, *error);
}

void frmtabgrid::MenuSwitcher(std::string_view key, bool toolbar_flag) {
  const MenuContext context{key, toolbar_flag, tdbP.SelectedCount(), tdbA.SelectedCount(),
                            tdbA.CurrentId().has_value()};
  ApplyToolStates(abr, ToolStates(context), context_.Lookup());
  if (toolbar_flag == toolbar_flag_) return;
  toolbar_flag_ = toolbar_flag;
  ShowEditorTools(abr, toolbar_flag);
}

void frmtabgrid::SelectionChanged() {
  if (!refreshing_grid_ && context_key_ == key_) MenuSwitcher(key_, toolbar_flag_);
}

void frmtabgrid::abr_ToolClick(forms::Tool& tool) {
  // The add-in may end while a command runs; the window stays until the command has returned.
  const std::shared_ptr<frmtabgrid> self = weak_from_this().lock();
  if (!tool.Enabled()) {
    context_.services.toolkit.Beep();
    const forms::Grid& grid = CurrentGrid();
    const std::string& reason = tool.DisabledReason().empty() && grid.RowCount() == 0
                                    ? grid.EmptyText()
                                    : tool.DisabledReason();
    if (!reason.empty()) context_.studio->ShowWarnings({{reason}});
    return;
  }
  commands_.Run(tool.Name());
  if (self.use_count() == 1) context_.services.toolkit.CallLater([self] {});
}

void frmtabgrid::RunTool(std::string_view name) {
  MenuSwitcher(key_, false);
  if (name == kUndoTool || name == kRedoTool) ShowUndo();  // its menu may never have been open
  abr_ToolClick(*abr.FindTool(name));
}

void frmtabgrid::PopupBand(std::string_view name) {
  MenuSwitcher(key_, false);
  const dialogs::MessageBoxes::Guard guard(context_.messages);
  context_.services.toolkit.PopupMenu(*abr.FindBand(name));
}

bool frmtabgrid::ChangeOptions() { return OpenOptions(*this); }

void frmtabgrid::Activated() {
  if (!context_.messages.Guarded()) Reload();
}

void frmtabgrid::Deactivated() {
  if (!context_.messages.Guarded()) VerifyAdds(key_);
}

void frmtabgrid::ShowFind() {
  if (!txtFind.Visible()) {
    lblFind.SetVisible(true);
    txtFind.SetVisible(true);
    abr_Resize(ClientWidth(), ClientHeight());
  }
  txtFind.SetFocus();
}

void frmtabgrid::LeaveFind() {
  CloseFind();
  ChooseARow(CurrentGrid());
  CurrentGrid().SetFocus();
}

void frmtabgrid::CloseFind() {
  if (!txtFind.Visible()) return;
  txtFind.SetText({});
  lblFind.SetVisible(false);
  txtFind.SetVisible(false);
  lblFound.SetVisible(false);
  abr_Resize(ClientWidth(), ClientHeight());
}

}  // namespace editor
