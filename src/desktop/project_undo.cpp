// SPDX-License-Identifier: MIT
#include "desktop/project_undo.h"
#include "studio/undo_texts.h"

namespace desktop {

ProjectUndo::ProjectUndo(const ProjectContext& own)
    : own_(own),
      steps_({own.parts.files, own.parts.texts, own.opened.unit(),
              [own] { return &own.opened.history(); },
              [own] { return own.session.add_in().EditorWindow(); },
              [own](editor::frmtabgrid& editor) {
                return own.opened.MakeUndoRedo(editor.operations(), editor.cVBF.context());
              },
              [own]() -> platform::AddIn& { return own.session.studio(); }}) {}

bool ProjectUndo::Look() {
  if (!steps_.Look()) return false;
  for (const messages::Message& problem : own_.opened.history().TakeProblems())
    own_.messages.Warn(own_.parts.Text(studio::kTextHistory), own_.parts.texts.Sentence(problem));
  if (!steps_.problem().empty()) own_.messages.Status(steps_.problem());
  return true;
}

void ProjectUndo::Run(bool undo, std::optional<std::uint64_t> number) {
  const studio::UndoSteps::Outcome outcome = steps_.Run(undo, number);
  switch (outcome.end) {
    case studio::UndoSteps::End::kNothing:
      return;
    case studio::UndoSteps::End::kRefused:
      return own_.messages.Warn(outcome.text, outcome.detail);
    case studio::UndoSteps::End::kUnreadable:
      return own_.messages.Fail(outcome.text, outcome.detail);
    case studio::UndoSteps::End::kDone:
      if (on_done) on_done();
      own_.messages.Status(outcome.text);
  }
}

}  // namespace desktop
