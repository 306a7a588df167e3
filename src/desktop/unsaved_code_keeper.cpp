// SPDX-License-Identifier: MIT
#include "desktop/unsaved_code_keeper.h"

#include "files/error.h"
#include "studio/window_texts.h"
#include "wx/convert.h"

namespace desktop {

UnsavedCodeKeeper::UnsavedCodeKeeper(const WindowParts& parts, const WindowMessages& messages,
                                     CodePane& pane, CodeLookup& lookup, const std::string& project)
    : parts_(parts),
      messages_(messages),
      pane_(pane),
      lookup_(lookup),
      copies_(parts.files, parts.state.FolderOf("unsaved", project)) {
  pane_.KeepCopiesIn(&copies_);
}

void UnsavedCodeKeeper::Offer() try {
  const auto left = copies_.FindLeft();
  if (!left) return;
  const auto answer = parts_.toolkit.Show(
      {parts_.texts.Text(studio::kTextUnsavedLeft,
                         {{"<Name>", parts_.files.FileName(left->module)}}),
       parts_.Text(studio::kTextUnsavedLeftDetail), "", platform::MessageButtons::kYesNoCancel,
       platform::MessageResult::kYes, platform::MessageIcon::kQuestion,
       parts_.Text(studio::kTextBringBack), parts_.Text(studio::kTextDiscardCode)});
  if (answer == platform::MessageResult::kCancel) return;
  if (answer == platform::MessageResult::kNo) return copies_.RemoveLeft();
  if (lookup_.ShowFile(left->module)) {
    if (pane_.BringBack(*left)) copies_.RemoveLeft();
    return;
  }
  wx::ToClipboard(left->text);
  messages_.Fail(parts_.texts.Text(studio::kTextModuleGone, {{"<File>", left->module}}), "");
} catch (const files::Error& error) {
  messages_.Status(
      parts_.texts.Text(studio::kTextNoUnsavedCopy, {{"<Text>", parts_.texts.Sentence(error)}}));
}

}  // namespace desktop
