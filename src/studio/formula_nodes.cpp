// SPDX-License-Identifier: MIT
#include "studio/formula_nodes.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "editor/node_key.h"
#include "store/project_rows.h"

namespace studio {

namespace {

// The ID of a formula's row; 0 for a row of another table.
std::int32_t FormulaOf(const store::RowChange& change) {
  if (change.table != store::kFormulasTable) return 0;
  const auto id =
      std::ranges::find(change.members, "ID", &std::pair<std::string, platform::Variant>::first);
  return id == change.members.end() ? 0 : id->second.ToLong();
}

}  // namespace

void FollowFormulas(editor::frmtabgrid& editor, platform::AddIn& studio,
                    const std::vector<store::RowChange>& rows) {
  std::string selected = editor.CurrentKey();
  const std::vector<std::string> keys = studio.ChildKeys(editor::kFormulasKey, 1);
  std::unordered_set<std::string> shown(keys.begin(), keys.end());
  for (const store::RowChange& row : rows) {
    const std::int32_t id = FormulaOf(row);
    if (id == 0) continue;
    const std::string key = editor::FormulaKey(id);
    const auto formula = editor.operations().FindFormula(id);
    if (!formula) {
      if (selected == key) selected = editor::Neighbour(studio, key);
      if (selected != editor.CurrentKey()) studio.SelectNode(selected);
      studio.RemoveNode(key);
      shown.erase(key);
    } else if (!shown.insert(key).second) {
      studio.SetNodeText(key, formula->name);
    } else {
      studio.AddNode(editor::kFormulasKey, formula->name, key, "", editor::KeyIcon(key),
                     {0, 0, 0, 0});
      selected = key;
    }
  }
  if (selected != editor.CurrentKey()) studio.SelectNode(selected);
  const std::string text = studio.NodeInformation(selected, platform::kNodeInformationText);
  if (text.empty()) return;
  if (selected == editor.CurrentKey()) {
    editor.MakeMyCaption(selected, text);
  } else {
    editor.ShowNode(selected, text);
  }
}

}  // namespace studio
