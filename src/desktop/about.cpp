// SPDX-License-Identifier: MIT
#include "desktop/about.h"

#include <wx/aboutdlg.h>
#include <wx/bmpbndl.h>
#include <wx/platinfo.h>
#include <wx/stc/stc.h>
#include <wx/utils.h>
#include <wx/versioninfo.h>

#include "desktop/version.h"
#include "workbench/text_numbers.h"
#include "wx/convert.h"
#include "wx/pictures.h"

namespace desktop {

namespace {

// Name and version of a library that the program runs with.
wxString Named(const wxVersionInfo& library) {
  return wxString::Format("%s %d.%d.%d", library.GetName(), library.GetMajor(), library.GetMinor(),
                          library.GetMicro());
}

wxString NamedGtk() {
  const wxPlatformInfo& platform = wxPlatformInfo::Get();
  return wxString::Format("GTK %d.%d.%d", platform.GetToolkitMajorVersion(),
                          platform.GetToolkitMinorVersion(), platform.GetToolkitMicroVersion());
}

// The parts of both programs with their versions, where they tell them, and their licences.
wxString Licences() {
  wxString text = wxString("OrvanaStudio formula editor ") + kVersion + ": MIT licence\n";
  text += Named(wxGetLibraryVersionInfo()) + ": wxWindows Library Licence 3.1\n";
  text += NamedGtk() + ", GLib, Pango, Cairo: GNU LGPL 2.1 or later\n";
  text += Named(wxStyledTextCtrl::GetLibraryVersionInfo()) +
          ", Lexilla: Historical Permission Notice and Disclaimer\n";
  text += "NanoSVG: zlib licence\n";
  text += "libstdc++: GNU GPL 3 with the runtime library exception\n";
  text += "JSON for Modern C++ (command line): MIT licence\n";
  text += "CLI11 (command line): BSD 3-clause licence";
  return text;
}

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
  info.SetLicence(Licences());
  wxIcon icon;
  icon.CopyFromBitmap(wx::Picture("program", 64).GetBitmap(wxSize(64, 64)));
  info.SetIcon(icon);
  wxAboutBox(info, parent);
}

}  // namespace desktop
