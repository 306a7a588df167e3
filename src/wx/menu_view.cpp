// SPDX-License-Identifier: MIT
#include "wx/menu_view.h"

#include <wx/window.h>

#include <algorithm>

#include "wx/convert.h"
#include "wx/native.h"
#include "wx/pictures.h"

namespace wx {

namespace {

using forms::Tool;
using forms::ToolKind;

// A title that is the name of a command below it tells nothing.
bool IsIdleTitle(const Tool& title, const std::vector<Tool*>& tools) {
  return title.Kind() == ToolKind::kLabel &&
         std::any_of(tools.begin(), tools.end(), [&](const Tool* tool) {
           return tool->Kind() == ToolKind::kCommand && tool->Visible() &&
                  tool->Caption() == title.Caption();
         });
}

bool IsEnabled(const Tool& tool) { return tool.Enabled() && tool.Kind() != ToolKind::kLabel; }

// What the status line says of an entry: what it does, or why it cannot.
wxString Explanation(const Tool& tool) {
  return ToWx(tool.Enabled() || tool.DisabledReason().empty() ? tool.ToolTip()
                                                              : tool.DisabledReason());
}

}  // namespace

std::vector<BandMenu::Look> BandMenu::Looks() const {
  std::vector<Look> looks;
  for (const Tool* tool : band_.Tools()) {
    if (tool->Visible()) looks.push_back({tool, tool->Caption(), tool->Checked()});
  }
  return looks;
}

void BandMenu::Update(wxMenu& menu) {
  if (!nested_.empty() || Looks() != filled_) return Fill(menu);
  for (const auto& [id, tool] : tools_) {
    wxMenuItem* item = menu.FindItem(id);
    if (!item) continue;
    item->Enable(IsEnabled(*tool));
    item->SetHelp(Explanation(*tool));
  }
}

void BandMenu::Fill(wxMenu& menu) {
  filled_ = Looks();
  while (menu.GetMenuItemCount() > 0) menu.Destroy(menu.FindItemByPosition(0));
  tools_.clear();
  nested_.clear();
  bool separator = false;
  for (Tool* tool : band_.Tools()) {
    if (!tool->Visible() || IsIdleTitle(*tool, band_.Tools())) continue;
    if (tool->Kind() == ToolKind::kSeparator) {
      separator = menu.GetMenuItemCount() > 0;
      continue;
    }
    if (separator) menu.AppendSeparator();
    separator = false;
    Append(menu, *tool);
  }
}

void BandMenu::Append(wxMenu& menu, Tool& tool) {
  forms::Band* sub_band =
      tool.Kind() == ToolKind::kSubmenu ? band_.Menu().FindBand(tool.SubBand()) : nullptr;
  if (sub_band) {
    nested_.push_back(std::make_unique<BandMenu>(*sub_band));
    auto* sub_menu = new wxMenu;
    nested_.back()->Fill(*sub_menu);
    menu.AppendSubMenu(sub_menu, ToWx(tool.Caption()))->Enable(tool.Enabled());
    return;
  }
  auto* item = new wxMenuItem(&menu, wxID_ANY, ToWx(tool.Caption()), Explanation(tool),
                              tool.Checked() ? wxITEM_CHECK : wxITEM_NORMAL);
  if (!tool.Icon().empty()) item->SetBitmap(Picture(tool.Icon()));
  menu.Append(item);
  item->Enable(IsEnabled(tool));
  if (tool.Checked()) item->Check();
  if (!tool.Shortcut().empty()) ShowShortcut(*item, ToWx(tool.Shortcut()));
  tools_[item->GetId()] = &tool;
}

Tool* BandMenu::ToolOf(int id) const {
  auto found = tools_.find(id);
  if (found != tools_.end()) return found->second;
  for (const auto& nested : nested_) {
    if (Tool* tool = nested->ToolOf(id)) return tool;
  }
  return nullptr;
}

void PopupBand(wxWindow& window, forms::Band& band) {
  band.Menu().Open(band);
  BandMenu filler(band);
  wxMenu menu;
  filler.Fill(menu);
  if (menu.GetMenuItemCount() == 0) return;
  int chosen = window.GetPopupMenuSelectionFromUser(menu, PopupPlace(window));
  if (Tool* tool = filler.ToolOf(chosen)) band.Menu().Click(*tool);
}

MenuBarView::MenuBarView(forms::MenuControl& menu) : menu_(menu) {
  subscription_ = menu_.Observe([this](forms::Property) { ShowTools(); });
}

MenuBarView::~MenuBarView() {
  if (!frame_) return;
  frame_->Unbind(wxEVT_IDLE, &MenuBarView::OnIdle, this);
  frame_->Unbind(wxEVT_MENU_OPEN, &MenuBarView::OnOpen, this);
  frame_->Unbind(wxEVT_MENU, &MenuBarView::OnClick, this);
  for (Entry& entry : entries_) {
    int place = bar_->FindMenu(ToWx(entry.tool->Caption()));
    if (entry.menu && place != wxNOT_FOUND) delete bar_->Remove(static_cast<std::size_t>(place));
  }
}

void MenuBarView::AppendTo(wxMenuBar& bar, wxWindow& frame, std::size_t at) {
  bar_ = &bar;
  frame_ = &frame;
  at_ = at;
  forms::Band* main = menu_.FindBand(menu_.MenuBar());
  for (Tool* tool : main ? main->Tools() : std::vector<Tool*>()) {
    forms::Band* band = menu_.FindBand(tool->SubBand());
    if (band) entries_.push_back({tool, BandMenu(*band)});
  }
  frame.Bind(wxEVT_IDLE, &MenuBarView::OnIdle, this);
  frame.Bind(wxEVT_MENU_OPEN, &MenuBarView::OnOpen, this);
  frame.Bind(wxEVT_MENU, &MenuBarView::OnClick, this);
  ShowTools();
}

void MenuBarView::ShowTools() {
  if (!bar_) return;
  stale_ = true;
  std::size_t place = at_;
  for (Entry& entry : entries_) {
    wxString caption = ToWx(entry.tool->Caption());
    if (entry.menu && !entry.tool->Visible()) {
      delete bar_->Remove(place);
      entry.menu = nullptr;
    } else if (!entry.menu && entry.tool->Visible()) {
      entry.menu = new wxMenu;
      bar_->Insert(place, entry.menu, caption);
      entry.band.Fill(*entry.menu);
    }
    if (!entry.menu) continue;
    if (bar_->GetMenuLabel(place) != caption) bar_->SetMenuLabel(place, caption);
    bar_->EnableTop(place, entry.tool->Enabled());
    ++place;
  }
}

// Tools change one by one; the menus follow when all have.
void MenuBarView::OnIdle(wxIdleEvent& event) {
  event.Skip();
  if (!stale_) return;
  stale_ = false;
  for (Entry& entry : entries_) {
    if (entry.menu) entry.band.Update(*entry.menu);
  }
}

void MenuBarView::OnOpen(wxMenuEvent& event) {
  event.Skip();
  for (Entry& entry : entries_) {
    if (!entry.menu || event.GetMenu() != entry.menu) continue;
    menu_.Open(entry.band.GetBand());
    if (entry.menu) entry.band.Update(*entry.menu);
    return;
  }
}

void MenuBarView::OnClick(wxCommandEvent& event) {
  for (Entry& entry : entries_) {
    if (Tool* tool = entry.band.ToolOf(event.GetId())) {
      menu_.Click(*tool);
      return;
    }
  }
  event.Skip();
}

}  // namespace wx
