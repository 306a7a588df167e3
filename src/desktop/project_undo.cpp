// SPDX-License-Identifier: MIT
#include "desktop/project_undo.h"

#include <wx/utils.h>

#include <utility>

#include "desktop/formula_nodes.h"
#include "desktop/undo_texts.h"
#include "files/error.h"
#include "messages/message.h"

namespace desktop {

bool ProjectUndo::Look() {
  const auto stamp = parts_.files.Stamp(project_.history().file().path());
  if (std::exchange(looked_, true) && stamp == seen_) return false;
  seen_ = stamp;
  next_ = {};
  ShowProblems();
  editor::frmtabgrid* editor = session_.add_in().EditorWindow();
  if (!editor) {
    looked_ = false;  // there will be one
    return true;
  }
  try {
    auto undo_redo = project_.MakeUndoRedo(editor->operations(), editor->cVBF.context());
    next_.undo = undo_redo.NextUndo();
    next_.redo = undo_redo.NextRedo();
  } catch (const files::Error& error) {
    messages_.Status(parts_.texts.Sentence(error));
  }
  return true;
}

void ProjectUndo::Run(bool undo, std::optional<std::uint64_t> number) {
  editor::frmtabgrid* editor = session_.add_in().EditorWindow();
  if (!editor || project_.unit().IsOpen()) return;
  editor->VerifyAdds(editor->CurrentKey());
  history::Reverted reverted;
  try {
    const wxBusyCursor busy;
    auto undo_redo = project_.MakeUndoRedo(editor->operations(), editor->cVBF.context());
    reverted = undo ? undo_redo.Undo(number) : undo_redo.Redo(number);
  } catch (const std::exception& error) {
    return messages_.Fail(parts_.Text(kTextHistoryUnreadable), parts_.texts.Sentence(error));
  }
  const store::OperationResult& result = reverted.result;
  if (!result.success()) {
    return messages_.Warn(parts_.texts.Sentence(result.message),
                          parts_.texts.Sentence(result.detail));
  }
  FollowFormulas(session_, result.rows);
  editor->Reload();
  if (on_done) on_done();
  std::string text =
      parts_.texts.Text(undo ? kTextUndone : kTextRedone,
                        {{"<Title>", parts_.texts.Sentence(reverted.operation.title)}});
  for (const messages::Message& warning : result.warnings)
    text += "  ·  " + parts_.texts.Sentence(warning);
  messages_.Status(text);
}

void ProjectUndo::ShowProblems() {
  for (const messages::Message& problem : project_.history().TakeProblems())
    messages_.Warn(parts_.Text(kTextHistory), parts_.texts.Sentence(problem));
}

}  // namespace desktop
