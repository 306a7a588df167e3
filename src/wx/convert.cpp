// SPDX-License-Identifier: MIT
#include "wx/convert.h"

#include <wx/clipbrd.h>
#include <wx/settings.h>

#include <array>
#include <cmath>

#include "platform/text.h"

namespace wx {

namespace {

constexpr double kTwipsPerPixel = 15;  // at 96 pixels an inch

std::int16_t Modifiers(const wxKeyboardState& state) {
  return static_cast<std::int16_t>((state.ShiftDown() ? forms::kShift : 0) |
                                   (state.ControlDown() ? forms::kControl : 0) |
                                   (state.AltDown() ? forms::kAlt : 0));
}

std::int16_t KeyCode(int key) {
  struct Pair {
    int native;
    std::int16_t code;
  };
  static constexpr std::array<Pair, 16> kPairs = {{
      {WXK_NUMPAD_ENTER, forms::kKeyReturn},
      {WXK_PAGEUP, forms::kKeyPageUp},
      {WXK_PAGEDOWN, forms::kKeyPageDown},
      {WXK_END, forms::kKeyEnd},
      {WXK_HOME, forms::kKeyHome},
      {WXK_LEFT, forms::kKeyLeft},
      {WXK_UP, forms::kKeyUp},
      {WXK_RIGHT, forms::kKeyRight},
      {WXK_DOWN, forms::kKeyDown},
      {WXK_INSERT, forms::kKeyInsert},
      {WXK_DELETE, forms::kKeyDelete},
      {WXK_NUMPAD_DELETE, forms::kKeyDelete},
      {WXK_NUMPAD_UP, forms::kKeyUp},
      {WXK_NUMPAD_DOWN, forms::kKeyDown},
      {WXK_NUMPAD_LEFT, forms::kKeyLeft},
      {WXK_NUMPAD_RIGHT, forms::kKeyRight},
  }};
  if (key >= WXK_F1 && key <= WXK_F12) {
    return static_cast<std::int16_t>(forms::kKeyF1 + (key - WXK_F1));
  }
  for (const Pair& pair : kPairs) {
    if (pair.native == key) return pair.code;
  }
  return key > 0 && key < 128 ? static_cast<std::int16_t>(key) : std::int16_t{0};
}

}  // namespace

wxString ToWx(std::string_view text) {
  if (platform::IsValidUtf8(text) && text.find('\0') == std::string_view::npos) {
    return wxString::FromUTF8(text.data(), text.size());
  }
  wxString out;
  for (std::size_t at = 0; at < text.size();) {
    char32_t point = platform::NextCodePoint(text, at);
    if (point == 0) continue;
    bool stray = point >= 0xD800 && point < 0xE000;
    out += wxUniChar(static_cast<wxUniChar::value_type>(stray ? 0xFFFD : point));
  }
  return out;
}

std::string FromWx(const wxString& text) {
  auto utf8 = text.utf8_str();
  return {utf8.data(), utf8.length()};
}

wxString ToLabel(std::string_view text) {
  wxString label = ToWx(text);
  label.Replace("&", "&&");
  return label;
}

int ToPixels(const wxWindow& window, double twips) {
  return window.FromDIP(static_cast<int>(std::lround(twips / kTwipsPerPixel)));
}

double ToTwips(const wxWindow& window, int pixels) { return window.ToDIP(pixels) * kTwipsPerPixel; }

wxFont ToWx(const forms::Font& font) {
  if (font == forms::Font()) return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  wxFontInfo info(font.size);
  info.FaceName(ToWx(font.name))
      .Italic(font.italic)
      .Underlined(font.underline)
      .Strikethrough(font.strikethrough)
      .Weight(font.weight > 0 && font.weight <= 1000 ? font.weight : 400);
  return wxFont(info);
}

forms::Font FromWx(const wxFont& font) {
  forms::Font result;
  result.name = FromWx(font.GetFaceName());
  result.size = font.GetFractionalPointSize();
  result.italic = font.GetStyle() != wxFONTSTYLE_NORMAL;
  result.underline = font.GetUnderlined();
  result.strikethrough = font.GetStrikethrough();
  result.weight = font.GetNumericWeight();
  return result;
}

forms::KeyEvent ToKeyEvent(const wxKeyEvent& event) {
  return {KeyCode(event.GetKeyCode()), Modifiers(event), false};
}

forms::MouseEvent ToMouseEvent(const wxWindow& window, const wxMouseEvent& event) {
  bool right = event.GetButton() == wxMOUSE_BTN_RIGHT || event.RightIsDown();
  bool left = event.GetButton() == wxMOUSE_BTN_LEFT || event.LeftIsDown();
  std::int16_t button = right ? forms::kRightButton : left ? forms::kLeftButton : std::int16_t{0};
  return {button, Modifiers(event), ToTwips(window, event.GetX()), ToTwips(window, event.GetY())};
}

namespace {

const wxDataFormat& OwnFormat() {
  static const wxDataFormat kFormat("application/x-ovformula");
  return kFormat;
}

}  // namespace

void ToClipboard(const std::string& text, const std::string& own) {
  if (!wxTheClipboard->Open()) return;
  auto* both = new wxDataObjectComposite;
  both->Add(new wxTextDataObject(ToWx(text)), /*preferred=*/true);
  if (!own.empty()) {
    auto* data = new wxCustomDataObject(OwnFormat());
    data->SetData(own.size(), own.data());
    both->Add(data);
  }
  wxTheClipboard->SetData(both);
  wxTheClipboard->Flush();  // it outlives the program
  wxTheClipboard->Close();
}

std::string FromClipboard() {
  wxTextDataObject text;
  if (!wxTheClipboard->Open()) return {};
  const bool found = wxTheClipboard->GetData(text);
  wxTheClipboard->Close();
  return found ? FromWx(text.GetText()) : std::string();
}

std::string OwnFromClipboard() {
  wxCustomDataObject data(OwnFormat());
  if (!wxTheClipboard->Open()) return {};
  const bool found = wxTheClipboard->IsSupported(OwnFormat()) && wxTheClipboard->GetData(data);
  wxTheClipboard->Close();
  if (!found) return {};
  return {static_cast<const char*>(data.GetData()), data.GetSize()};
}

}  // namespace wx
