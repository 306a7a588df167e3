// SPDX-License-Identifier: MIT
#include "helpwindow/help_page.h"

#include <wx/filesys.h>
#include <wx/fs_mem.h>
#include <wx/image.h>
#include <wx/settings.h>

#include "handbook/embedded_file.h"
#include "helpwindow/help_colours.h"
#include "wx/convert.h"

namespace helpwindow {

namespace {

constexpr const char* kPictureFolder = "help/";
constexpr std::string_view kDarkPicture = "-dark.png";  // ends the name of one for the dark look

wxString Colour(const wxColour& colour) { return colour.GetAsString(wxC2S_HTML_SYNTAX); }

// A picture without one for the dark look stays.
void UseDarkPictures(wxString& page) {
  for (const handbook::EmbeddedFile& file : handbook::EmbeddedFiles()) {
    if (!file.name.ends_with(kDarkPicture)) continue;
    const wxString dark = kPictureFolder + wx::ToWx(file.name);
    wxString light = dark;
    light.Replace(wx::ToWx(kDarkPicture), ".png");
    page.Replace(light, dark);
  }
}

}  // namespace

void ProvideHelpPictures() {
  static bool done = false;
  if (done) return;
  done = true;
  if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxImage::AddHandler(new wxPNGHandler);
  wxFileSystem::AddHandler(new wxMemoryFSHandler);
  for (const handbook::EmbeddedFile& file : handbook::EmbeddedFiles()) {
    if (!file.name.ends_with(".png")) continue;
    wxMemoryFSHandler::AddFileWithMimeType(kPictureFolder + wx::ToWx(file.name), file.bytes.data(),
                                           file.bytes.size(), "image/png");
  }
}

wxString HelpPage(std::string_view html) {
  const bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
  const HelpPalette& palette = dark ? kDarkHelp : kLightHelp;
  const wxString shade = palette.shade;
  wxString page = wx::ToWx(html);
  page.Replace(
      "<body>",
      wxString::Format("<body bgcolor=\"%s\" text=\"%s\" link=\"%s\">",
                       Colour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)),
                       Colour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT)), palette.link));
  page.Replace("<table>", "<table border=\"0\" cellspacing=\"2\" cellpadding=\"5\">");
  page.Replace("<th>", "<th align=\"left\" bgcolor=\"" + shade + "\">");
  page.Replace("<td>", "<td valign=\"top\">");
  page.Replace("<pre>",
               "<table width=\"100%\" cellpadding=\"8\" bgcolor=\"" + shade + "\"><tr><td><pre>");
  page.Replace("</pre>", "</pre></td></tr></table>");
  page.Replace("src=\"../", wxString("src=\"memory:") + kPictureFolder);
  if (dark) UseDarkPictures(page);
  return page;
}

std::string HelpDocument(std::string_view body) {
  return "<html><body>" + std::string(body) + "</body></html>";
}

}  // namespace helpwindow
