// SPDX-License-Identifier: MIT
#include "desktop/several_at_once.h"

#include <unordered_set>

#include "dialogs/argument_dialogs.h"
#include "dialogs/list_texts.h"
#include "dialogs/outcome.h"
#include "editor/node_key.h"
#include "messages/text_number.h"
#include "platform/error.h"
#include "platform/text.h"
#include "studio/item_chooser.h"

namespace desktop {

namespace {

// Aliases as they are proposed for each item, no two of them the same.
std::vector<store::AliasValues> Proposed(store::Operations& operations,
                                         const std::vector<std::string>& items) {
  std::vector<store::AliasValues> values;
  std::unordered_set<std::string> taken;
  for (const std::string& item : items) {
    const std::string proposed = operations.ProposeAlias(item);
    std::string alias = proposed;
    for (int i = 2; taken.contains(platform::FoldCase(alias)) || operations.FindAliasByName(alias);
         ++i)
      alias = proposed + "_" + std::to_string(i);
    taken.insert(platform::FoldCase(alias));
    values.push_back({item, alias});
  }
  return values;
}

}  // namespace

void SeveralAtOnce::Add(const std::string& key, editor::frmtabgrid& editor,
                        project::Project& opened) const {
  editor.VerifyAdds(editor.CurrentKey());
  try {
    if (editor::IsFormulaKey(key)) return AddArguments(editor::KeyNumber(key), editor);
    if (editor::KeyKind(key) == editor::kAliasKind) return AddAliases(editor, opened);
    messages_.Status(parts_.Text(dialogs::kTextNeedsFormulaOrAliases));
  } catch (const platform::Error& error) {
    messages_.Status(parts_.texts.Sentence(error));
  }
}

void SeveralAtOnce::AddArguments(std::int32_t formula_id, editor::frmtabgrid& editor) const {
  const std::size_t added =
      dialogs::AddArguments(editor.dialog_context(), formula_id, editor.context().services.notes);
  if (added == 0) return;
  editor.Reload();
  Done(dialogs::kTextOneArgumentAdded, added);
}

void SeveralAtOnce::AddAliases(editor::frmtabgrid& editor, project::Project& opened) const {
  store::Operations& operations = editor.operations();
  studio::ItemChooser::Aliases aliases;
  operations.ForEachAlias([&](const store::AliasRecord& alias) {
    std::string& names = aliases[platform::FoldCase(alias.item_id)];
    names += (names.empty() ? "" : ", ") + alias.vb_alias;
  });
  project::ItemFile& items = opened.items();
  items.Refresh();
  studio::ItemChooser chooser(parts_.toolkit, parts_.texts, items.Catalogue(), items.path());
  const std::vector<std::string> chosen = chooser.ChooseSeveral(aliases, nullptr);
  if (chosen.empty()) return;
  const std::vector<store::AliasValues> values = Proposed(operations, chosen);
  const dialogs::DialogContext& context = editor.dialog_context();
  const store::OperationResult result =
      dialogs::RunOperation(context, [&] { return operations.AddAliases(values); });
  if (!result.success()) return dialogs::WarnFailure(context, result);
  editor.Reload();
  editor.CurrentGrid().SetCurrentId(result.id());
  Done(dialogs::kTextOneAliasAdded, values.size());
}

void SeveralAtOnce::Done(messages::TextNumber text_of_one, std::size_t count) const {
  messages_.Status(
      parts_.texts.Text(text_of_one + (count == 1 ? 0 : 1), {{"<Count>", std::to_string(count)}}));
}

}  // namespace desktop
