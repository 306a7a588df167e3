// SPDX-License-Identifier: MIT
#include "desktop/code_assistant.h"

#include <wx/stc/stc.h>

#include <algorithm>
#include <span>
#include <utility>

#include "desktop/code_editor.h"
#include "desktop/coding_texts.h"
#include "platform/error.h"
#include "platform/text.h"
#include "studio/catalogue_notes.h"
#include "vbcode/spelled_words.h"
#include "vbcode/unknown_names.h"
#include "wx/convert.h"

namespace desktop {

namespace {

using vbcode::kNone;
using Kind = vbcode::DeclarationKind;

constexpr int kQuietMs = 400;              // without typing, before the text is read
constexpr std::size_t kMostLookedUp = 30;  // unknown names that are looked for elsewhere

std::string Trimmed(std::string_view line) {
  const std::size_t begin = std::min(line.find_first_not_of(" \t"), line.size());
  return std::string(line.substr(begin));
}

bool IsPartOfAnother(Kind kind) {
  return kind == Kind::kTypeMember || kind == Kind::kLabel || kind == Kind::kRedim;
}

}  // namespace

CodeAssistant::CodeAssistant(const Dependencies& own) : own_(own) {
  CodeEditor& editor = own_.code.editor();
  editor.on_text = [this] {
    is_current_ = false;
    timer_.StartOnce(kQuietMs);
  };
  editor.on_complete = [this] { Complete(); };
  editor.on_describe = [this](int position) { return Describe(position); };
  timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
    if (!Read()) return;
    ShowProcedures();
    ShowUnknown();
  });
}

CodeAssistant::~CodeAssistant() {
  CodeEditor& editor = own_.code.editor();
  editor.on_text = editor.on_complete = nullptr;
  editor.on_describe = nullptr;
}

store::Operations* CodeAssistant::operations() const {
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  return editor ? &editor->operations() : nullptr;
}

// What other modules declare is read with the module, and again when another one is shown.
bool CodeAssistant::Read() {
  if (is_current_) return true;
  platform::VBComponent* component = own_.code.Component();
  platform::VBE* vbe = own_.opened.vb().get();
  if (!component || !vbe || !own_.code.Readable() || own_.opened.unit().IsOpen()) return false;
  try {
    const std::string file = component->FileName();
    if (std::exchange(file_, file) != file || !code_) {
      const std::string prog_id = own_.lookup.ProgIdOf(file);
      code_.emplace(*vbe).Load(std::span(&prog_id, 1));
      module_ = code_->FindClass(prog_id);
      looked_up_.clear();
    }
    if (module_ == kNone) return false;
    code_->ReplaceText(module_, own_.code.editor().Text());
    is_current_ = true;
    return true;
  } catch (const platform::Error&) {  // the pane says so
    code_.reset();
    return false;
  }
}

void CodeAssistant::ShowProcedures() {
  std::vector<ProcedureFolds::Lines> lines;
  for (const vbcode::Procedure& procedure : code_->program().module(module_).code.procedures)
    lines.push_back({procedure.first_line, procedure.last_line});
  own_.code.editor().ShowProcedures(lines);
}

// What another module declares for all is not unknown.
void CodeAssistant::ShowUnknown() {
  const auto find = [&] { return vbcode::FindUnknownNames(code_->program(), module_); };
  std::vector<vbcode::Place> places = find();
  const vbcode::TextLines& lines = *code_->program().module(module_).lines;
  std::vector<std::string> names;
  for (const vbcode::Place& place : places) {
    std::string name(lines.Line(place.line).substr(place.column, place.length));
    if (names.size() < kMostLookedUp && looked_up_.insert(platform::FoldCase(name)).second)
      names.push_back(std::move(name));
  }
  for (const std::string& name : names) code_->LoadHolders(name);
  own_.code.editor().MarkUnknown(names.empty() ? places : find());
}

// --- Completion ---

void CodeAssistant::Complete() {
  CodeEditor& editor = own_.code.editor();
  if (!Read()) return;
  const int caret = editor.GetCurrentPos();
  const int begin = editor.WordStartPosition(caret, true);
  // "Me" of "Me.Lev".
  std::string object;
  if (begin > 0 && editor.GetCharAt(begin - 1) == '.') {
    object = wx::FromWx(editor.GetTextRange(editor.WordStartPosition(begin - 1, true), begin - 1));
    if (object.empty()) object = ".";
  }
  std::vector<std::string> names = NamesHere(object);
  const std::string typed = platform::FoldCase(wx::FromWx(editor.GetTextRange(begin, caret)));
  std::erase_if(
      names, [&](const std::string& name) { return !platform::FoldCase(name).starts_with(typed); });
  if (names.empty()) return own_.messages.Status(own_.parts.Text(kTextNothingToComplete));
  const auto by_name = [](const std::string& name) { return platform::FoldCase(name); };
  std::ranges::sort(names, {}, by_name);
  names.erase(std::ranges::unique(names, {}, by_name).begin(), names.end());
  editor.Offer(names, caret - begin);
}

// `object`: what stands in front of the dot; empty when there is none.
std::vector<std::string> CodeAssistant::NamesHere(std::string_view object) {
  const vbcode::Program& program = code_->program();
  const std::int32_t line = own_.code.editor().GetCurrentLine() + 1;
  const std::int32_t here = program.ProcedureOfLine(module_, line);
  const bool me = platform::EqualsIgnoringCase(object, "me");
  std::vector<std::string> names;
  for (std::int32_t m = 0; m < program.ModuleCount(); ++m) {
    const vbcode::Program::Module& module = program.module(m);
    const bool own = m == module_;
    const bool named = platform::EqualsIgnoringCase(module.source.name, object);
    const bool global = module.source.kind == vbcode::ModuleKind::kStandard &&
                        module.project == program.module(module_).project;
    if (object.empty() ? !own && !global : !named && !(me && own)) continue;
    for (const vbcode::Declaration& declaration : module.code.declarations) {
      const bool is_procedure = vbcode::HasParameters(declaration.kind);
      const bool is_local = declaration.procedure != kNone && !is_procedure;
      if (IsPartOfAnother(declaration.kind)) continue;
      if (is_local && (!own || !object.empty() || declaration.procedure != here)) continue;
      if (!own && declaration.scope == platform::MemberScope::kPrivate) continue;
      names.emplace_back(program.Text(declaration.name));
    }
  }
  if (!object.empty()) return names;
  AddAliases(names, here);
  for (const std::string_view word : vbcode::kSpelledWords) names.emplace_back(word);
  return names;
}

std::optional<store::FormulaRecord> CodeAssistant::FormulaOf(std::int32_t procedure) {
  if (procedure == kNone || !operations()) return std::nullopt;
  const vbcode::Program& program = code_->program();
  const auto& code = program.module(module_).code;
  const std::int32_t declaration = code.procedures[vbcode::Index(procedure)].declaration;
  const std::string name(program.Text(code.declarations[vbcode::Index(declaration)].name));
  const std::string prog_id = code_->NameOf(module_);
  for (const store::FormulaRecord& formula : operations()->FindFormulasByName(name)) {
    if (platform::EqualsIgnoringCase(formula.prog_id, prog_id)) return formula;
  }
  return std::nullopt;
}

void CodeAssistant::AddAliases(std::vector<std::string>& names, std::int32_t procedure) {
  const auto formula = FormulaOf(procedure);
  if (!formula) return;
  for (const store::ArgumentRecord& argument : operations()->ArgumentsOf(formula->id))
    names.push_back(argument.vb_alias);
}

// --- What a name is ---

std::string CodeAssistant::Describe(int position) {
  CodeEditor& editor = own_.code.editor();
  const int begin = editor.WordStartPosition(position, true);
  const int end = editor.WordEndPosition(position, true);
  if (begin >= end || !Read()) return {};
  try {
    const std::string name = wx::FromWx(editor.GetTextRange(begin, end));
    const vbcode::Program& program = code_->program();
    const int row = editor.LineFromPosition(begin);
    const std::int32_t column = editor.CountCharacters(editor.PositionFromLine(row), begin) + 1;
    const std::int32_t reference = program.FindReference(module_, row + 1, column);
    vbcode::Meaning meaning;
    if (reference != kNone) meaning = program.module(module_).meanings[vbcode::Index(reference)];
    const std::int32_t procedure = program.ProcedureOfLine(module_, row + 1);
    std::string text;
    std::string line;
    bool is_variable = reference != kNone && meaning.sureness == vbcode::Sureness::kUndeclared;
    if (meaning.declaration != kNone) {
      const vbcode::Declaration& declaration = program.declaration(meaning.declaration);
      const std::int32_t owner = program.PlaceOf(meaning.declaration).module;
      line = Trimmed(program.module(owner).lines->Line(declaration.place.line));
      is_variable = owner == module_ && declaration.kind == Kind::kVariable;
    }
    if (is_variable) text = DescribeAlias(name, procedure);
    if (!text.empty()) return text;
    const auto is_here = [&](const vbcode::Place& place) {
      return place.line == row + 1 &&
             static_cast<int>(place.column) == begin - editor.PositionFromLine(row);
    };
    if (line.empty() && std::ranges::any_of(vbcode::FindUnknownNames(program, module_), is_here))
      return own_.parts.texts.Text(kTextUnknownName, {{"<Name>", name}});
    return line;
  } catch (const platform::Error&) {
    return {};
  }
}

std::string CodeAssistant::DescribeAlias(const std::string& name, std::int32_t procedure) {
  if (!operations()) return {};
  const auto alias = operations()->FindAliasByName(name);
  if (!alias) return {};
  studio::CatalogueNotes notes(own_.opened.items());
  const dialogs::ItemNote note = notes.NoteOf(alias->item_id);
  std::string text = alias->item_id;
  if (!note.type.empty()) text += ", " + note.type;
  if (!note.comment.empty()) text += "\n" + note.comment;
  const auto formula = FormulaOf(procedure);
  if (!formula) return text;
  for (const store::ArgumentRecord& argument : operations()->ArgumentsOf(formula->id)) {
    if (argument.alias_id != alias->id || !(argument.in || argument.out)) continue;
    text += "\n" + formula->name + ": ";
    if (argument.in) text += own_.parts.Text(kTextIsIn);
    if (argument.out) text += (argument.in ? ", " : "") + own_.parts.Text(kTextIsOut);
  }
  return text;
}

}  // namespace desktop
