// SPDX-License-Identifier: MIT
#include "desktop/procedure_folds.h"

#include <wx/stc/stc.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "desktop/colours.h"

namespace desktop {

namespace {

constexpr int kWidth = 16;  // pixels at 100 %

struct Marker {
  int number;
  int look;
};
constexpr auto kMarkers = std::to_array<Marker>({
    {wxSTC_MARKNUM_FOLDEROPEN, wxSTC_MARK_BOXMINUS},
    {wxSTC_MARKNUM_FOLDER, wxSTC_MARK_BOXPLUS},
    {wxSTC_MARKNUM_FOLDERSUB, wxSTC_MARK_VLINE},
    {wxSTC_MARKNUM_FOLDERTAIL, wxSTC_MARK_LCORNER},
    // Procedures do not stand in each other.
    {wxSTC_MARKNUM_FOLDEREND, wxSTC_MARK_EMPTY},
    {wxSTC_MARKNUM_FOLDEROPENMID, wxSTC_MARK_EMPTY},
    {wxSTC_MARKNUM_FOLDERMIDTAIL, wxSTC_MARK_EMPTY},
});

}  // namespace

ProcedureFolds::ProcedureFolds(wxStyledTextCtrl& editor, int margin)
    : editor_(editor), margin_(margin) {
  editor_.SetMarginType(margin_, wxSTC_MARGIN_SYMBOL);
  editor_.SetMarginMask(margin_, static_cast<int>(wxSTC_MASK_FOLDERS));
  editor_.SetMarginSensitive(margin_, true);
  editor_.SetMarginWidth(margin_, 0);
  editor_.SetAutomaticFold(wxSTC_AUTOMATICFOLD_SHOW | wxSTC_AUTOMATICFOLD_CLICK |
                           wxSTC_AUTOMATICFOLD_CHANGE);
  editor_.SetFoldFlags(wxSTC_FOLDFLAG_LINEAFTER_CONTRACTED);
}

void ProcedureFolds::SetColours(const CodePalette& palette) {
  editor_.SetFoldMarginColour(true, wxColour(palette.paper));
  editor_.SetFoldMarginHiColour(true, wxColour(palette.paper));
  for (const Marker& marker : kMarkers) {
    editor_.MarkerDefine(marker.number, marker.look, wxColour(palette.paper),
                         wxColour(palette.fold));
    editor_.MarkerSetBackgroundSelected(marker.number, wxColour(palette.keyword));
  }
  editor_.MarkerEnableHighlight(true);
}

// A fold that is closed stays so as long as its first line is one.
void ProcedureFolds::Show(const std::vector<Lines>& procedures) {
  editor_.SetMarginWidth(margin_, procedures.empty() ? 0 : editor_.FromDIP(kWidth));
  const int lines = editor_.GetLineCount();
  auto procedure = procedures.begin();
  for (int line = 0; line < lines; ++line) {
    while (procedure != procedures.end() && procedure->last - 1 < line) ++procedure;
    int level = wxSTC_FOLDLEVELBASE;
    if (procedure != procedures.end() && line >= procedure->first - 1 &&
        procedure->first < procedure->last) {
      level = line == procedure->first - 1 ? wxSTC_FOLDLEVELBASE | wxSTC_FOLDLEVELHEADERFLAG
                                           : wxSTC_FOLDLEVELBASE + 1;
    }
    if (editor_.GetFoldLevel(line) != level) editor_.SetFoldLevel(line, level);
  }
}

void ProcedureFolds::Toggle() {
  const int line = editor_.GetCurrentLine();
  const int head = (editor_.GetFoldLevel(line) & wxSTC_FOLDLEVELHEADERFLAG) != 0
                       ? line
                       : editor_.GetFoldParent(line);
  if (head < 0) return;
  editor_.ToggleFold(head);
  if (!editor_.GetLineVisible(line)) editor_.GotoLine(head);
}

void ProcedureFolds::ToggleAll() {
  const int head = editor_.GetFoldParent(editor_.GetCurrentLine());
  editor_.FoldAll(wxSTC_FOLDACTION_TOGGLE);
  if (head >= 0 && !editor_.GetLineVisible(editor_.GetCurrentLine())) editor_.GotoLine(head);
  editor_.EnsureCaretVisible();
}

}  // namespace desktop
