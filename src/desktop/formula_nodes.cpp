// SPDX-License-Identifier: MIT
#include "desktop/formula_nodes.h"

#include <algorithm>
#include <string>
#include <utility>

#include "editor/node_key.h"
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

void FollowFormulas(studio::AddInSession& session, const std::vector<store::RowChange>& rows) {
  editor::frmtabgrid& editor = *session.add_in().EditorWindow();
  studio::Studio& studio = session.studio();
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

}  // namespace desktop
