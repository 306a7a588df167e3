// SPDX-License-Identifier: MIT
#include "vbcode/program.h"

#include <algorithm>
#include <utility>

#include "vbcode/module_reader.h"
#include "vbcode/resolver.h"
#include "vbcode/source_lexer.h"

namespace vbcode {

namespace {

// Whether the name of the declaration is one of the module's own.
bool IsMember(const Declaration& declaration) {
  switch (declaration.kind) {
    case DeclarationKind::kVariable:
    case DeclarationKind::kConstant:
    case DeclarationKind::kSub:
    case DeclarationKind::kFunction:
    case DeclarationKind::kProperty:
    case DeclarationKind::kExternal:
    case DeclarationKind::kEvent:
    case DeclarationKind::kEnum:
    case DeclarationKind::kEnumMember:
      return true;
    default:
      return false;
  }
}

UseKind KindOf(Effect effect) {
  if ((effect & kUndecided) != 0) return UseKind::kUnknown;
  if ((effect & kCalls) != 0) return UseKind::kCall;
  if ((effect & kWrites) == 0) return UseKind::kRead;
  return (effect & kReads) != 0 ? UseKind::kBoth : UseKind::kWrite;
}

}  // namespace

Program::Program(std::vector<ModuleSource> modules) { Add(std::move(modules)); }

void Program::Add(std::vector<ModuleSource> modules) {
  modules_.reserve(modules_.size() + modules.size());
  for (ModuleSource& source : modules) {
    Module module;
    std::string text = std::move(source.text);
    module.source = std::move(source);
    module.name = names_.Intern(module.source.name);
    if (!module.source.project.empty()) module.project = names_.Intern(module.source.project);
    Read(module, std::move(text));
    modules_.push_back(std::move(module));
  }
  PutTogether();
}

void Program::Replace(std::int32_t module, std::string text) {
  Read(modules_[Index(module)], std::move(text));
  PutTogether();
}

void Program::Read(Module& module, std::string text) {
  module.lines = std::make_unique<TextLines>(std::move(text));
  module.code = ReadModule(*module.lines, names_);
}

void Program::PutTogether() {
  declaration_count_ = 0;
  std::uint32_t references = 0;
  for (Module& module : modules_) {
    module.first_declaration = declaration_count_;
    module.first_reference = references;
    declaration_count_ += static_cast<std::int32_t>(module.code.declarations.size());
    references += static_cast<std::uint32_t>(module.code.references.size());
  }
  ListMembers();
  Resolver(*this).Run();
  ListReferences();
}

void Program::ListMembers() {
  members_.clear();
  types_.clear();
  parts_.clear();
  for (std::int32_t m = 0; m < ModuleCount(); ++m) {
    const Module& owner = module(m);
    std::int32_t block = kNone;
    for (std::int32_t i = 0; Index(i) < owner.code.declarations.size(); ++i) {
      const Declaration& declaration = owner.code.declarations[Index(i)];
      const std::int32_t number = owner.first_declaration + i;
      if (IsMember(declaration)) members_.push_back({m, declaration.name, number});
      if (declaration.kind == DeclarationKind::kEnum ||
          declaration.kind == DeclarationKind::kType) {
        types_.push_back({m, declaration.name, number});
        block = number;
      } else if (declaration.kind == DeclarationKind::kEnumMember ||
                 declaration.kind == DeclarationKind::kTypeMember) {
        parts_.push_back({block, declaration.name, number});
      }
    }
  }
  std::sort(members_.begin(), members_.end());
  std::sort(types_.begin(), types_.end());
  std::sort(parts_.begin(), parts_.end());
}

void Program::ListReferences() {
  begins_.assign(names_.size() + 1, 0);
  for (const Module& owner : modules_) {
    for (const Reference& reference : owner.code.references) ++begins_[reference.name + 1];
  }
  for (std::size_t i = 1; i < begins_.size(); ++i) begins_[i] += begins_[i - 1];
  by_name_.resize(begins_.back());
  std::vector<std::uint32_t> next(begins_.begin(), begins_.end() - 1);
  std::uint32_t number = 0;
  for (const Module& owner : modules_) {
    for (const Reference& reference : owner.code.references) {
      by_name_[next[reference.name]++] = number++;
    }
  }
}

std::int32_t Program::FindModule(std::string_view name, std::string_view project) const {
  const NameId id = names_.Find(name);
  const NameId project_id = names_.Find(project);
  for (std::int32_t m = 0; m < ModuleCount() && id != kNoName; ++m) {
    if (module(m).name == id && (project.empty() || module(m).project == project_id)) return m;
  }
  return kNone;
}

std::int32_t Program::FindKey(const std::vector<MemberKey>& keys, std::int32_t owner,
                              NameId name) const {
  const auto found = std::lower_bound(keys.begin(), keys.end(), MemberKey{owner, name, kNone});
  return found != keys.end() && found->owner == owner && found->name == name ? found->declaration
                                                                             : kNone;
}

std::int32_t Program::FindMember(std::int32_t module, NameId name) const {
  return FindKey(members_, module, name);
}

std::int32_t Program::FindMember(std::int32_t module, std::string_view name) const {
  const NameId id = names_.Find(name);
  return id == kNoName ? kNone : FindMember(module, id);
}

std::int32_t Program::FindPart(std::int32_t declaration, NameId name) const {
  return FindKey(parts_, declaration, name);
}

std::span<const Program::MemberKey> Program::MembersLike(std::int32_t number) const {
  const MemberKey first = {PlaceOf(number).module, declaration(number).name, kNone};
  const MemberKey behind = {first.owner, first.name + 1, kNone};
  const auto begin = std::lower_bound(members_.begin(), members_.end(), first);
  return {begin, std::lower_bound(begin, members_.end(), behind)};
}

std::vector<std::int32_t> Program::SameMember(std::int32_t number) const {
  std::vector<std::int32_t> same;
  for (const MemberKey& key : MembersLike(number)) same.push_back(key.declaration);
  return same;
}

std::int32_t Program::FindProcedure(std::int32_t index, std::string_view name) const {
  const std::int32_t member = FindMember(index, name);
  if (member == kNone) return kNone;
  for (const std::int32_t same : SameMember(member)) {
    const Declaration& declaration =
        module(index).code.declarations[Index(same - module(index).first_declaration)];
    if (declaration.procedure != kNone) return declaration.procedure;
  }
  return kNone;
}

std::int32_t Program::ProcedureOfLine(std::int32_t index, std::int32_t line) const {
  const auto& procedures = module(index).code.procedures;
  const auto behind = std::upper_bound(
      procedures.begin(), procedures.end(), line,
      [](std::int32_t wanted, const Procedure& p) { return wanted < p.first_line; });
  if (behind == procedures.begin() || line > (behind - 1)->last_line) return kNone;
  return static_cast<std::int32_t>(behind - procedures.begin()) - 1;
}

bool Program::HasStatements(std::int32_t index, std::int32_t number) const {
  const TextLines& lines = *module(index).lines;
  const Procedure& procedure = module(index).code.procedures[Index(number)];
  const std::int32_t end = std::min(procedure.last_line, lines.LineCount());
  // All of it on one line.
  if (procedure.first_line == end) return true;
  const auto last_line_of = [&](std::int32_t line, bool& has_code) {
    Lexer lexer(lines, kNoLeadBytes, line);
    has_code = lexer.Next().kind != TokenKind::kEnd;
    while (lexer.Next().kind != TokenKind::kEnd) {
    }
    return lexer.last_line();
  };
  bool has_code = false;
  for (std::int32_t line = last_line_of(procedure.first_line, has_code) + 1; line < end; ++line) {
    line = last_line_of(line, has_code);
    if (has_code) return true;
  }
  return false;
}

std::int32_t Program::FindReference(std::int32_t index, std::int32_t line,
                                    std::int32_t column) const {
  const Module& owner = module(index);
  if (line < 1 || line > owner.lines->LineCount()) return kNone;
  ColumnCounter columns;
  const std::size_t byte = columns.ByteOf(owner.lines->Line(line), column - 1);
  const auto& references = owner.code.references;
  // What CallByName takes as a text comes behind its call, and so do all others.
  const auto behind =
      std::upper_bound(references.begin(), references.end(), std::pair(line, byte),
                       [](const auto& wanted, const Reference& r) {
                         return wanted < std::pair<std::int32_t, std::size_t>(r.line, r.column);
                       });
  if (behind == references.begin()) return kNone;
  const Reference& found = *(behind - 1);
  const std::size_t end = found.column + Text(found.name).size();
  if (found.line != line || byte > end) return kNone;
  return static_cast<std::int32_t>(behind - references.begin()) - 1;
}

Program::DeclarationPlace Program::PlaceOf(std::int32_t number) const {
  const auto behind = std::upper_bound(
      modules_.begin(), modules_.end(), number,
      [](std::int32_t wanted, const Module& m) { return wanted < m.first_declaration; });
  const auto found = behind - 1;
  return {static_cast<std::int32_t>(found - modules_.begin()), number - found->first_declaration};
}

const Declaration& Program::declaration(std::int32_t number) const {
  const DeclarationPlace place = PlaceOf(number);
  return module(place.module).code.declarations[Index(place.index)];
}

Use Program::MakeUse(std::int32_t index, std::int32_t number, ColumnCounter& columns) const {
  const Module& owner = module(index);
  const Reference& reference = owner.code.references[Index(number)];
  const Meaning& meaning = owner.meanings[Index(number)];
  const std::string_view line = owner.lines->Line(reference.line);
  Use use;
  use.module = index;
  use.line = reference.line;
  use.column = columns.CharactersBefore(line, reference.column) + 1;
  use.length = CountCharacters(line.substr(reference.column, Text(reference.name).size()));
  use.procedure = ProcedureOfLine(index, reference.line);
  use.kind = KindOf(meaning.effect);
  switch (meaning.sureness) {
    case Sureness::kSure:
      use.binding = Binding::kMember;
      use.other_object = meaning.other_object;
      break;
    case Sureness::kUndeclared:
      use.binding = Binding::kUndeclared;
      break;
    default:
      use.binding = Binding::kUncertain;
      use.kind = UseKind::kUnknown;
  }
  return use;
}

std::vector<Program::ReferencePlace> Program::ReferencesNamed(NameId name) const {
  std::vector<ReferencePlace> places;
  if (name == kNoName || name + 1 >= begins_.size()) return places;
  std::int32_t m = 0;
  for (std::uint32_t i = begins_[name]; i < begins_[name + 1]; ++i) {
    // In the order of the modules, as their references are numbered.
    while (m + 1 < ModuleCount() && by_name_[i] >= module(m + 1).first_reference) ++m;
    places.push_back({m, static_cast<std::int32_t>(by_name_[i] - module(m).first_reference)});
  }
  return places;
}

std::vector<Program::ReferencePlace> Program::References(std::int32_t index, NameId name) const {
  std::vector<ReferencePlace> wanted;
  const std::int32_t member = FindMember(index, name);
  const bool open = member != kNone && module(index).source.kind == ModuleKind::kClass &&
                    declaration(member).scope != platform::MemberScope::kPrivate;
  for (const ReferencePlace& place : ReferencesNamed(name)) {
    const Meaning& meaning = module(place.module).meanings[Index(place.reference)];
    const bool is_member = member != kNone && meaning.declaration == member;
    switch (meaning.sureness) {
      case Sureness::kSure:
        if (is_member) wanted.push_back(place);
        break;
      case Sureness::kUndeclared:
        if (member == kNone && place.module == index) wanted.push_back(place);
        break;
      case Sureness::kDoubtful:
        if (is_member || place.module == index) wanted.push_back(place);
        break;
      case Sureness::kAnyMember:
        if (open) wanted.push_back(place);
        break;
      case Sureness::kForeign:
        break;
    }
  }
  return wanted;
}

std::vector<Use> Program::Uses(std::int32_t index, std::string_view name) const {
  std::vector<Use> uses;
  ColumnCounter columns;
  for (const ReferencePlace& place : References(index, names_.Find(name))) {
    uses.push_back(MakeUse(place.module, place.reference, columns));
  }
  return uses;
}

std::int32_t Program::FindType(std::int32_t module, NameId name) const {
  return FindKey(types_, module, name);
}

}  // namespace vbcode
