// SPDX-License-Identifier: MIT
#include "editor/list_commands.h"

#include <algorithm>
#include <utility>

#include "dialogs/list_texts.h"
#include "dialogs/many_texts.h"
#include "editor/node_key.h"
#include "exchange/export_text.h"
#include "exchange/pasted_rows.h"
#include "messages/error.h"
#include "platform/prog_id.h"

namespace editor {

void ListCommands::Import(const dialogs::ListToImport& list) {
  view_.VerifyAdds(view_.CurrentKey());
  Show(dialogs::ImportList(context_.dialog_context, list));
}

void ListCommands::Duplicate(std::int32_t formula_id) {
  const exchange::CopySource source = SourceOf(formula_id);
  Show(dialogs::DuplicateFormula(context_.dialog_context, source));
}

exchange::CopySource ListCommands::SourceOf(std::int32_t formula_id) {
  exchange::CopySource source;
  source.formula = context_.operations.FindFormula(formula_id).value();
  source.arguments = context_.operations.ArgumentsOf(formula_id);
  source.code = context_.code.FunctionText(source.formula.prog_id, source.formula.name, false);
  return source;
}

std::vector<exchange::CopySource> ListCommands::SourcesOf(std::span<const std::int32_t> ids) {
  std::vector<exchange::CopySource> sources;
  for (const std::int32_t id : ids) {
    if (context_.operations.FindFormula(id)) sources.push_back(SourceOf(id));
  }
  return sources;
}

void ListCommands::CopyFormulas(std::span<const std::int32_t> ids) {
  const std::vector<exchange::CopySource> sources = SourcesOf(ids);
  if (sources.empty()) return;
  context_.services.toolkit.SetClipboard(exchange::FormulasAsLines(sources),
                                         exchange::FormulasAsJson(sources));
}

void ListCommands::CopyInto(std::span<const std::int32_t> ids, std::string_view prog_id) {
  dialogs::ListToImport list;
  list.contents = exchange::ReadList(exchange::FormulasAsJson(SourcesOf(ids)));
  const std::size_t count = list.contents.formulas.size();
  const std::string_view kept = list.contents.Keep(std::string(prog_id));
  for (exchange::FormulaRow& formula : list.contents.formulas) formula.prog_id = kept;
  list.title = {{dialogs::kTextCopyIntoTitle}, {{"<Count>", count}, {"<Class>", prog_id}}};
  list.name = context_.texts.Sentence(list.title);
  Import(list);
}

void ListCommands::AddArguments(std::span<const std::int32_t> alias_ids, std::int32_t formula_id) {
  const auto formula = context_.operations.FindFormula(formula_id);
  if (!formula) return;
  dialogs::ListToImport list;
  exchange::FormulaRow row;
  row.name = list.contents.Keep(formula->name);
  row.prog_id = list.contents.Keep(formula->prog_id);
  for (const std::int32_t id : alias_ids) {
    const auto alias = context_.operations.FindAlias(id);
    if (!alias) continue;
    exchange::ArgumentRow argument;
    argument.alias = list.contents.Keep(alias->vb_alias);
    row.arguments.push_back(argument);
  }
  list.title = {{dialogs::kTextAddArgumentsTitle},
                {{"<Count>", row.arguments.size()}, {"<Formula>", formula->name}}};
  list.name = context_.texts.Sentence(list.title);
  list.contents.formulas.push_back(std::move(row));
  Import(list);
}

void ListCommands::PasteFormulas() {
  dialogs::ListToImport list;
  list.name = context_.Text(dialogs::kTextClipboard);
  list.create_aliases = true;
  try {
    std::string copied = context_.services.toolkit.OwnClipboardText();
    if (copied.empty()) copied = context_.services.toolkit.ClipboardText();
    list.contents = exchange::ReadList(std::move(copied));
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
void ListCommands::Show(dialogs::ListChange change) {
  using enum dialogs::ListChange;
  if (change == kFormulas) context_.host.RebuildViews();
  if (change == kRows) view_.Reload();
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

void ListCommands::CopyAliases(const std::vector<std::int32_t>& ids, std::string_view text) {
  std::vector<store::AliasRecord> aliases;
  for (const std::int32_t id : ids) {
    if (auto alias = context_.operations.FindAlias(id)) aliases.push_back(std::move(*alias));
  }
  context_.services.toolkit.SetClipboard(text, exchange::AliasesAsJson(aliases));
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
  if (KeyKind(view_.CurrentKey()) == kAliasKind) {
    if (std::string own = context_.services.toolkit.OwnClipboardText(); !own.empty())
      text = std::move(own);
  }
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
