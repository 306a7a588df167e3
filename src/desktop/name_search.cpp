// SPDX-License-Identifier: MIT
#include "desktop/name_search.h"

#include <wx/utils.h>

#include <map>
#include <set>
#include <utility>

#include "desktop/crash_log.h"
#include "desktop/overview_texts.h"
#include "desktop/quick_open.h"
#include "editor/node_key.h"
#include "messages/text_number.h"
#include "platform/error.h"
#include "platform/text.h"
#include "wx/convert.h"

namespace desktop {

namespace {

using Kind = NameIndex::Kind;

}  // namespace

void NameSearch::Open() {
  if (!own_.session.add_in().EditorWindow()) return;
  RememberStep("go to name");
  NameIndex names;
  try {
    const wxBusyCursor busy;
    names = Collect();
  } catch (const platform::Error& error) {
    return own_.messages.Status(own_.parts.texts.Sentence(error));
  }
  std::optional<std::size_t> chosen;
  {
    QuickOpen dialog(&own_.window, own_.parts.texts, names);
    chosen = dialog.Ask();
  }
  if (chosen) GoTo(names.At(*chosen));
}

// An item that has an alias is found as that alias, whose detail it is; it stands here for itself
// only while it has none.
NameIndex NameSearch::Collect() const {
  store::Operations& operations = own_.session.add_in().EditorWindow()->operations();
  NameIndex names;
  std::map<std::string, std::int32_t> classes;
  operations.ForEachFormula([&](const store::FormulaRecord& formula) {
    const std::string comment = formula.comment.empty() ? "" : " – " + formula.comment;
    names.Add({Kind::kFormula, formula.id, formula.name, formula.prog_id + comment});
    ++classes[formula.prog_id];
  });
  for (const auto& [prog_id, count] : classes) {
    const messages::TextNumber text = count == 1 ? kTextOneFormula : kTextFormulas;
    names.Add({Kind::kClass, 0, prog_id,
               own_.parts.texts.Text(text, {{"<Count>", std::to_string(count)}})});
  }
  std::set<std::string, std::less<>> used;
  operations.ForEachAlias([&](const store::AliasRecord& alias) {
    names.Add({Kind::kAlias, alias.id, alias.vb_alias, alias.item_id});
    used.insert(platform::FoldCase(alias.item_id));
  });
  const project::ItemCatalogue& items = own_.opened.items().Catalogue();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const project::ItemCatalogue::Item item = items.At(i);
    if (!used.contains(platform::FoldCase(item.name)))
      names.Add({Kind::kItem, 0, std::string(item.name), std::string(item.comment)});
  }
  return names;
}

void NameSearch::GoTo(const NameIndex::Name& name) {
  switch (name.kind) {
    case Kind::kFormula:
      return own_.select_node(editor::FormulaKey(name.id));
    case Kind::kClass:
      return own_.show_class(name.name);
    case Kind::kAlias:
      return GoToAlias(name.id);
    case Kind::kItem:
      own_.select_node(std::string(editor::kAliasesKey));
      return own_.messages.Status(
          own_.parts.texts.Text(kTextItemWithoutAlias, {{"<Item>", name.name}}));
  }
}

void NameSearch::GoToAlias(std::int32_t id) {
  own_.select_node(std::string(editor::kAliasesKey));
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  editor->CloseFind();
  editor->tdbA.SetFilter({});
  editor->tdbA.SetCurrentId(id);
  editor->tdbA.SetSelection({id});
}

}  // namespace desktop
