// SPDX-License-Identifier: MIT
#include "studio/undo_steps.h"

#include <utility>

#include "dialogs/dialog_context.h"
#include "files/error.h"
#include "messages/message.h"
#include "studio/formula_nodes.h"
#include "studio/undo_texts.h"

namespace studio {

namespace {

// Of a title: what a menu would take for the mark of a letter.
std::string ToLabel(const std::string& text) {
  std::string label;
  for (const char each : text) label.append(each == '&' ? 2 : 1, each);
  return label;
}

}  // namespace

bool UndoSteps::Look() {
  history::Recorder* const recorder = parts_.recorder();
  if (!recorder) return !std::exchange(looked_, true);
  const auto stamp = parts_.files.Stamp(recorder->file().path());
  if (std::exchange(looked_, true) && stamp == seen_) return false;
  seen_ = stamp;
  undo_.reset();
  redo_.reset();
  problem_.clear();
  editor::frmtabgrid* editor = parts_.editor();
  if (!editor) {
    looked_ = false;  // there will be one
    return true;
  }
  try {
    auto undo_redo = parts_.make(*editor);
    undo_ = undo_redo.NextUndo();
    redo_ = undo_redo.NextRedo();
  } catch (const files::Error& error) {
    problem_ = parts_.texts.Sentence(error);
  }
  return true;
}

std::string UndoSteps::Caption(bool undo) const {
  if (!WhyNot(undo).empty()) return Text(undo ? kTextUndoLast : kTextRedoLast);
  const messages::Message& title = (undo ? undo_ : redo_)->title;
  return parts_.texts.Text(undo ? kTextUndoOf : kTextRedoOf,
                           {{"<Title>", ToLabel(parts_.texts.Sentence(title))}});
}

std::string UndoSteps::WhyNot(bool undo) const {
  history::Recorder* const recorder = parts_.recorder();
  if (!recorder) return Text(kTextNoHistoryWithProvider);
  if (!recorder->on()) return Text(kTextHistoryIsOff);
  if (undo ? undo_.has_value() : redo_.has_value()) return {};
  return Text(undo ? kTextNothingToUndo : kTextNothingToRedo);
}

UndoSteps::Outcome UndoSteps::Run(bool undo, std::optional<std::uint64_t> number) {
  editor::frmtabgrid* editor = parts_.editor();
  if (!editor || parts_.unit.IsOpen()) return {};
  editor->VerifyAdds(editor->CurrentKey());
  history::Reverted reverted;
  try {
    const dialogs::BusyPointer busy(editor->context().services.toolkit);
    auto undo_redo = parts_.make(*editor);
    reverted = undo ? undo_redo.Undo(number) : undo_redo.Redo(number);
  } catch (const std::exception& error) {
    return {End::kUnreadable, Text(kTextHistoryUnreadable), parts_.texts.Sentence(error)};
  }
  return Tell(undo, reverted, *editor);
}

UndoSteps::Outcome UndoSteps::Tell(bool undo, const history::Reverted& reverted,
                                   editor::frmtabgrid& editor) const {
  const store::OperationResult& result = reverted.result;
  if (!result.success()) {
    return {End::kRefused, parts_.texts.Sentence(result.message),
            parts_.texts.Sentence(result.detail)};
  }
  FollowFormulas(editor, parts_.studio(), result.rows);
  editor.Reload();
  std::string text =
      parts_.texts.Text(undo ? kTextUndone : kTextRedone,
                        {{"<Title>", parts_.texts.Sentence(reverted.operation.title)}});
  for (const messages::Message& warning : result.warnings)
    text += "  ·  " + parts_.texts.Sentence(warning);
  return {End::kDone, text, {}};
}

}  // namespace studio
