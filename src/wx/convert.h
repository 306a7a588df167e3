// SPDX-License-Identifier: MIT
// Text, lengths, fonts and keys between the models and wxWidgets.
#pragma once

#include <wx/event.h>
#include <wx/font.h>
#include <wx/string.h>
#include <wx/window.h>

#include <string>
#include <string_view>

#include "forms/font.h"
#include "forms/keys.h"

namespace wx {

// Text for showing: malformed UTF-8 becomes U+FFFD, characters of code 0 are left out.
wxString ToWx(std::string_view text);
std::string FromWx(const wxString& text);

// A text that is not a caption: its ampersands mark no mnemonic.
wxString ToLabel(std::string_view text);

// Twips are 1/1440 inch; pixels follow the scale of the window's screen.
int ToPixels(const wxWindow& window, double twips);
double ToTwips(const wxWindow& window, int pixels);

// The font of a model. The models' default font stands for the system's own, so that the system's
// text size counts until the user chose a font.
wxFont ToWx(const forms::Font& font);
forms::Font FromWx(const wxFont& font);

forms::KeyEvent ToKeyEvent(const wxKeyEvent& event);
forms::MouseEvent ToMouseEvent(const wxWindow& window, const wxMouseEvent& event);

// The clipboard's text; "" when it has none. `own` stands beside it in a format of ours.
void ToClipboard(const std::string& text, const std::string& own = {});
std::string FromClipboard();
std::string OwnFromClipboard();

}  // namespace wx
