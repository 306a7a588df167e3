// SPDX-License-Identifier: MIT
#include "desktop/formula_overview.h"

#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

#include "desktop/overview_texts.h"
#include "editor/drag_kinds.h"
#include "messages/text_number.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr int kGap = 6;  // pixels at 100 %
constexpr int kCountCharacters = 24;
constexpr int kFilterWidth = 160;

struct ColumnLook {
  const char* field;
  messages::TextNumber caption;
  double width;  // twips
  forms::ColumnKind kind;
};

// In the order of OverviewRows::Column.
constexpr ColumnLook kColumns[] = {
    {"Name", kTextFormulaName, 2400, forms::ColumnKind::kText},
    {"ProgID", kTextClass, 2325, forms::ColumnKind::kText},
    {"Type", kTextCallType, 2550, forms::ColumnKind::kText},
    {"ScanTime", kTextScanTime, 2025, forms::ColumnKind::kNumber},
    {"Enabled", kTextEnabled, 1275, forms::ColumnKind::kCheckBox},
    {"Arguments", kTextArgumentCount, 1425, forms::ColumnKind::kNumber},
    {"Comment", kTextFormulaComment, 3000, forms::ColumnKind::kText},
};

}  // namespace

FormulaOverview::FormulaOverview(wxWindow* parent, const texts::TextTable& texts)
    : wxPanel(parent),
      texts_(texts),
      context_{texts, [] {}},
      rows_(std::make_shared<OverviewRows>(texts)),
      filter_(new wxSearchCtrl(this, wxID_ANY)),
      classes_(MakeChoice(kTextClass)),
      call_types_(MakeChoice(kTextCallType)),
      count_(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition,
                              wxSize(kCountCharacters * GetCharWidth(), -1),
                              wxALIGN_RIGHT | wxST_NO_AUTORESIZE)) {
  MakeColumns();
  view_ = std::make_unique<wx::GridView>(model_.table, this, context_);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(MakeHead(), wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
  all->Add(&view_->Window(), wxSizerFlags(1).Expand());
  SetSizer(all);
  call_types_->Append(wx::ToWx(Text(kTextAllCallTypes)));
  for (int type = 0; type < store::kCallTypes; ++type)
    call_types_->Append(wx::ToWx(Text(store::kFirstCallTypeText + type)));
  call_types_->SetSelection(0);
  FillClasses();
  forms::Grid& table = model_.table;
  table.SetRowSource(rows_);
  table.on_double_click = [this] { on_open(); };
  table.on_mouse_up = [this](const forms::MouseEvent& event) {
    if (event.button == forms::kRightButton) on_menu();
  };
  table.on_clear_filter = [this] { LeaveFilter(); };
  table.on_key_down = [this](forms::KeyEvent& event) { OnKey(event); };
}

FormulaOverview::~FormulaOverview() { view_->Detach(); }

void FormulaOverview::MakeColumns() {
  model_.table.SetAccessibleName(Text(kTextOverview));
  model_.table.SetDragKind(editor::kDraggedFormulas);
  forms::Split& split = model_.table.AddSplit(0);
  for (const ColumnLook& look : kColumns) {
    forms::Column& column = split.AddColumn(look.field, look.width);
    column.SetCaption(Text(look.caption));
    column.SetKind(look.kind);
    column.SetLocked(true);
  }
  model_.table.ColumnAt(OverviewRows::kComment).SetFills(true);
}

wxChoice* FormulaOverview::MakeChoice(messages::TextNumber text) {
  // It has a size before it has entries, and before the panel is laid out.
  auto* choice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxSize(FromDIP(kFilterWidth), -1));
  choice->SetMinSize(wxDefaultSize);
  wx::SetAccessibleName(*choice, wx::ToWx(Text(text)));
  choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { Choose(); });
  return choice;
}

wxSizer* FormulaOverview::MakeHead() {
  filter_->ShowCancelButton(true);
  filter_->SetDescriptiveText(wx::ToWx(Text(kTextFilterFormulas)));
  filter_->SetMinSize(wxSize(FromDIP(kFilterWidth), -1));
  wx::SetAccessibleName(*filter_, wx::ToWx(Text(kTextFilterFormulas)));
  filter_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
    model_.table.SetFilter(wx::FromWx(filter_->GetValue()));
    ShowCount();
  });
  filter_->Bind(wxEVT_SEARCHCTRL_CANCEL_BTN, [this](wxCommandEvent&) { filter_->Clear(); });
  filter_->Bind(wxEVT_CHAR_HOOK, &FormulaOverview::OnFilterKey, this);
  auto* head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(filter_, wxSizerFlags(1).CentreVertical());
  head->Add(classes_, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(kGap)));
  head->Add(call_types_, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(kGap)));
  head->Add(count_, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(2 * kGap)));
  return head;
}

// The class that was chosen stays chosen as long as it has formulas.
void FormulaOverview::FillClasses() {
  std::vector<std::string> names = rows_->Classes();
  if (names == class_names_ && !classes_->IsEmpty()) return;
  const int chosen = classes_->GetSelection();
  const std::string name = chosen > 0 ? class_names_[static_cast<std::size_t>(chosen) - 1] : "";
  class_names_ = std::move(names);
  wxArrayString entries;
  entries.Add(wx::ToWx(Text(kTextAllClasses)));
  for (const std::string& entry : class_names_) entries.Add(wx::ToWx(entry));
  classes_->Set(entries);
  const auto found = std::ranges::find(class_names_, name);
  const bool kept = !name.empty() && found != class_names_.end();
  classes_->SetSelection(kept ? static_cast<int>(found - class_names_.begin()) + 1 : 0);
  if (IsShownOnScreen()) Layout();
}

void FormulaOverview::ShowFormulas(std::vector<OverviewFormula> formulas) {
  rows_->Show(std::move(formulas));
  FillClasses();
  Choose();
}

void FormulaOverview::Choose() {
  const int prog_id = classes_->GetSelection(), type = call_types_->GetSelection();
  rows_->Choose(prog_id > 0 ? std::optional(class_names_[static_cast<std::size_t>(prog_id) - 1])
                            : std::nullopt,
                type > 0 ? std::optional(type - 1) : std::nullopt);
  model_.table.Rebind();
  if (!model_.table.CurrentId() && model_.table.RowCount() > 0)
    model_.table.SetCurrentId(model_.table.IdAt(0));
  ShowCount();
}

void FormulaOverview::ShowCount() {
  const std::size_t shown = model_.table.RowCount(), total = rows_->Total();
  const messages::TextNumber text = shown != total ? kTextFormulasOf
                                    : total == 1   ? kTextOneFormula
                                                   : kTextFormulas;
  count_->SetLabel(wx::ToWx(
      texts_.Text(text, {{"<Count>", std::to_string(shown)}, {"<Total>", std::to_string(total)}})));
  model_.table.SetEmptyText(Text(total == 0 ? kTextNoFormulas : kTextNoFormulaFound));
}

void FormulaOverview::GoTo(std::int32_t id) { model_.table.SetCurrentId(id); }

void FormulaOverview::ShowClass(const std::string& prog_id) {
  const auto found = std::ranges::find(class_names_, prog_id);
  if (found != class_names_.end()) ShowOnly(static_cast<int>(found - class_names_.begin()) + 1, 0);
}

void FormulaOverview::ShowOnly(int prog_id, int type) {
  filter_->Clear();
  classes_->SetSelection(prog_id);
  call_types_->SetSelection(type);
  Choose();
}

void FormulaOverview::ShowGroup(const std::string& group, bool of_classes) {
  const bool was_group = std::exchange(shows_group_, !group.empty());
  if (group.empty()) {
    if (was_group) ShowOnly(0, 0);
    return;
  }
  if (of_classes) return ShowClass(group);
  for (int type = 0; type < store::kCallTypes; ++type) {
    if (group == std::to_string(type)) ShowOnly(0, type + 1);
  }
}

void FormulaOverview::TakeKeyboard() { view_->FocusWindow().SetFocus(); }

int FormulaOverview::ChooseFromMenu(wxMenu& menu) {
  wxWindow& list = view_->FocusWindow();
  return list.GetPopupMenuSelectionFromUser(menu, wx::PopupPlace(list));
}

const OverviewFormula* FormulaOverview::Current() const {
  const auto id = model_.table.CurrentId();
  return id ? rows_->Find(static_cast<std::int32_t>(*id)) : nullptr;
}

std::vector<std::int32_t> FormulaOverview::Selected() const {
  std::vector<std::int32_t> ids;
  for (const std::int64_t id : model_.table.SelectedIds())
    ids.push_back(static_cast<std::int32_t>(id));
  return ids;
}

void FormulaOverview::OnKey(forms::KeyEvent& event) {
  if (event.key_code == 'F' && event.shift == forms::kControl) {
    event.handled = true;
    filter_->SetFocus();
    filter_->SelectAll();
    return;
  }
  on_key(event);
}

void FormulaOverview::LeaveFilter() {
  filter_->Clear();
  TakeKeyboard();
}

void FormulaOverview::OnFilterKey(wxKeyEvent& event) {
  const int code = event.GetKeyCode();
  if (code == WXK_ESCAPE) {
    LeaveFilter();
  } else if (code == WXK_DOWN || code == WXK_RETURN || code == WXK_NUMPAD_ENTER) {
    TakeKeyboard();
  } else {
    event.Skip();
  }
}

}  // namespace desktop
