// SPDX-License-Identifier: MIT
#include "desktop/code_conflict.h"

#include <wx/filedlg.h>

#include "desktop/text_dialog.h"
#include "files/replace_file.h"
#include "messages/text_number.h"
#include "project/line_diff.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr messages::TextNumber kTextTitle{4400};
constexpr messages::TextNumber kTextLines{4401};
constexpr messages::TextNumber kTextKeepCopy{4402};
constexpr messages::TextNumber kTextCopyTitle{4403};
constexpr messages::TextNumber kTextCopyFilter{4404};
constexpr messages::TextNumber kTextCopyKept{4405};
constexpr messages::TextNumber kTextCopyNotKept{4406};

constexpr messages::TextNumber kCancelText{11};

}  // namespace

CodePane::Conflict CodeConflict::Ask(const CodePane::Versions& versions,
                                     const std::string& folder) const {
  const std::string heading =
      parts_.texts.Text(studio::kTextCodeConflict, {{"<Name>", versions.module}}) + "\n" +
      parts_.Text(studio::kTextCodeConflictDetail);
  TextDialog dialog(&window_, parts_.texts, parts_.Text(kTextTitle), heading, Compare(versions));
  dialog.AddButton(wxID_YES, parts_.Text(studio::kTextLoadFile));
  dialog.AddButton(wxID_NO, parts_.Text(studio::kTextOverwrite));
  dialog.AddButton(wxID_SAVEAS, parts_.Text(kTextKeepCopy));
  wxButton* cancel = dialog.AddButton(wxID_CANCEL, parts_.Text(kCancelText));
  switch (dialog.Ask(cancel)) {
    case wxID_YES:
      return CodePane::Conflict::kTheirs;
    case wxID_NO:
      return CodePane::Conflict::kMine;
    case wxID_SAVEAS:
      return KeepCopy(versions, folder) ? CodePane::Conflict::kTheirs
                                        : CodePane::Conflict::kUndecided;
    default:
      return CodePane::Conflict::kUndecided;
  }
}

// Place by place: what the file has there, then what the user has.
std::string CodeConflict::Compare(const CodePane::Versions& versions) const {
  const project::Lines file = project::EditorLines(versions.theirs);
  const project::Lines own = project::EditorLines(versions.mine);
  std::string text;
  for (const project::LineChange& change : project::LineChanges(file, own)) {
    text += parts_.texts.Text(kTextLines, {{"<Line>", std::to_string(change.first + 1)}}) + "\n";
    for (std::size_t i = 0; i < change.count; ++i)
      text += "- " + std::string(file[change.first + i]) + "\n";
    for (const std::string_view line : change.lines) text += "+ " + std::string(line) + "\n";
  }
  return text;
}

bool CodeConflict::KeepCopy(const CodePane::Versions& versions, const std::string& folder) const {
  wxFileDialog dialog(&window_, wx::ToWx(parts_.Text(kTextCopyTitle)), wx::ToWx(folder),
                      wx::ToWx(versions.module + ".txt"), wx::ToWx(parts_.Text(kTextCopyFilter)),
                      wxFD_SAVE);
  if (dialog.ShowModal() != wxID_OK) return false;
  const std::string path = wx::FromWx(dialog.GetPath());
  try {
    files::MakeFile(parts_.files, path, versions.mine);
    messages_.Status(parts_.texts.Text(kTextCopyKept, {{"<File>", path}}));
    return true;
  } catch (const std::exception& error) {
    messages_.Fail(parts_.Text(kTextCopyNotKept), parts_.texts.Sentence(error));
    return false;
  }
}

}  // namespace desktop
