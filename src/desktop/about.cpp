// SPDX-License-Identifier: MIT
#include "desktop/about.h"

#include <wx/aboutdlg.h>
#include <wx/bmpbndl.h>

#include "desktop/version.h"
#include "workbench/text_numbers.h"
#include "wx/convert.h"
#include "wx/pictures.h"

namespace desktop {

namespace {

constexpr const char* kLicences =
    "OrvanaStudio formula editor: MIT licence\n"
    "wxWidgets: wxWindows Library Licence 3.1\n"
    "GTK 3, GLib: GNU LGPL 2.1 or later\n"
    "Scintilla, Lexilla: Historical Permission Notice and Disclaimer\n"
    "JSON for Modern C++: MIT licence\n"
    "CLI11: BSD 3-clause licence\n"
    "libstdc++: GNU GPL 3 with the runtime library exception";

}  // namespace

wxIconBundle ProgramIcons() {
  wxIconBundle icons;
  for (const int size : {16, 32, 48, 64, 128}) {
    wxIcon icon;
    icon.CopyFromBitmap(wx::Picture("program", size).GetBitmap(wxSize(size, size)));
    icons.AddIcon(icon);
  }
  return icons;
}

void ShowAboutBox(wxWindow* parent, const texts::TextTable& texts) {
  wxAboutDialogInfo info;
  info.SetName(wx::ToWx(texts.Text(workbench::kTextProduct)));
  info.SetVersion(kVersion,
                  wx::ToWx(texts.Text(workbench::kTextAboutVersion, {{"<Version>", kVersion}})));
  info.SetDescription(wx::ToWx(texts.Text(workbench::kTextAboutDescription)));
  info.SetLicence(kLicences);
  wxIcon icon;
  icon.CopyFromBitmap(wx::Picture("program", 64).GetBitmap(wxSize(64, 64)));
  info.SetIcon(icon);
  wxAboutBox(info, parent);
}

}  // namespace desktop
