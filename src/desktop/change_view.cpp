// SPDX-License-Identifier: MIT
#include "desktop/change_view.h"

#include <wx/settings.h>

#include <algorithm>

#include "desktop/colours.h"
#include "desktop/pane_texts.h"
#include "wx/convert.h"
#include "wx/native.h"

namespace desktop {

namespace {

constexpr std::size_t kMostLines = 2000;

// Where the text is to end; its size when it has no more lines than that.
std::size_t EndOfLines(const std::string& text, std::size_t lines) {
  std::size_t end = 0;
  for (; lines > 0 && end < text.size(); --lines) {
    end = std::min(text.find('\n', end), text.size() - 1) + 1;
  }
  return end;
}

}  // namespace

ChangeView::ChangeView(wxWindow* parent, const std::string& name, const texts::TextTable& texts)
    : wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP | wxTE_RICH2),
      texts_(texts) {
  wxFont font = GetFont();
  font.SetFamily(wxFONTFAMILY_TELETYPE);
  SetFont(font);
  wx::SetAccessibleName(*this, wx::ToWx(name));
}

void ChangeView::ShowText(const std::string& text) {
  const std::size_t end = EndOfLines(text, kMostLines);
  std::string shown = text.substr(0, end);
  if (end < text.size()) {
    const auto more = std::count(text.begin() + static_cast<std::ptrdiff_t>(end), text.end(), '\n');
    shown += texts_.Text(kTextMoreLines, {{"<Count>", std::to_string(more)}});
  }
  Freeze();
  ChangeValue(wx::ToWx(shown));
  Colour();
  SetInsertionPoint(0);
  ShowPosition(0);
  Thaw();
}

void ChangeView::Colour() {
  const ChangePalette& colours =
      wxSystemSettings::GetAppearance().IsDark() ? kDarkChange : kLightChange;
  long begin = 0;
  for (int line = 0; line < GetNumberOfLines(); ++line) {
    const wxString text = GetLineText(line);
    const auto end = begin + static_cast<long>(text.length());
    const char* ink = text.StartsWith("-")    ? colours.removed
                      : text.StartsWith("+")  ? colours.added
                      : text.StartsWith("@@") ? colours.place
                                              : nullptr;
    if (ink) SetStyle(begin, end, wxTextAttr(wxColour(ink)));
    begin = end + 1;
  }
}

}  // namespace desktop
