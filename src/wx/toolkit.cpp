// SPDX-License-Identifier: MIT
#include "wx/toolkit.h"

#include <wx/fontdlg.h>
#include <wx/msgdlg.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include <algorithm>

#include "messages/text_number.h"
#include "texts/text_table.h"
#include "wx/convert.h"
#include "wx/menu_view.h"
#include "wx/native.h"
#include "wx/progress_window.h"

namespace wx {

namespace {

using platform::MessageButtons;
using platform::MessageIcon;
using platform::MessageResult;

constexpr long kProgressDelayMs = 1000;

constexpr messages::TextNumber kOk{10};
constexpr messages::TextNumber kCancel{11};
constexpr messages::TextNumber kControlKey{1494};
constexpr messages::TextNumber kShiftKey{1495};
constexpr messages::TextNumber kDeleteKey{1496};
constexpr messages::TextNumber kYes{1491};
constexpr messages::TextNumber kNo{1492};

long IconStyle(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kInformation:
      return wxICON_INFORMATION;
    case MessageIcon::kQuestion:
      return wxICON_QUESTION;
    case MessageIcon::kWarning:
      return wxICON_WARNING;
    case MessageIcon::kError:
      return wxICON_ERROR;
    case MessageIcon::kNone:
      break;
  }
  return wxICON_NONE;
}

long ButtonStyle(const platform::MessageBox& box) {
  switch (box.buttons) {
    case MessageButtons::kYesNo:
    case MessageButtons::kYesNoCancel: {
      const bool cancel = box.buttons == MessageButtons::kYesNoCancel;
      const bool no = box.default_button == MessageResult::kNo;
      const bool neither = cancel && box.default_button == MessageResult::kCancel;
      return wxYES_NO | (cancel ? wxCANCEL : 0) |
             (neither ? wxCANCEL_DEFAULT
              : no    ? wxNO_DEFAULT
                      : wxYES_DEFAULT);
    }
    case MessageButtons::kOkCancel:
      return wxOK | wxCANCEL |
             (box.default_button == MessageResult::kCancel ? wxCANCEL_DEFAULT : wxOK_DEFAULT);
    case MessageButtons::kOk:
      break;
  }
  return wxOK;
}

// Closing a box is its mildest answer.
MessageResult ResultOf(int id, MessageButtons buttons) {
  if (id == wxID_YES) return MessageResult::kYes;
  if (id == wxID_NO || buttons == MessageButtons::kYesNo) return MessageResult::kNo;
  if (id == wxID_OK || buttons == MessageButtons::kOk) return MessageResult::kOk;
  return MessageResult::kCancel;
}

// While it lives the pointer is as it is when nothing is busy.
class PointerForAnswer {
 public:
  PointerForAnswer() {
    for (; wxIsBusy(); ++depth_) wxEndBusyCursor();
  }
  ~PointerForAnswer() {
    for (; depth_ > 0; --depth_) wxBeginBusyCursor();
  }
  PointerForAnswer(const PointerForAnswer&) = delete;
  PointerForAnswer& operator=(const PointerForAnswer&) = delete;

 private:
  int depth_ = 0;
};

bool IsAlive(const wxWindow* window, const wxWindowList& among) {
  for (const wxWindow* candidate : among) {
    if (candidate == window || IsAlive(window, candidate->GetChildren())) return true;
  }
  return false;
}

}  // namespace

platform::WindowHandle HandleOf(wxWindow* window) {
  return reinterpret_cast<platform::WindowHandle>(window);
}

wxWindow* WindowOfHandle(platform::WindowHandle handle) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the handle is the window.
  auto* window = reinterpret_cast<wxWindow*>(handle);
  return window && IsAlive(window, wxTopLevelWindows) ? window : nullptr;
}

Toolkit::Toolkit(const texts::TextTable& texts, messages::TextNumber title)
    : texts_(texts), title_(title) {
  NameKey("Ctrl", ToWx(texts.Text(kControlKey)));
  NameKey("Shift", ToWx(texts.Text(kShiftKey)));
  NameKey("Del", ToWx(texts.Text(kDeleteKey)));
}

Toolkit::~Toolkit() = default;

FormWindow* Toolkit::Find(const forms::Form& form) const {
  for (const auto& window : windows_) {
    if (&window->Model() == &form) return window.get();
  }
  return nullptr;
}

FormWindow& Toolkit::Open(forms::Form& form, forms::Form* owner) {
  if (FormWindow* window = Find(form)) return *window;
  form.Load();
  wxWindow* parent = OwnerOf(owner);
  wxWindow* host = nullptr;
  for (const Host& entry : hosts_) {
    if (entry.form == &form) host = entry.window;
  }
  windows_.push_back(std::make_unique<FormWindow>(form, texts_, parent ? parent : main_, host));
  return *windows_.back();
}

wxWindow* Toolkit::OwnerOf(forms::Form* owner) {
  wxWindow* window = owner ? WindowOf(*owner) : nullptr;
  return window && wxGetTopLevelParent(window)->IsShown() ? window : ActiveWindow();
}

wxWindow* Toolkit::ActiveWindow() const {
  wxWindow* active = wxGetActiveWindow();
  return active ? wxGetTopLevelParent(active) : main_;
}

void Toolkit::Embed(forms::Form& form, wxWindow* host) {
  std::erase_if(hosts_, [&](const Host& entry) { return entry.form == &form; });
  if (host) hosts_.push_back({&form, host});
}

MenuBarView* Toolkit::MenusOf(forms::Form& form) {
  FormWindow* window = Find(form);
  return window ? window->Menus() : nullptr;
}

wxWindow* Toolkit::WindowOf(forms::Form& form) {
  FormWindow* window = Find(form);
  return window ? &window->Window() : nullptr;
}

void Toolkit::Load(forms::Form& form) { Open(form, nullptr); }

void Toolkit::Unload(forms::Form& form) {
  form.Unload();
  std::erase_if(windows_, [&](const auto& window) { return &window->Model() == &form; });
}

void Toolkit::ShowModal(forms::Form& form, forms::Form* owner) {
  Open(form, owner).RunModal();
  form.Hide();
}

void Toolkit::ShowModeless(forms::Form& form) { Open(form, nullptr).ShowModeless(); }

platform::WindowHandle Toolkit::Handle(forms::Form& form) { return HandleOf(WindowOf(form)); }

MessageResult Toolkit::Show(const platform::MessageBox& box) {
  std::string title = box.title.empty() ? texts_.Text(title_) : box.title;
  const std::string& prompt = box.prompt.empty() ? box.detail : box.prompt;
  wxMessageDialog dialog(ActiveWindow(), ToWx(prompt), ToWx(title),
                         ButtonStyle(box) | IconStyle(box.icon) | wxCENTRE);
  if (!box.prompt.empty() && !box.detail.empty()) dialog.SetExtendedMessage(ToWx(box.detail));
  const wxString ok = ToWx(texts_.Text(kOk));
  const wxString yes = ToWx(box.yes.empty() ? texts_.Text(kYes) : box.yes);
  const wxString no = ToWx(box.no.empty() ? texts_.Text(kNo) : box.no);
  switch (box.buttons) {
    case MessageButtons::kYesNo:
      dialog.SetYesNoLabels(yes, no);
      break;
    case MessageButtons::kYesNoCancel:
      dialog.SetYesNoCancelLabels(yes, no, ToWx(texts_.Text(kCancel)));
      break;
    case MessageButtons::kOkCancel:
      dialog.SetOKCancelLabels(ok, ToWx(texts_.Text(kCancel)));
      break;
    case MessageButtons::kOk:
      dialog.SetOKLabel(ok);
      break;
  }
  const PointerForAnswer pointer;
  return ResultOf(dialog.ShowModal(), box.buttons);
}

std::optional<forms::Font> Toolkit::ChooseFont(const forms::Font& current) {
  wxFontData data;
  data.SetInitialFont(ToWx(current));
  wxFontDialog dialog(ActiveWindow(), data);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  forms::Font font = FromWx(dialog.GetFontData().GetChosenFont());
  font.charset = current.charset;
  return font;
}

void Toolkit::PopupMenu(forms::Band& band) {
  wxWindow* window = wxWindow::FindFocus();
  if (!window) window = ActiveWindow();
  if (window) PopupBand(*window, band);
}

void Toolkit::SetPointer(platform::Pointer pointer) {
  if (pointer == platform::Pointer::kHourglass) {
    wxBeginBusyCursor();
  } else if (wxIsBusy()) {
    wxEndBusyCursor();
  }
}

std::unique_ptr<platform::Progress> Toolkit::StartProgress(std::string_view task) {
  return std::make_unique<ProgressWindow>(texts_, ActiveWindow(), std::string(task),
                                          kProgressDelayMs);
}

void Toolkit::Beep() { wxBell(); }

void Toolkit::SetClipboardText(std::string_view text) { ToClipboard(std::string(text)); }

std::string Toolkit::ClipboardText() { return FromClipboard(); }

void Toolkit::SetClipboard(std::string_view text, std::string_view own) {
  ToClipboard(std::string(text), std::string(own));
}

std::string Toolkit::OwnClipboardText() { return OwnFromClipboard(); }

void Toolkit::CallLater(std::function<void()> task) { CallWhenIdle(std::move(task)); }

void Toolkit::SendKeys(std::string_view keys) {
  if (keys != "{F1}") return;
  // The form that was opened last and is shown has the user's attention.
  for (auto window = windows_.rbegin(); window != windows_.rend(); ++window) {
    forms::Form& form = (*window)->Model();
    if (!form.Visible()) continue;
    if (form.on_help) form.on_help();
    return;
  }
}

}  // namespace wx
