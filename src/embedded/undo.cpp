// SPDX-License-Identifier: MIT
#include "embedded/undo.h"

#include <utility>

#include "history/undo.h"

namespace embedded {

Undo::Undo(const texts::TextTable& texts, com::HostDatabase& database,
           std::function<editor::frmtabgrid*()> editor, platform::AddIn& studio)
    : database_(database),
      texts_(texts),
      editor_(std::move(editor)),
      studio_(studio),
      steps_({files::RealFileSystem(), texts, database.unit(),
              [this] { return database_.history(); }, editor_,
              // Files that the environment does not have open are not ours to write.
              [this](editor::frmtabgrid& window) {
                return history::UndoRedo({files::RealFileSystem(), *database_.history(),
                                          window.operations(), &window.cVBF.context(), nullptr});
              },
              [this]() -> platform::AddIn& { return studio_; }}) {}

editor::UndoEntries::Entry Undo::Look(bool undo) {
  steps_.Look();
  return {steps_.Caption(undo), steps_.problem().empty() ? steps_.WhyNot(undo) : steps_.problem()};
}

void Undo::Run(bool undo) {
  editor::frmtabgrid* const window = editor_();
  if (!window) return;
  const studio::UndoSteps::Outcome outcome = steps_.Run(undo);
  if (outcome.end == studio::UndoSteps::End::kNothing) return;
  if (outcome.end == studio::UndoSteps::End::kDone) return studio_.ShowWarnings({{outcome.text}});
  window->messages().Warn(outcome.text, outcome.detail);
}

}  // namespace embedded
