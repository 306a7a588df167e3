// SPDX-License-Identifier: MIT
#include "wx/toolbar_view.h"

#include <wx/menu.h>
#include <wx/toolbar.h>

#include <map>

#include "wx/convert.h"
#include "wx/native.h"
#include "wx/pictures.h"

namespace wx {

namespace {

using forms::Property;
using forms::Tool;
using forms::ToolKind;

// What the tool is called in its menu.
wxString Caption(const Tool& tool) { return wxStripMenuCodes(ToWx(tool.Caption())); }

// What stands on a button. Beside others "New" alone would not tell what is new.
wxString Label(const Tool& tool) {
  return tool.ToolTip().empty() ? Caption(tool) : ToWx(tool.ToolTip());
}

// What a button says: caption and shortcut, or why it is disabled.
wxString Explanation(const Tool& tool) {
  wxString text = Label(tool);
  if (!tool.Shortcut().empty()) text += " (" + ToWx(tool.Shortcut()) + ")";
  if (!tool.Enabled() && !tool.DisabledReason().empty()) {
    text += "\n" + ToWx(tool.DisabledReason());
  }
  return text;
}

class ToolbarView : public ControlView {
 public:
  ToolbarView(forms::Toolbar& toolbar, wxWindow* parent) : ControlView(toolbar), toolbar_(toolbar) {
    bar_ = new wxToolBar(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                         wxTB_HORIZONTAL | wxTB_FLAT | wxTB_NODIVIDER | wxTB_HORZ_TEXT);
    Attach(bar_);
    bar_->Bind(wxEVT_TOOL, [this](wxCommandEvent& event) {
      auto found = tools_.find(event.GetId());
      if (found != tools_.end()) toolbar_.GetBand()->Menu().Click(*found->second);
    });
    bar_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
      event.Skip();
      if (event.GetSize().GetWidth() != width_) Later();
      width_ = event.GetSize().GetWidth();
    });
    ShowBand();
  }

 private:
  void Show(Property property) override {
    ControlView::Show(property);
    if (property == Property::kTools) ShowBand();
  }

  void ShowBand() {
    forms::Band* band = toolbar_.GetBand();
    menu_subscription_ = forms::Subscription();
    if (band) {
      menu_subscription_ = band->Menu().Observe([this](Property) { Later(); });
    }
    ShowTools();
  }

  // Many tools change together: they are shown once, afterwards.
  void Later() {
    if (pending_) return;
    pending_ = true;
    bar_->CallAfter([this] { ShowTools(); });
  }

  void ShowTools() {
    pending_ = false;
    bar_->ClearTools();
    tools_.clear();
    forms::Band* band = toolbar_.GetBand();
    bool separator = false;
    for (Tool* tool : band ? band->Tools() : std::vector<Tool*>()) {
      // A button that will apply again stays where it is, greyed out, and says why.
      if (!tool->Visible() && tool->DisabledReason().empty()) continue;
      if (tool->Kind() == ToolKind::kSeparator) separator = !tools_.empty();
      if (tool->Kind() != ToolKind::kCommand) continue;
      if (separator) bar_->AddSeparator();
      separator = false;
      Add(*tool);
    }
    bar_->Realize();
    FitLabels();
  }

  // Where the labels have no room the captions of the menu stand for them, then the pictures
  // alone. The tooltips always say the whole.
  void FitLabels() {
    const long plain = bar_->GetWindowStyle() & ~wxTB_HORZ_TEXT;
    bar_->SetWindowStyle(plain | wxTB_HORZ_TEXT);
    if (width_ <= 0 || NativeWidth(*bar_) <= width_) return;
    for (const auto& [id, tool] : tools_) bar_->FindById(id)->SetLabel(Caption(*tool));
    if (NativeWidth(*bar_) > width_) bar_->SetWindowStyle(plain);
  }

  void Add(Tool& tool) {
    wxBitmapBundle picture = Picture(tool.Icon());
    if (!picture.IsOk()) picture = Picture("edit");
    auto* button = bar_->AddTool(wxID_ANY, Label(tool), picture, Explanation(tool));
    bar_->EnableTool(button->GetId(), tool.Enabled());
    tools_[button->GetId()] = &tool;
  }

  forms::Toolbar& toolbar_;
  wxToolBar* bar_;
  std::map<int, Tool*> tools_;
  forms::Subscription menu_subscription_;
  int width_ = 0;
  bool pending_ = false;
};

}  // namespace

std::unique_ptr<ControlView> MakeToolbarView(forms::Toolbar& toolbar, wxWindow* parent) {
  return std::make_unique<ToolbarView>(toolbar, parent);
}

}  // namespace wx
