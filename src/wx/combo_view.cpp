// SPDX-License-Identifier: MIT
#include "wx/combo_view.h"

#include <wx/choice.h>
#include <wx/combo.h>

#include <algorithm>

#include "wx/convert.h"
#include "wx/entries_model.h"
#include "wx/native_list.h"

namespace wx {

namespace {

using forms::Property;

constexpr std::int32_t kShortList = 200;  // entries that a native drop-down shows without delay
constexpr int kPopupRows = 12;

class ChoiceView : public ControlView {
 public:
  ChoiceView(forms::ComboBox& combo, wxWindow* parent, const ViewContext& context)
      : ControlView(combo), combo_(combo) {
    choice_ = new wxChoice(parent, wxID_ANY);
    ShowItems();
    Attach(choice_, context.relayout);
    choice_->Bind(wxEVT_CHOICE,
                  [this](wxCommandEvent& event) { combo_.SetListIndex(event.GetSelection()); });
  }

 private:
  void Show(Property property) override {
    ControlView::Show(property);
    if (property == Property::kItems) ShowItems();
    if (property == Property::kListIndex) choice_->SetSelection(combo_.ListIndex());
  }
  void ShowItems() {
    wxArrayString items;
    for (std::int32_t i = 0; i < combo_.ListCount(); ++i) items.Add(ToWx(combo_.List(i)));
    choice_->Set(items);
    choice_->SetSelection(combo_.ListIndex());
  }

  forms::ComboBox& combo_;
  wxChoice* choice_;
};

// The entries of a drop-down as a source, wherever they come from.
class ComboEntries : public forms::ListSource {
 public:
  explicit ComboEntries(const forms::ComboBox& combo) : combo_(combo) {}
  std::size_t Count() override { return static_cast<std::size_t>(combo_.ListCount()); }
  forms::ListItem Item(std::size_t index) override {
    auto position = static_cast<std::int32_t>(index);
    return {combo_.List(position), combo_.ItemData(position)};
  }
  std::optional<std::size_t> FindPrefix(std::string_view prefix, std::size_t from) override {
    return combo_.Source() ? combo_.Source()->FindPrefix(prefix, from)
                           : ListSource::FindPrefix(prefix, from);
  }

 private:
  const forms::ComboBox& combo_;
};

class EntriesPopup : public wxComboPopup {
 public:
  explicit EntriesPopup(forms::ComboBox& combo)
      : combo_(combo), entries_(combo), model_(new EntriesModel(entries_)) {}

  bool Create(wxWindow* parent) override {
    list_ = MakeEntriesList(parent, *model_);
    WatchPicks(*list_, [this](const wxDataViewItem& item) { Choose(item); });
    list_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED,
                [this](wxDataViewEvent& event) { Choose(event.GetItem()); });
    return true;
  }
  wxWindow* GetControl() override { return list_; }
  wxString GetStringValue() const override { return ToWx(combo_.Text()); }
  void OnPopup() override { Select(combo_.ListIndex()); }
  wxSize GetAdjustedSize(int least_width, int preferred_height, int max_height) override {
    int rows = std::min(combo_.ListCount(), kPopupRows) * (list_->GetCharHeight() + 8);
    return {least_width,
            std::min({std::max(rows, 40), max_height, std::max(preferred_height, rows)})};
  }

  // Moves the mark to an entry without choosing it.
  void Select(std::int32_t index) { MarkEntry(*list_, *model_, index); }
  void Reload() { model_->Reload(); }
  void Detach() { model_->Detach(); }

 private:
  void Choose(const wxDataViewItem& item) {
    const unsigned row = model_->GetRow(item);
    Dismiss();
    combo_.SetListIndex(static_cast<std::int32_t>(row));
  }

  forms::ComboBox& combo_;
  ComboEntries entries_;
  wxObjectDataPtr<EntriesModel> model_;
  wxDataViewCtrl* list_ = nullptr;
};

// What is typed is completed to the first entry that begins with it.
class SearchView : public ControlView {
 public:
  SearchView(forms::ComboBox& combo, wxWindow* parent, const ViewContext& context)
      : ControlView(combo), combo_(combo) {
    field_ = new wxComboCtrl(parent, wxID_ANY, ToWx(combo.Text()));
    popup_ = new EntriesPopup(combo);
    field_->SetPopupControl(popup_);
    Attach(field_, context.relayout);
    wxTextCtrl& text = *field_->GetTextCtrl();
    text.Bind(wxEVT_CHAR, [this](wxKeyEvent& event) {
      typed_ = event.GetUnicodeKey() != WXK_NONE && !event.HasModifiers();
      event.Skip();
    });
    text.Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
      event.Skip();
      if (!showing_) OnTyped();
    });
    text.Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
      event.Skip();
      ShowText();
    });
    text.Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) { OnKey(event); });
  }

  wxWindow& FocusWindow() const override { return *field_->GetTextCtrl(); }
  void Detach() override {
    ControlView::Detach();
    popup_->Detach();
  }

 private:
  void Show(Property property) override {
    ControlView::Show(property);
    if (property == Property::kItems) popup_->Reload();
    if (property == Property::kItems || property == Property::kListIndex) {
      if (!typing_) ShowText();
    }
  }

  // The field shows the chosen entry, whatever was typed.
  void ShowText() {
    wxString text = ToWx(combo_.Text());
    if (field_->GetValue() == text) return;
    showing_ = true;
    field_->SetText(text);
    showing_ = false;
  }

  void OnTyped() {
    std::string typed = FromWx(field_->GetValue());
    std::int32_t found = typed.empty() ? -1 : Find(typed);
    typing_ = true;
    combo_.SetListIndex(found);
    typing_ = false;
    if (field_->IsPopupShown()) popup_->Select(found);
    std::string entry = combo_.Text();
    bool completes = typed_ && found >= 0 && entry.size() > typed.size();
    typed_ = false;
    if (!completes) return;
    showing_ = true;
    long caret = field_->GetInsertionPoint();
    field_->SetText(ToWx(entry));
    field_->GetTextCtrl()->SetSelection(caret, -1);  // the next key replaces what was completed
    showing_ = false;
  }

  std::int32_t Find(const std::string& prefix) const {
    auto found = ComboEntries(combo_).FindPrefix(prefix, 0);
    return found ? static_cast<std::int32_t>(*found) : -1;
  }

  void OnKey(wxKeyEvent& event) {
    int step = event.GetKeyCode() == WXK_DOWN       ? 1
               : event.GetKeyCode() == WXK_UP       ? -1
               : event.GetKeyCode() == WXK_PAGEDOWN ? kPopupRows
               : event.GetKeyCode() == WXK_PAGEUP   ? -kPopupRows
                                                    : 0;
    if (step == 0 || event.AltDown() || combo_.ListCount() == 0) {
      event.Skip();  // Alt+Down opens the list
      return;
    }
    combo_.SetListIndex(std::clamp(combo_.ListIndex() + step, 0, combo_.ListCount() - 1));
    field_->GetTextCtrl()->SelectAll();
    if (field_->IsPopupShown()) popup_->Select(combo_.ListIndex());
  }

  forms::ComboBox& combo_;
  wxComboCtrl* field_;
  EntriesPopup* popup_;
  bool showing_ = false;  // the text is being set by us
  bool typing_ = false;   // the choice comes from what is being typed
  bool typed_ = false;    // the last key added a character
};

}  // namespace

std::unique_ptr<ControlView> MakeComboView(forms::ComboBox& combo, wxWindow* parent,
                                           const ViewContext& context) {
  if (combo.Source() || combo.ListCount() > kShortList) {
    return std::make_unique<SearchView>(combo, parent, context);
  }
  return std::make_unique<ChoiceView>(combo, parent, context);
}

}  // namespace wx
