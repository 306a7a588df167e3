// SPDX-License-Identifier: MIT
#include "desktop/project_undo.h"

#include <wx/utils.h>

#include <algorithm>
#include <utility>

#include "desktop/undo_texts.h"
#include "editor/node_key.h"
#include "files/error.h"
#include "messages/message.h"
#include "store/project_rows.h"

namespace desktop {

namespace {

// The ID of a formula's row; 0 for a row of another table.
std::int32_t FormulaOf(const store::RowChange& change) {
  if (change.table != store::kFormulasTable) return 0;
  const auto id =
      std::ranges::find(change.members, "ID", &std::pair<std::string, platform::Variant>::first);
  return id == change.members.end() ? 0 : id->second.ToLong();
}

// The node that is selected when the one of the key goes: the next one, else the previous one,
// else the folder.
std::string Neighbour(const studio::StudioTree& tree, const std::string& key) {
  const studio::StudioNode* node = tree.Find(key);
  if (!node || !node->parent) return std::string(editor::kFormulasKey);
  const auto& siblings = node->parent->children;
  const auto found = std::ranges::find(siblings, node);
  if (found + 1 != siblings.end()) return (*(found + 1))->key;
  return found != siblings.begin() ? (*(found - 1))->key : node->parent->key;
}

}  // namespace

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
  ShowFormulas(result.rows);
  editor->Reload();
  if (on_done) on_done();
  std::string text =
      parts_.texts.Text(undo ? kTextUndone : kTextRedone,
                        {{"<Title>", parts_.texts.Sentence(reverted.operation.title)}});
  for (const messages::Message& warning : result.warnings)
    text += "  ·  " + parts_.texts.Sentence(warning);
  messages_.Status(text);
}

// The nodes of formulas that came, went or have another name. A formula that came back is selected.
void ProjectUndo::ShowFormulas(const std::vector<store::RowChange>& rows) {
  editor::frmtabgrid& editor = *session_.add_in().EditorWindow();
  studio::Studio& studio = session_.studio();
  std::string selected = editor.CurrentKey();
  for (const store::RowChange& row : rows) {
    const std::int32_t id = FormulaOf(row);
    if (id == 0) continue;
    const std::string key = editor::FormulaKey(id);
    const auto formula = editor.operations().FindFormula(id);
    if (!formula) {
      if (selected == key) selected = Neighbour(studio.tree(), key);
      if (selected != editor.CurrentKey()) studio.SelectNode(selected);
      studio.RemoveNode(key);
    } else if (studio.tree().Find(key)) {
      studio.SetNodeText(key, formula->name);
    } else {
      studio.AddNode(editor::kFormulasKey, formula->name, key, "", editor::KeyIcon(key),
                     {0, 0, 0, 0});
      selected = key;
    }
  }
  const studio::StudioNode* node = studio.tree().Find(selected);
  if (!node) return;
  const std::string text = node->text;
  if (selected == editor.CurrentKey()) {
    editor.MakeMyCaption(selected, text);
  } else {
    studio.SelectNode(selected);
    editor.ShowNode(selected, text);
  }
}

void ProjectUndo::ShowProblems() {
  for (const messages::Message& problem : project_.history().TakeProblems())
    messages_.Warn(parts_.Text(kTextHistory), parts_.texts.Sentence(problem));
}

}  // namespace desktop
