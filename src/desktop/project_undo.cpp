// SPDX-License-Identifier: MIT
#include "desktop/project_undo.h"
#include "studio/undo_texts.h"

namespace desktop {

ProjectUndo::ProjectUndo(const WindowParts& parts, const WindowMessages& messages,
                         project::Project& opened, studio::AddInSession& session)
    : parts_(parts),
      messages_(messages),
      project_(opened),
      steps_({parts.files, parts.texts, opened.unit(), [&opened] { return &opened.history(); },
              [&session] { return session.add_in().EditorWindow(); },
              [&opened](editor::frmtabgrid& editor) {
                return opened.MakeUndoRedo(editor.operations(), editor.cVBF.context());
              },
              [&session]() -> platform::AddIn& { return session.studio(); }}) {}

bool ProjectUndo::Look() {
  if (!steps_.Look()) return false;
  for (const messages::Message& problem : project_.history().TakeProblems())
    messages_.Warn(parts_.Text(studio::kTextHistory), parts_.texts.Sentence(problem));
  if (!steps_.problem().empty()) messages_.Status(steps_.problem());
  return true;
}

void ProjectUndo::Run(bool undo, std::optional<std::uint64_t> number) {
  const studio::UndoSteps::Outcome outcome = steps_.Run(undo, number);
  switch (outcome.end) {
    case studio::UndoSteps::End::kNothing:
      return;
    case studio::UndoSteps::End::kRefused:
      return messages_.Warn(outcome.text, outcome.detail);
    case studio::UndoSteps::End::kUnreadable:
      return messages_.Fail(outcome.text, outcome.detail);
    case studio::UndoSteps::End::kDone:
      if (on_done) on_done();
      messages_.Status(outcome.text);
  }
}

}  // namespace desktop
