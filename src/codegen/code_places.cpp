// SPDX-License-Identifier: MIT
#include "codegen/code_places.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

#include "codegen/code_texts.h"
#include "vbcode/columns.h"

namespace codegen {

namespace {

using vbcode::Index;
using vbcode::kNone;
using vbcode::Program;

std::string_view TextAt(const Program& program, std::int32_t module, const vbcode::Place& place) {
  return program.module(module).lines->Line(place.line).substr(place.column, place.length);
}

std::string ProcedureName(const Program& program, std::int32_t module, std::int32_t procedure) {
  if (procedure == kNone) return {};
  const vbcode::ModuleCode& code = program.module(module).code;
  const std::int32_t declaration = code.procedures[Index(procedure)].declaration;
  return std::string(TextAt(program, module, code.declarations[Index(declaration)].place));
}

vbcode::Use UseAt(const Program& program, std::int32_t module, const vbcode::Place& place) {
  const std::string_view line = program.module(module).lines->Line(place.line);
  vbcode::Use use;
  use.module = module;
  use.line = place.line;
  use.column = vbcode::CountCharacters(line.substr(0, place.column)) + 1;
  use.length = vbcode::CountCharacters(line.substr(place.column, place.length));
  use.procedure = program.ProcedureOfLine(module, place.line);
  return use;
}

// The declaration whose name stands at the place, numbered through all modules.
std::int32_t FindDeclaration(const Program& program, std::int32_t module, std::int32_t line,
                             std::int32_t column) {
  const Program::Module& owner = program.module(module);
  for (std::size_t i = 0; i < owner.code.declarations.size(); ++i) {
    const vbcode::Place& place = owner.code.declarations[i].place;
    if (place.line != line) continue;
    const vbcode::Use use = UseAt(program, module, place);
    if (use.column <= column && column <= use.column + use.length) {
      return owner.first_declaration + static_cast<std::int32_t>(i);
    }
  }
  return kNone;
}

// The name at a place: of a use, or of a declaration.
struct NameAt {
  vbcode::NameId id = vbcode::kNoName;  // kNoName: there is none
  std::int32_t declaration = kNone;     // kNone: nobody declares it
};

NameAt FindName(const Program& program, std::int32_t module, std::int32_t line,
                std::int32_t column) {
  const std::int32_t reference = program.FindReference(module, line, column);
  if (reference != kNone) {
    const Program::Module& owner = program.module(module);
    return {owner.code.references[Index(reference)].name,
            owner.meanings[Index(reference)].declaration};
  }
  const std::int32_t declaration = FindDeclaration(program, module, line, column);
  if (declaration == kNone) return {};
  return {program.declaration(declaration).name, declaration};
}

std::vector<vbcode::Use> DeclarationsOf(const Program& program,
                                        const std::vector<std::int32_t>& declarations) {
  std::vector<vbcode::Use> places;
  places.reserve(declarations.size());
  for (const std::int32_t one : declarations) {
    places.push_back(UseAt(program, program.PlaceOf(one).module, program.declaration(one).place));
  }
  return places;
}

// Where the local name is used. REQUIRES: its procedure declares it.
std::vector<vbcode::Use> LocalUses(const Program& program, std::int32_t declaration) {
  std::vector<vbcode::Use> uses;
  vbcode::ColumnCounter columns;
  for (const auto& place : program.ReferencesNamed(program.declaration(declaration).name)) {
    const vbcode::Meaning& meaning = program.module(place.module).meanings[Index(place.reference)];
    if (meaning.declaration != declaration) continue;
    uses.push_back(program.MakeUse(place.module, place.reference, columns));
  }
  return uses;
}

}  // namespace

std::vector<CodePlace> PlacesOf(const ProjectCode& code, std::vector<vbcode::Use> uses) {
  std::ranges::sort(uses, {}, [&](const vbcode::Use& use) {
    return std::tuple(code.PositionOf(use.module), use.line, use.column);
  });
  const Program& program = code.program();
  std::vector<CodePlace> places;
  std::set<std::tuple<std::string, std::int32_t, std::int32_t>> seen;
  for (const vbcode::Use& use : uses) {
    CodePlace place;
    place.file = code.ComponentOf(use.module).FileName();
    if (!seen.emplace(place.file, use.line, use.column).second) continue;
    place.module = code.NameOf(use.module);
    place.line = use.line;
    place.column = use.column;
    place.length = use.length;
    place.kind = use.kind;
    place.is_sure = use.binding == vbcode::Binding::kMember;
    place.procedure = ProcedureName(program, use.module, use.procedure);
    place.text = program.module(use.module).lines->Line(use.line);
    places.push_back(std::move(place));
  }
  return places;
}

FoundPlaces UsesInCode(platform::VBE& vbe, std::span<const std::string> prog_ids,
                       std::string_view name) {
  ProjectCode code(vbe);
  code.Load(prog_ids);
  code.LoadHolders(name);
  std::vector<vbcode::Use> uses;
  for (const std::string& prog_id : prog_ids) {
    const std::int32_t module = code.FindClass(prog_id);
    if (module == kNone) continue;
    std::ranges::move(code.program().Uses(module, name), std::back_inserter(uses));
  }
  return {PlacesOf(code, std::move(uses)), code.unread()};
}

FoundPlaces UsesInProcedure(platform::VBE& vbe, const std::string& prog_id,
                            std::string_view procedure, std::string_view name) {
  ProjectCode code(vbe);
  code.Load({&prog_id, 1});
  const std::int32_t module = code.FindClass(prog_id);
  if (module == kNone) return {};
  const std::int32_t number = code.program().FindProcedure(module, procedure);
  std::vector<vbcode::Use> uses = code.program().Uses(module, name);
  std::erase_if(uses, [&](const vbcode::Use& use) {
    return use.module != module || use.procedure != number || number == kNone || use.other_object;
  });
  return {PlacesOf(code, std::move(uses)), code.unread()};
}

FoundPlaces FindInCode(platform::VBE& vbe, std::string_view text,
                       const vbcode::SearchOptions& options) {
  ProjectCode code(vbe);
  code.LoadWhere([&](std::string_view lines) {
    return vbcode::FindInLine(lines, 0, text, options).begin != std::string_view::npos;
  });
  return {PlacesOf(code, vbcode::FindText(code.program(), text, options)), code.unread()};
}

NameInCode LookUpName(platform::VBE& vbe, const std::string& prog_id, std::int32_t line,
                      std::int32_t column) {
  ProjectCode code(vbe);
  code.Load({&prog_id, 1});
  const Program& program = code.program();
  const std::int32_t module = code.FindClass(prog_id);
  if (module == kNone) return {};
  const NameAt name = FindName(program, module, line, column);
  if (name.id == vbcode::kNoName) return {};
  NameInCode found{std::string(program.Text(name.id)), {}, {}};
  std::vector<std::int32_t> same;
  if (name.declaration != kNone) same = program.SameMember(name.declaration);
  const bool is_local =
      name.declaration != kNone && std::ranges::count(same, name.declaration) == 0;
  if (is_local) same = {name.declaration};
  found.declared = PlacesOf(code, DeclarationsOf(program, same));
  if (is_local) {
    found.uses = PlacesOf(code, LocalUses(program, name.declaration));
    return found;
  }
  const std::int32_t owner = same.empty() ? module : program.PlaceOf(same.front()).module;
  // Declarations have other numbers when more modules are read.
  code.LoadHolders(found.name);
  found.uses = PlacesOf(code, program.Uses(owner, found.name));
  return found;
}

std::string_view NameOfKind(vbcode::UseKind kind) {
  constexpr auto kNames =
      std::to_array<std::string_view>({"read", "write", "both", "call", "unknown", "text"});
  return kNames[static_cast<std::size_t>(kind)];
}

messages::TextNumber KindText(const CodePlace& place) {
  return place.is_sure ? kTextFirstUseKind + static_cast<int>(place.kind) : kTextMaybe;
}

}  // namespace codegen
