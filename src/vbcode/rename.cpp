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

constexpr std::int32_t kMaxName = 255;

bool IsName(std::string_view name) {
  if (name.empty() || CountCharacters(name) > kMaxName) return false;
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
        new_(program.names().Find(request.new_name)) {}

  Renaming Run() {
    if (!IsName(request_.new_name)) {
      const std::int32_t module = request_.modules.empty() ? kNone : request_.modules.front();
      Refuse(RenameProblem::kNotAName, module, 0, 0);
      return std::move(result_);
    }
    if (old_ != kNoName) {
      for (const std::int32_t module : request_.modules) RenameIn(module);
    }
    if (result_.refusals.empty()) {
      result_.edits = edits_.Lines();
      CheckLengths();
    }
    if (!result_.refusals.empty()) result_.edits.clear();
    return std::move(result_);
  }

 private:
  bool IsLimited() const { return request_.procedure != kNone; }

  void RenameIn(std::int32_t module) {
    module_ = module;
    member_ = program_.FindMember(module, old_);
    ListUses();
    if (member_ == kNone) return;
    if (old_ != new_ && new_ != kNoName) IsLimited() ? CheckNewNameHere() : CheckNewName();
    if (old_ != new_ && !IsLimited()) CheckNamedAfter();
    Edit();
  }

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
    places_.clear();
    for (const auto& place : program_.References(module_, old_)) {
      const Use use = program_.MakeUse(place.module, place.reference, columns_);
      if (IsLimited() && (use.module != module_ || use.procedure != request_.procedure)) continue;
      const bool same_object = !IsLimited() || !use.other_object;
      if (use.binding == Binding::kMember && same_object) {
        result_.changed.push_back(use);
        places_.push_back(place);
      } else if (left_.insert({place.module, place.reference}).second) {
        result_.left.push_back(use);
      }
    }
  }

  const Reference& At(const Program::ReferencePlace& place) const {
    return program_.module(place.module).code.references[Index(place.reference)];
  }

  // Where only one procedure takes the other name, a variable of it may be there.
  void CheckNewNameHere() {
    const std::int32_t member = program_.FindMember(module_, new_);
    if (member != kNone && program_.declaration(member).kind != DeclarationKind::kVariable) {
      RefuseDeclaration(RenameProblem::kMemberName, member);
    }
    for (const auto& place : places_) {
      if (At(place).previous != kNothing) continue;
      CheckLocals(module_, request_.procedure);
      return;
    }
  }

  void CheckNewName() {
    CheckMembers(module_);
    std::set<std::pair<std::int32_t, std::int32_t>> procedures;
    std::set<std::int32_t> modules;
    for (const auto& place : places_) {
      if (At(place).previous != kNothing) continue;
      modules.insert(place.module);
      procedures.insert({place.module, program_.ProcedureOfLine(place.module, At(place).line)});
    }
    for (const std::int32_t module : modules) {
      if (module != module_) CheckMembers(module);
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
    return program_.module(module_).source.kind == ModuleKind::kStandard &&
           declaration.scope == platform::MemberScope::kPublic;
  }

  // What would no longer reach what it means, or mean the renamed all of a sudden.
  void CheckOtherMeanings() {
    const NameId project = program_.module(module_).project;
    for (const auto& place : program_.ReferencesNamed(new_)) {
      const Program::Module& module = program_.module(place.module);
      const bool within = place.module == module_ || (IsShared() && module.project == project);
      if (!within || At(place).role == Role::kNew || At(place).in_text) continue;
      const Meaning& meaning = module.meanings[Index(place.reference)];
      const bool own_member = At(place).previous != kNothing;
      if (own_member && (meaning.sureness != Sureness::kUndeclared || place.module != module_)) {
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
    const Program::Module& owner = program_.module(module_);
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
      if (place.begin == 0) Refuse(RenameProblem::kNamedAfter, module_, handler.place);
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
    if (request_.declarations && !IsLimited()) {
      for (const std::int32_t same : program_.SameMember(member_)) {
        const Place& place = program_.declaration(same).place;
        edits_.Replace(module_, place.line, place.column, place.length, request_.new_name);
      }
    }
    if (request_.in_comments || request_.in_literals) EditTexts();
  }

  void CheckLengths() {
    for (const LineEdit& edit : result_.edits) {
      const std::string_view before = program_.module(edit.module).lines->Line(edit.line);
      if (edit.text.size() > before.size() && CountCharacters(edit.text) > kMaxLineLength) {
        Refuse(RenameProblem::kLineTooLong, edit.module, edit.line, 1);
      }
    }
  }

  // The old name in comments and literals of the module.
  void EditTexts() {
    const TextLines& lines = *program_.module(module_).lines;
    std::int32_t number = 1;
    std::int32_t last = lines.LineCount();
    if (IsLimited()) {
      const Procedure& procedure =
          program_.module(module_).code.procedures[Index(request_.procedure)];
      number = procedure.first_line;
      last = procedure.last_line;
    }
    while (number <= last) {
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
    const std::string_view line = program_.module(module_).lines->Line(number).substr(0, end);
    for (;;) {
      const TextPlace place = FindInLine(line, begin, request_.old_name, kWholeWord);
      if (place.begin == std::string_view::npos) return;
      edits_.Replace(module_, number, place.begin, place.length, request_.new_name);
      begin = place.begin + place.length;
    }
  }

  const Program& program_;
  const RenameRequest& request_;
  LineEdits edits_;
  ColumnCounter columns_;
  NameId old_;
  NameId new_;
  std::set<std::pair<std::int32_t, std::int32_t>> left_;  // module and reference
  // While a module is worked on:
  std::int32_t module_ = 0;
  std::int32_t member_ = kNone;
  std::vector<Program::ReferencePlace> places_;  // that are changed
  Renaming result_;
};

}  // namespace

Renaming RenameMember(const Program& program, const RenameRequest& request) {
  return Rename(program, request).Run();
}

}  // namespace vbcode
