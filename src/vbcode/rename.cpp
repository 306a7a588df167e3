// SPDX-License-Identifier: MIT
#include "vbcode/rename.h"

#include <cstddef>
#include <set>
#include <string_view>
#include <utility>

#include "vbcode/columns.h"
#include "vbcode/source_lexer.h"
#include "vbcode/text_search.h"

namespace vbcode {

namespace {

constexpr std::int32_t kLongestName = 255;

std::size_t Index(std::int32_t number) { return static_cast<std::size_t>(number); }

bool IsName(std::string_view name) {
  if (name.empty() || CountCharacters(name) > kLongestName) return false;
  if ((name[0] >= '0' && name[0] <= '9') || name[0] == '_') return false;
  for (const char c : name) {
    if (!IsWordCharacter(c)) return false;
  }
  return !HasFlag(Names().Find(name), kReserved);
}

class Rename {
 public:
  Rename(const Program& program, const RenameRequest& request)
      : program_(program),
        request_(request),
        edits_(program),
        old_(program.names().Find(request.old_name)),
        new_(program.names().Find(request.new_name)),
        member_(old_ == kNoName ? kNone : program.FindMember(request.module, old_)) {}

  Renaming Run() {
    if (!IsName(request_.new_name)) {
      Refuse(RenameProblem::kNotAName, request_.module, 0, 0);
      return std::move(result_);
    }
    ListUses();
    if (old_ != new_ && member_ != kNone) {
      if (new_ != kNoName) CheckNewName();
      CheckNamedAfter();
    }
    if (result_.refusals.empty()) Edit();
    if (!result_.refusals.empty()) result_.edits.clear();
    return std::move(result_);
  }

 private:
  void Refuse(RenameProblem problem, std::int32_t module, std::int32_t line, std::int32_t column) {
    result_.refusals.push_back({problem, module, line, column});
  }
  void Refuse(RenameProblem problem, std::int32_t module, const Place& place) {
    const std::string_view line = program_.module(module).lines->Line(place.line);
    Refuse(problem, module, place.line, CountCharacters(line.substr(0, place.column)) + 1);
  }
  void RefuseDeclaration(RenameProblem problem, std::int32_t number) {
    Refuse(problem, program_.PlaceOf(number).module, program_.declaration(number).place);
  }

  void ListUses() {
    if (old_ == kNoName) return;
    for (const auto& place : program_.References(request_.module, old_)) {
      const Use use = program_.MakeUse(place.module, place.reference, columns_);
      if (use.binding == Binding::kMember) {
        result_.changed.push_back(use);
        places_.push_back(place);
      } else {
        result_.left.push_back(use);
      }
    }
  }

  const Reference& At(const Program::ReferencePlace& place) const {
    return program_.module(place.module).code.references[Index(place.reference)];
  }

  void CheckNewName() {
    CheckMembers(request_.module);
    std::set<std::pair<std::int32_t, std::int32_t>> procedures;
    std::set<std::int32_t> modules;
    for (const auto& place : places_) {
      if (At(place).previous != kNothing) continue;
      modules.insert(place.module);
      procedures.insert({place.module, program_.ProcedureOfLine(place.module, At(place).line)});
    }
    for (const std::int32_t module : modules) {
      if (module != request_.module) CheckMembers(module);
    }
    for (const auto& [module, procedure] : procedures) {
      if (procedure != kNone) CheckLocals(module, procedure);
    }
    CheckOtherMeanings();
  }

  void CheckMembers(std::int32_t module) {
    const std::int32_t member = program_.FindMember(module, new_);
    const std::int32_t type = program_.FindType(module, new_);
    if (member != kNone) RefuseDeclaration(RenameProblem::kMemberName, member);
    if (type != kNone) RefuseDeclaration(RenameProblem::kMemberName, type);
  }

  void CheckLocals(std::int32_t module, std::int32_t number) {
    const ModuleCode& code = program_.module(module).code;
    const Procedure& procedure = code.procedures[Index(number)];
    for (std::int32_t i = procedure.declaration + 1; i < procedure.declarations_end; ++i) {
      const Declaration& local = code.declarations[Index(i)];
      if (local.name != new_) continue;
      const bool label = local.kind == DeclarationKind::kLabel;
      Refuse(label ? RenameProblem::kLabelName : RenameProblem::kLocalName, module, local.place);
    }
  }

  bool IsShared() const {
    const Declaration& declaration = program_.declaration(member_);
    return program_.module(request_.module).source.kind == ModuleKind::kStandard &&
           declaration.scope == platform::MemberScope::kPublic;
  }

  // What would no longer reach what it means, or mean the renamed all of a sudden.
  void CheckOtherMeanings() {
    const NameId project = program_.module(request_.module).project;
    for (const auto& place : program_.ReferencesNamed(new_)) {
      const Program::Module& module = program_.module(place.module);
      const bool within =
          place.module == request_.module || (IsShared() && module.project == project);
      if (!within || At(place).role == Role::kNew || At(place).in_text) continue;
      const Meaning& meaning = module.meanings[Index(place.reference)];
      const bool own_member = At(place).previous != kNothing;
      if (own_member &&
          (meaning.sureness != Sureness::kUndeclared || place.module != request_.module)) {
        continue;
      }
      if (meaning.sureness == Sureness::kSure && meaning.declaration != kNone &&
          program_.declaration(meaning.declaration).procedure != kNone &&
          program_.FindMember(place.module, new_) == kNone &&
          program_.PlaceOf(meaning.declaration).module == place.module) {
        continue;  // a local variable
      }
      Refuse(RenameProblem::kOtherMeaning, place.module, {At(place).line, At(place).column, 0});
    }
  }

  // Handlers of events and the members of an interface bear the name in their own.
  void CheckNamedAfter() {
    const Declaration& declaration = program_.declaration(member_);
    const Program::Module& owner = program_.module(request_.module);
    for (std::int32_t m = 0; m < program_.ModuleCount(); ++m) {
      const ModuleCode& code = program_.module(m).code;
      for (const TypeName& interface : code.interfaces) {
        if (interface.name == owner.name)
          CheckProcedure(m, owner.source.name + '_' + request_.old_name);
      }
      if (declaration.kind != DeclarationKind::kEvent) continue;
      for (const Declaration& listener : code.declarations) {
        if (!listener.with_events || listener.type.name != owner.name) continue;
        CheckProcedure(m, std::string(program_.Text(listener.name)) + '_' + request_.old_name);
      }
    }
    if (!declaration.with_events) return;
    const std::string prefix = request_.old_name + '_';
    for (const Procedure& procedure : owner.code.procedures) {
      const Declaration& handler = owner.code.declarations[Index(procedure.declaration)];
      const TextPlace place = FindInLine(program_.Text(handler.name), 0, prefix, {});
      if (place.begin == 0) Refuse(RenameProblem::kNamedAfter, request_.module, handler.place);
    }
  }

  void CheckProcedure(std::int32_t module, const std::string& name) {
    const std::int32_t member = program_.FindMember(module, name);
    if (member != kNone) RefuseDeclaration(RenameProblem::kNamedAfter, member);
  }

  void Edit() {
    for (const auto& place : places_) {
      edits_.Replace(place.module, At(place).line, At(place).column,
                     program_.Text(At(place).name).size(), request_.new_name);
    }
    if (member_ != kNone && request_.declarations) {
      for (const std::int32_t same : program_.SameMember(member_)) {
        const Place& place = program_.declaration(same).place;
        edits_.Replace(request_.module, place.line, place.column, place.length, request_.new_name);
      }
    }
    if (member_ != kNone && (request_.in_comments || request_.in_literals)) EditTexts();
    result_.edits = edits_.Lines();
    for (const LineEdit& edit : result_.edits) {
      if (CountCharacters(edit.text) <= kLongestLine) continue;
      const std::string_view before = program_.module(edit.module).lines->Line(edit.line);
      if (edit.text.size() > before.size()) {
        Refuse(RenameProblem::kLineTooLong, edit.module, edit.line, 1);
      }
    }
  }

  // The old name in comments and literals of the module.
  void EditTexts() {
    const TextLines& lines = *program_.module(request_.module).lines;
    for (std::int32_t number = 1; number <= lines.LineCount();) {
      Lexer lexer(lines, kNoLeadBytes, number);
      for (Token token = lexer.Next(); token.kind != TokenKind::kEnd; token = lexer.Next()) {
        if (request_.in_literals && token.kind == TokenKind::kString) {
          EditText(token.line, token.column, token.column + token.text.size());
        }
      }
      if (request_.in_comments && lexer.has_comment()) {
        std::size_t begin = lexer.comment_column();
        for (std::int32_t line = lexer.comment_line(); line <= lexer.last_line(); ++line) {
          EditText(line, begin, lines.Line(line).size());
          begin = 0;
        }
      }
      number = lexer.last_line() + 1;
    }
  }

  void EditText(std::int32_t number, std::size_t begin, std::size_t end) {
    constexpr SearchOptions kWholeWord = {true, false};
    const std::string_view line =
        program_.module(request_.module).lines->Line(number).substr(0, end);
    for (;;) {
      const TextPlace place = FindInLine(line, begin, request_.old_name, kWholeWord);
      if (place.begin == std::string_view::npos) return;
      edits_.Replace(request_.module, number, place.begin, place.length, request_.new_name);
      begin = place.begin + place.length;
    }
  }

  const Program& program_;
  const RenameRequest& request_;
  LineEdits edits_;
  NameId old_;
  NameId new_;
  std::int32_t member_;
  ColumnCounter columns_;
  std::vector<Program::ReferencePlace> places_;  // that are changed
  Renaming result_;
};

}  // namespace

Renaming RenameMember(const Program& program, const RenameRequest& request) {
  return Rename(program, request).Run();
}

}  // namespace vbcode
