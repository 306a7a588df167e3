// SPDX-License-Identifier: MIT
#include "editor/list_commands.h"

#include <algorithm>
#include <utility>

#include "dialogs/list_texts.h"
#include "editor/node_key.h"
#include "exchange/export_text.h"
#include "exchange/pasted_rows.h"
#include "messages/error.h"
#include "platform/prog_id.h"
#include "store/project_rows.h"

namespace editor {

void ListCommands::Import(const dialogs::ListToImport& list) {
  view_.VerifyAdds(view_.CurrentKey());
  if (const auto result = dialogs::ImportList(context_.dialog_context, list)) Show(*result);
}

void ListCommands::Duplicate(std::int32_t formula_id) {
  const exchange::CopySource source = SourceOf(formula_id);
  if (const auto result = dialogs::DuplicateFormula(context_.dialog_context, source)) Show(*result);
}

exchange::CopySource ListCommands::SourceOf(std::int32_t formula_id) {
  exchange::CopySource source;
  source.formula = context_.operations.FindFormula(formula_id).value();
  source.arguments = context_.operations.ArgumentsOf(formula_id);
  source.code = context_.code.FunctionText(source.formula.prog_id, source.formula.name, false);
  return source;
}

void ListCommands::CopyFormula(std::int32_t formula_id) {
  const exchange::CopySource source = SourceOf(formula_id);
  context_.services.toolkit.SetClipboardText(
      exchange::FormulaAsJson(source.formula, source.arguments, source.code));
}

void ListCommands::PasteFormulas() {
  dialogs::ListToImport list;
  list.name = context_.Text(dialogs::kTextClipboard);
  list.create_aliases = true;
  try {
    list.contents = exchange::ReadList(context_.services.toolkit.ClipboardText());
  } catch (const messages::Error& error) {
    return context_.messages.Warn(context_.Text(dialogs::kTextCannotPaste), error);
  }
  // A class that this project lacks is asked for.
  const std::vector<store::ClassEntry> classes = context_.operations.Classes().classes;
  for (exchange::FormulaRow& formula : list.contents.formulas) {
    const bool is_known = std::ranges::any_of(classes, [&](const store::ClassEntry& entry) {
      return platform::ProgId(entry.prog_id).IsNamed(formula.prog_id);
    });
    if (!is_known) formula.prog_id = {};
  }
  list.title = {{dialogs::kTextPasteTitle}, {{"<Count>", list.contents.formulas.size()}}};
  Import(list);
}

// The tree has the formulas.
void ListCommands::Show(const store::OperationResult& result) {
  const bool has_formulas = std::ranges::any_of(
      result.rows, [](const auto& row) { return row.table == store::kFormulasTable; });
  if (has_formulas) {
    context_.host.RebuildViews();
  } else {
    view_.Reload();
  }
}

std::string ListCommands::ArgumentLines(const std::vector<std::int32_t>& ids) {
  std::string lines;
  for (const std::int32_t id : ids) {
    const auto argument = context_.operations.FindArgument(id);
    if (!argument) continue;
    lines += argument->vb_alias + '\t' + platform::Variant(argument->in).ToText() + '\t' +
             platform::Variant(argument->out).ToText() + '\t' + argument->item_id + '\n';
  }
  return lines;
}

bool ListCommands::Paste(bool has_cell) {
  std::string text = context_.services.toolkit.ClipboardText();
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  const bool has_table =
      KeyKind(view_.CurrentKey()) == kAliasKind || IsFormulaKey(view_.CurrentKey());
  const bool is_value = text.find_first_of("\t\r\n") == std::string::npos;
  if (text.empty() || !has_table || (is_value && has_cell)) return false;
  dialogs::ListToImport list;
  list.name = context_.Text(dialogs::kTextClipboard);
  list.create_aliases = true;
  try {
    list.contents = ReadPasted(std::move(text));
  } catch (const messages::Error& error) {
    context_.messages.Warn(context_.Text(dialogs::kTextCannotPaste), error);
    return true;
  }
  list.title = {{dialogs::kTextPasteTitle},
                {{"<Count>", list.contents.aliases.size() + list.contents.formulas.size()}}};
  Import(list);
  return true;
}

// What the table holds that is shown.
exchange::Contents ListCommands::ReadPasted(std::string text) {
  if (KeyKind(view_.CurrentKey()) == kAliasKind) {
    return exchange::ReadPastedAliases(std::move(text));
  }
  const auto formula = context_.operations.FindFormula(KeyNumber(view_.CurrentKey()));
  if (!formula) return {};
  return exchange::ReadPastedArguments(std::move(text), formula->name, formula->prog_id);
}

}  // namespace editor
