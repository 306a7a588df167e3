// SPDX-License-Identifier: MIT
#include <wx/access.h>
#include <wx/app.h>
#include <wx/dataview.h>
#include <wx/eventfilter.h>
#include <wx/timer.h>
#include <wx/treectrl.h>
// Renames names that others use; wxWidgets' own header takes them back.
#include <wx/msw/wrapwin.h>

#include <algorithm>
#include <map>
#include <utility>

#include "wx/native.h"

namespace wx {

namespace {

// A last character without width, which keeps the toolkit from taking a menu's text for keys of its
// own.
constexpr int kNoAccelerator = 0x200B;

// What a control says to screen readers besides what it says by itself.
class Spoken : public wxAccessible {
 public:
  explicit Spoken(wxWindow* window) : wxAccessible(window) {}

  wxString name, description;

 private:
  static wxAccStatus Answer(int child, const wxString& own, wxString* text) {
    if (child != wxACC_SELF || own.empty()) return wxACC_NOT_IMPLEMENTED;
    *text = own;
    return wxACC_OK;
  }
  wxAccStatus GetName(int child, wxString* text) override { return Answer(child, name, text); }
  wxAccStatus GetDescription(int child, wxString* text) override {
    return Answer(child, description, text);
  }
};

std::map<wxString, wxString>& KeyNames() {
  static std::map<wxString, wxString> names;
  return names;
}

Spoken& SpokenOf(wxWindow& window) {
  auto* spoken = dynamic_cast<Spoken*>(window.GetAccessible());
  if (!spoken) {
    spoken = new Spoken(&window);
    window.SetAccessible(spoken);  // which it owns
  }
  return *spoken;
}

// Timers are told when nothing else waits.
class IdleTask : public wxTimer {
 public:
  explicit IdleTask(std::function<void()> task) : task_(std::move(task)) { StartOnce(1); }

 private:
  void Notify() override {
    const std::function<void()> task = std::move(task_);
    delete this;
    task();
  }

  std::function<void()> task_;
};

// The release of Alt opens the menu, unless the system saw another key meanwhile: of a chord that
// the program keeps for itself it saw none. This stands for it.
class AltChords : public wxEventFilter {
 public:
  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() != wxEVT_CHAR_HOOK) return Event_Skip;
    const auto& key = static_cast<const wxKeyEvent&>(event);
    if (key.AltDown() && key.GetKeyCode() != WXK_ALT)
      ::DefWindowProcW(::GetFocus(), WM_SYSKEYDOWN, VK_NONAME, KF_ALTDOWN << 16);
    return Event_Skip;
  }
};

// The row with the keyboard, in the coordinates of the window; empty where there are no rows.
wxRect CurrentRow(wxWindow& window) {
  if (auto* tree = dynamic_cast<wxTreeCtrl*>(&window)) {
    wxRect row;
    return tree->GetBoundingRect(tree->GetSelection(), row) ? row : wxRect();
  }
  for (wxWindow* place = &window; place; place = place->GetParent()) {
    auto* list = dynamic_cast<wxDataViewCtrl*>(place);
    if (!list || !list->GetCurrentItem().IsOk()) continue;
    wxRect row = list->GetItemRect(list->GetCurrentItem());
    row.SetPosition(window.ScreenToClient(list->ClientToScreen(row.GetPosition())));
    return row;
  }
  return {};
}

}  // namespace

int RunApp(int, char**) {
  AltChords chords;
  wxEvtHandler::AddFilter(&chords);
  const int result = wxEntry(::GetModuleHandleW(nullptr), nullptr, nullptr, SW_SHOW);
  wxEvtHandler::RemoveFilter(&chords);
  return result;
}

wxString NativeParts() {
  return "libpng: PNG Reference Library License 2\n"
         "zlib: zlib licence\n"
         "MinGW-w64 runtime: Zope Public License 2.1, MIT licence (winpthreads)";
}

void OnDiagnostic(std::function<void(const std::string&)>) {}

void LayOutBeforeShow(wxTopLevelWindow&) {}

wxStaticText* NewLabel(wxWindow* parent) {
  return new wxStaticText(parent, wxID_ANY, wxEmptyString);
}

bool HasLooks() { return false; }

void SetLook(Look) {}

wxStaticText* NewHint(wxWindow* parent) { return NewLabel(parent); }

int NativeHeight(const wxWindow& window) { return window.GetBestSize().GetHeight(); }

int NativeWidth(const wxWindow& window) { return window.GetBestSize().GetWidth(); }

// The toolkit's own way makes the whole window the active one.
void RaiseControl(wxWindow& control) {
  ::SetWindowPos(control.GetHWND(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void CallWhenIdle(std::function<void()> task) { new IdleTask(std::move(task)); }

// A character without width keeps wxWidgets from making an accelerator of it.
void NameKey(const wxString& english, const wxString& name) { KeyNames()[english] = name; }

void ShowShortcut(wxMenuItem& item, const wxString& shortcut) {
  item.SetItemLabel(item.GetItemLabel().BeforeFirst('\t') + "\t" + KeyText(shortcut) +
                    wxUniChar(kNoAccelerator));
}

wxString ShownShortcut(const wxMenuItem& item) {
  return item.GetItemLabel().AfterFirst('\t').BeforeFirst(wxUniChar(kNoAccelerator));
}

wxString KeyText(const wxString& shortcut) {
  wxString text = shortcut;
  for (const auto& [english, name] : KeyNames()) text.Replace(english, name);
  return text;
}

bool TextHasKeyboard(const wxTopLevelWindow&) {
  constexpr int kLongest = 16;
  wchar_t name[kLongest] = {};
  const HWND focus = ::GetFocus();
  if (!focus || ::GetClassNameW(focus, name, kLongest) == 0) return false;
  return wxString(name).Lower().Contains("edit");
}

void SetAccessibleName(wxWindow& window, const wxString& name) {
  // A list tells its rows by an object of its own, which takes the window's name.
  if (dynamic_cast<wxDataViewCtrl*>(&window)) return window.SetName(name);
  SpokenOf(window).name = name;
}

void SetAccessibleDescription(wxWindow& window, const wxString& description) {
  if (!dynamic_cast<wxDataViewCtrl*>(&window)) SpokenOf(window).description = description;
}

void MarkInvalid(wxWindow& window, bool invalid) {
  window.SetForegroundColour(invalid ? wxColour(176, 28, 28) : wxColour());
  window.Refresh();
}

void KeepScrollbarsBeside(wxWindow&) {}

void LeaveOutScrollbarWithoutRoom(wxWindow&) {}

wxPoint PopupPlace(wxWindow& window) {
  if (!wxGetKeyState(WXK_WINDOWS_MENU) && !wxGetKeyState(WXK_F10)) return wxDefaultPosition;
  const wxRect row = CurrentRow(window);
  if (row.IsEmpty()) return wxDefaultPosition;
  const wxSize area = window.GetClientSize();
  return {std::clamp(row.x, 0, area.GetWidth()),
          std::clamp(row.GetBottom() + 1, 0, area.GetHeight())};
}

// Drop-downs leave Enter to the dialog here.
void PressByEnter(wxChoice&, wxButton&) {}

void KeepUsableDuringDialogs(wxTopLevelWindow&) {}

}  // namespace wx
