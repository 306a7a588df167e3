// SPDX-License-Identifier: MIT
#include "wx/field_views.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <vector>

#include "wx/convert.h"
#include "wx/native.h"
#include "wx/pictures.h"

namespace wx {

namespace {

using forms::Property;

constexpr int kHintChars = 48;  // hints wrap at this width

class LabelView : public ControlView {
 public:
  LabelView(forms::Label& label, wxWindow* parent, const ViewContext& context)
      : ControlView(label), label_(label), relayout_(context.relayout) {
    text_ = label_.Hint() ? NewHint(parent) : NewLabel(parent);
    Attach(text_, context.relayout);
    ShowCaption();
  }

 private:
  void Show(Property property) override {
    ControlView::Show(property);
    if (property != Property::kCaption) return;
    ShowCaption();
    relayout_();
  }
  void ShowCaption() {
    text_->SetLabel(label_.Hint() ? ToLabel(label_.Caption()) : ToWx(label_.Caption()));
    if (label_.Hint()) text_->Wrap(WidthOfChars(*text_, kHintChars));
  }

  forms::Label& label_;
  std::function<void()> relayout_;
  wxStaticText* text_;
};

class TextBoxView : public ControlView {
 public:
  TextBoxView(forms::TextBox& box, wxWindow* parent, const ViewContext& context)
      : ControlView(box), box_(box) {
    long style = (box.MultiLine() ? wxTE_MULTILINE : 0) | (box.Locked() ? wxTE_READONLY : 0);
    text_ =
        new wxTextCtrl(parent, wxID_ANY, ToWx(box.Text()), wxDefaultPosition, wxDefaultSize, style);
    if (box.MaxLength() > 0) text_->SetMaxLength(static_cast<unsigned long>(box.MaxLength()));
    if (!box.Placeholder().empty()) text_->SetHint(ToWx(box.Placeholder()));
    Attach(text_, context.relayout);
    text_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { box_.SetText(FromWx(text_->GetValue())); });
    text_->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
      forms::KeyEvent key = ToKeyEvent(event);
      if (box_.on_key_down) box_.on_key_down(key);
      event.Skip(!key.handled);
    });
    text_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
      event.Skip();
      if (!box_.MultiLine()) text_->SelectAll();
      if (box_.on_got_focus) box_.on_got_focus();
    });
    text_->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
      event.Skip();
      if (box_.on_lost_focus) box_.on_lost_focus();
    });
  }

 private:
  void Show(Property property) override {
    ControlView::Show(property);
    if (property != Property::kText || FromWx(text_->GetValue()) == box_.Text()) return;
    // A filter took characters away: the caret stays where the user types.
    long caret = text_->GetInsertionPoint();
    long removed = static_cast<long>(text_->GetValue().length());
    text_->ChangeValue(ToWx(box_.Text()));
    removed -= static_cast<long>(text_->GetValue().length());
    text_->SetInsertionPoint(std::max(0L, removed > 0 ? caret - removed : caret));
  }

  forms::TextBox& box_;
  wxTextCtrl* text_;
};

class CheckBoxView : public ControlView {
 public:
  CheckBoxView(forms::CheckBox& box, wxWindow* parent, const ViewContext& context)
      : ControlView(box), box_(box) {
    check_ = new wxCheckBox(parent, wxID_ANY, ToWx(box.Caption()));
    check_->SetValue(box.Checked());
    Attach(check_, context.relayout);
    check_->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) {
      box_.SetChecked(event.IsChecked());
      check_->SetValue(box_.Checked());  // a rule may have taken the click back
    });
  }

 private:
  void Show(Property property) override {
    ControlView::Show(property);
    if (property == Property::kCaption) check_->SetLabel(ToWx(box_.Caption()));
    if (property == Property::kValue) check_->SetValue(box_.Checked());
  }

  forms::CheckBox& box_;
  wxCheckBox* check_;
};

class ButtonView : public ControlView {
 public:
  ButtonView(forms::Button& button, wxWindow* parent, const ViewContext& context)
      : ControlView(button), button_(button) {
    widget_ = new wxButton(parent, wxID_ANY, ToWx(button.Caption()), wxDefaultPosition,
                           wxDefaultSize, IsSmall() ? wxBU_EXACTFIT : 0);
    Attach(widget_, context.relayout);
    ShowPicture();
    widget_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { button_.Click(); });
  }

 private:
  bool IsSmall() const { return button_.Caption() == "..." || !button_.Picture().empty(); }
  void Show(Property property) override {
    ControlView::Show(property);
    if (property == Property::kCaption) widget_->SetLabel(ToWx(button_.Caption()));
    if (property == Property::kPicture) ShowPicture();
  }
  void ShowPicture() {
    if (button_.Picture().empty()) return;
    widget_->SetBitmap(Picture(button_.Picture()));
    SetAccessibleName(*widget_, ToWx(button_.Caption()));
    widget_->SetLabel(wxEmptyString);
  }

  forms::Button& button_;
  wxButton* widget_;
};

class SplitterView : public ControlView {
 public:
  SplitterView(forms::Splitter& splitter, wxWindow* parent)
      : ControlView(splitter), splitter_(splitter) {
    bar_ = new wxWindow(parent, wxID_ANY);
    bar_->SetCursor(wxCursor(wxCURSOR_SIZEWE));
    Attach(bar_);
    bar_->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
      if (!bar_->HasCapture()) bar_->CaptureMouse();
      ShowColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
      if (splitter_.on_mouse_down) splitter_.on_mouse_down(ToMouseEvent(*bar_, event));
    });
    bar_->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
      if (splitter_.on_mouse_move) splitter_.on_mouse_move(ToMouseEvent(*bar_, event));
    });
    bar_->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
      if (bar_->HasCapture()) bar_->ReleaseMouse();
      ShowColour(wxColour());
      if (splitter_.on_mouse_up) splitter_.on_mouse_up(ToMouseEvent(*bar_, event));
    });
    bar_->Bind(wxEVT_MOUSE_CAPTURE_LOST,
               [this](wxMouseCaptureLostEvent&) { ShowColour(wxColour()); });
  }

 private:
  // It is seen while it is dragged.
  void ShowColour(const wxColour& colour) {
    bar_->SetBackgroundColour(colour);
    bar_->Refresh();
  }

  forms::Splitter& splitter_;
  wxWindow* bar_;
};

class StatusBarView : public ControlView {
 public:
  StatusBarView(forms::StatusBar& bar, wxWindow* parent) : ControlView(bar), bar_(bar) {
    panel_ = new wxPanel(parent);
    panel_->SetSizer(new wxBoxSizer(wxHORIZONTAL));
    Attach(panel_);
    ShowPanels();
    panel_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
      event.Skip();
      panel_->CallAfter([this] { ExplainShortened(); });
    });
  }

 private:
  void Show(Property property) override {
    ControlView::Show(property);
    if (property == Property::kPanels) ShowPanels();
  }
  void ShowPanels() {
    for (std::size_t i = labels_.size(); i < bar_.Panels().size(); ++i) AddLabel(i);
    for (std::size_t i = 0; i < labels_.size(); ++i) {
      wxString text = ToLabel(bar_.Panels()[i].text);
      if (labels_[i]->GetLabel() != text) labels_[i]->SetLabel(text);
    }
    panel_->Layout();
    ExplainShortened();
  }
  // A text that has no room is told whole by its tooltip.
  void ExplainShortened() {
    for (wxStaticText* label : labels_) {
      const wxString text = label->GetLabelText();
      const bool shortened = label->GetTextExtent(text).GetWidth() > label->GetSize().GetWidth();
      label->SetToolTip(shortened ? text : wxString());
    }
  }
  void AddLabel(std::size_t i) {
    labels_.push_back(new wxStaticText(panel_, wxID_ANY, wxEmptyString, wxDefaultPosition,
                                       wxDefaultSize, wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE));
    double width = bar_.Panels()[i].width;
    if (width > 0) labels_[i]->SetMinSize(wxSize(ToPixels(*panel_, width), -1));
    panel_->GetSizer()->Add(labels_[i], wxSizerFlags(width > 0 ? 0 : 1)
                                            .CentreVertical()
                                            .Border(wxLEFT | wxRIGHT, panel_->FromDIP(6)));
  }

  forms::StatusBar& bar_;
  wxPanel* panel_;
  std::vector<wxStaticText*> labels_;
};

}  // namespace

int WidthOfChars(const wxWindow& window, int chars) { return chars * window.GetCharWidth(); }

std::unique_ptr<ControlView> MakeLabelView(forms::Label& label, wxWindow* parent,
                                           const ViewContext& context) {
  return std::make_unique<LabelView>(label, parent, context);
}
std::unique_ptr<ControlView> MakeTextBoxView(forms::TextBox& box, wxWindow* parent,
                                             const ViewContext& context) {
  return std::make_unique<TextBoxView>(box, parent, context);
}
std::unique_ptr<ControlView> MakeCheckBoxView(forms::CheckBox& box, wxWindow* parent,
                                              const ViewContext& context) {
  return std::make_unique<CheckBoxView>(box, parent, context);
}
std::unique_ptr<ControlView> MakeButtonView(forms::Button& button, wxWindow* parent,
                                            const ViewContext& context) {
  return std::make_unique<ButtonView>(button, parent, context);
}
std::unique_ptr<ControlView> MakeSplitterView(forms::Splitter& splitter, wxWindow* parent) {
  return std::make_unique<SplitterView>(splitter, parent);
}
std::unique_ptr<ControlView> MakeStatusBarView(forms::StatusBar& bar, wxWindow* parent) {
  return std::make_unique<StatusBarView>(bar, parent);
}

}  // namespace wx
