// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace helpwindow {

// Makes the pictures of the help known to HTML windows; does nothing the second time.
void ProvideHelpPictures();

// The page in the system's colours, light or dark, with the pictures where ProvideHelpPictures
// put them.
wxString HelpPage(std::string_view html);

// A page from its body.
std::string HelpDocument(std::string_view body);

}  // namespace helpwindow
