// SPDX-License-Identifier: MIT
#include "wx/pictures.h"

#include <wx/settings.h>

#include <span>
#include <string>

#include "platform/text.h"
#include "wx/convert.h"

namespace wx {

namespace {

// The body of an SVG picture of 16 by 16. FG, AC, RD and PP stand for the colours of text, accent,
// warning and paper; what stands in the tree has paper of its own, to be seen when it is selected.
struct Drawing {
  std::string_view name;
  std::string_view body;
};

constexpr Drawing kDrawings[] = {
    {"program",
     R"(<rect x="1" y="1" width="14" height="14" rx="3" fill="#1b66c9"/><path d="M11.4 3.7c-1.9-.6-2.8.3-3.2 2L6.9 11.4c-.4 1.5-1.3 2-2.7 1.5M5.4 7.3h5.2" stroke="#ffffff" stroke-width="1.5" stroke-linecap="round" fill="none"/>)"},
    {"icoForEditor",
     R"(<rect x="1.5" y="1.5" width="13" height="13" rx="2" fill="PP" stroke="FG"/><path d="M4 5.5h8M4 8.5h8M4 11.5h5" stroke="AC" fill="none"/>)"},
    {"icoForFunction",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M11.5 2.5c-2-.6-3 .4-3.4 2.2L6.2 12c-.4 1.6-1.4 2.2-2.9 1.6" stroke="AC" stroke-width="1.5" fill="none"/><path d="M5 7h6" stroke="FG" stroke-width="1.3" fill="none"/>)"},
    {"icoForAlias",
     R"(<path d="M2 3.5h6l6 5-6 5H2z" fill="PP" stroke="FG" stroke-linejoin="round"/><circle cx="5" cy="8.5" r="1.5" fill="AC"/>)"},
    {"new",
     R"(<path d="M3.5 1.5h6l3 3v10h-9z" fill="none" stroke="FG" stroke-linejoin="round"/><path d="M8 6v6M5 9h6" stroke="AC" stroke-width="1.6" fill="none"/>)"},
    {"edit",
     R"(<path d="M2.5 13.5l.8-3.3 7.6-7.6 2.5 2.5-7.6 7.6z" fill="none" stroke="FG" stroke-linejoin="round"/><path d="M9.3 4.2l2.5 2.5" stroke="AC" stroke-width="1.4"/>)"},
    {"delete",
     R"(<path d="M3.5 4.5h9M6 4V2.5h4V4M4.5 4.5l.6 9h5.8l.6-9" fill="none" stroke="FG" stroke-linejoin="round"/><path d="M6.8 7v4M9.2 7v4" stroke="RD" fill="none"/>)"},
    {"code",
     R"(<path d="M5.5 4L2 8l3.5 4M10.5 4L14 8l-3.5 4" fill="none" stroke="FG" stroke-width="1.3"/><path d="M9 3L7 13" stroke="AC" stroke-width="1.3" fill="none"/>)"},
    {"refresh",
     R"(<path d="M13 8a5 5 0 1 1-1.6-3.7" fill="none" stroke="FG" stroke-width="1.4"/><path d="M13.5 1.5v3.7H9.8z" fill="AC"/>)"},
    {"statistics",
     R"(<path d="M2 14.5h12.5" stroke="FG"/><path d="M3.5 9h2v4.5h-2zM7.2 5h2v8.5h-2zM10.9 2h2v11.5h-2z" fill="AC"/>)"},
    {"options",
     R"(<path d="M2 4.5h12M2 11.5h12" stroke="FG" stroke-width="1.3"/><circle cx="10.5" cy="4.5" r="2" fill="AC"/><circle cx="5.5" cy="11.5" r="2" fill="AC"/>)"},
    {"report",
     R"(<path d="M3.5 1.5h6l3 3v10h-9z" fill="none" stroke="FG" stroke-linejoin="round"/><path d="M5.5 7.5h5M5.5 9.5h5M5.5 11.5h3" stroke="AC" fill="none"/>)"},
    {"open",
     R"(<path d="M1.5 13.5v-10h4.6l1.4 2h7v8z" fill="none" stroke="FG" stroke-linejoin="round"/><path d="M3.5 8.5h9" stroke="AC" stroke-width="1.4"/>)"},
    {"save",
     R"(<path d="M2.5 2.5h9l2 2v9h-11z" fill="none" stroke="FG" stroke-linejoin="round"/><path d="M5 2.5v4h5v-4" fill="none" stroke="FG"/><path d="M5 10h6v3.5H5z" fill="AC"/>)"},
    {"find",
     R"(<circle cx="6.5" cy="6.5" r="4" fill="none" stroke="FG" stroke-width="1.4"/><path d="M9.5 9.5l4.5 4.5" stroke="AC" stroke-width="2"/>)"},
    {"back",
     R"(<path d="M13.5 8H3M7.5 3.5L3 8l4.5 4.5" fill="none" stroke="FG" stroke-width="1.6"/>)"},
    {"forward",
     R"(<path d="M2.5 8H13M8.5 3.5L13 8l-4.5 4.5" fill="none" stroke="FG" stroke-width="1.6"/>)"},
    {"help",
     R"(<circle cx="8" cy="8" r="6.5" fill="none" stroke="FG"/><path d="M6 6.3c0-2.6 4-2.6 4 0 0 1.4-2 1.6-2 3.2" fill="none" stroke="AC" stroke-width="1.4"/><circle cx="8" cy="11.7" r=".9" fill="AC"/>)"},
    {"PICCHOOSE",
     R"(<circle cx="3.5" cy="8" r="1.3" fill="FG"/><circle cx="8" cy="8" r="1.3" fill="FG"/><circle cx="12.5" cy="8" r="1.3" fill="FG"/>)"},
    {"PICON",
     R"(<rect x="2.5" y="2.5" width="11" height="11" rx="2" fill="none" stroke="FG"/><path d="M5 8.2l2.2 2.3L11.2 5.5" fill="none" stroke="AC" stroke-width="1.6"/>)"},
    {"PICOFF", R"(<rect x="2.5" y="2.5" width="11" height="11" rx="2" fill="none" stroke="FG"/>)"},
};

// Start, cycle or end with an arrow before or behind it, a change, a clock.
constexpr Drawing kCallTypes[] = {
    {"icoForClass",
     R"(<rect x="1.5" y="2.5" width="13" height="11" rx="1.5" fill="PP" stroke="FG"/><path d="M1.5 6h13" stroke="FG"/><path d="M4 8.8h5M4 11h7" stroke="AC" fill="none"/>)"},
    {"callType0",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M.8 5.5v5L4 8z" fill="AC"/><path d="M8.3 5a4 4 0 1 0 4.4 0M10.5 3v4.5" stroke="FG" stroke-width="1.4" fill="none"/>)"},
    {"callType1",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M12 5.5v5l3.2-2.5z" fill="AC"/><path d="M3.3 5a4 4 0 1 0 4.4 0M5.5 3v4.5" stroke="FG" stroke-width="1.4" fill="none"/>)"},
    {"callType2",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M.8 5.5v5L4 8z" fill="AC"/><path d="M14.2 8a3.9 3.9 0 1 1-1.3-2.9" fill="none" stroke="FG" stroke-width="1.4"/><path d="M14.6 2.6v3.6H11z" fill="FG"/>)"},
    {"callType3",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M12 5.5v5l3.2-2.5z" fill="AC"/><path d="M9.2 8a3.9 3.9 0 1 1-1.3-2.9" fill="none" stroke="FG" stroke-width="1.4"/><path d="M9.6 2.6v3.6H6z" fill="FG"/>)"},
    {"callType4",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M.8 5.5v5L4 8z" fill="AC"/><rect x="6.7" y="4.2" width="7.6" height="7.6" fill="PP" stroke="FG" stroke-width="1.4"/>)"},
    {"callType5",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M12 5.5v5l3.2-2.5z" fill="AC"/><rect x="1.7" y="4.2" width="7.6" height="7.6" fill="PP" stroke="FG" stroke-width="1.4"/>)"},
    {"callType6",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><path d="M1.5 11.5h4v-7h5v7h4" fill="none" stroke="FG" stroke-width="1.4"/><path d="M10.5 1l3 3-3 3z" fill="AC"/>)"},
    {"callType7",
     R"(<rect width="16" height="16" rx="3" fill="PP"/><circle cx="8" cy="8" r="6" fill="PP" stroke="FG" stroke-width="1.4"/><path d="M8 4.3V8l2.7 1.6" fill="none" stroke="AC" stroke-width="1.5"/>)"},
};

// Behind a drawing's name: crossed out.
constexpr std::string_view kDisabled = "Disabled";
constexpr const char* kStroke = R"(<path d="M2 14L14 2" stroke="RD" stroke-width="1.8"/>)";

void ReplaceAll(std::string& text, std::string_view what, std::string_view with) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
    text.replace(at, what.size(), with);
  }
}

std::string Svg(std::string_view body) {
  bool dark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
  std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)";
  svg.append(body).append("</svg>");
  ReplaceAll(svg, "FG", dark ? "#d8dce2" : "#3c434d");
  ReplaceAll(svg, "AC", dark ? "#6cb2ff" : "#1b66c9");
  ReplaceAll(svg, "PP", dark ? "none" : "#ffffff");
  ReplaceAll(svg, "RD", dark ? "#ff8a80" : "#c62828");
  return svg;
}

// "" for a name that does not exist.
std::string_view BodyOf(std::string_view name) {
  for (const std::span<const Drawing> drawings :
       {std::span<const Drawing>(kDrawings), {kCallTypes}}) {
    for (const Drawing& drawing : drawings) {
      if (platform::EqualsIgnoringCase(drawing.name, name)) return drawing.body;
    }
  }
  return {};
}

}  // namespace

wxBitmapBundle Picture(std::string_view name, int size) {
  const bool disabled = name.ends_with(kDisabled);
  if (disabled) name.remove_suffix(kDisabled.size());
  std::string body(BodyOf(name));
  if (body.empty()) return {};
  if (disabled) body += kStroke;
  return wxBitmapBundle::FromSVG(Svg(body).c_str(), wxSize(size, size));
}

wxIconBundle ProgramIcons() {
  wxIconBundle icons;
  for (const int size : {16, 32, 48, 64, 128}) {
    wxIcon icon;
    icon.CopyFromBitmap(Picture("program", size).GetBitmap(wxSize(size, size)));
    icons.AddIcon(icon);
  }
  return icons;
}

}  // namespace wx
