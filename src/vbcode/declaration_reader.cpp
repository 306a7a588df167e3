// SPDX-License-Identifier: MIT
#include "vbcode/declaration_reader.h"

namespace vbcode {

using platform::MemberScope;
using platform::ProcKind;

std::int32_t DeclarationReader::Add(DeclarationKind kind, MemberScope scope) {
  Declaration declaration;
  const CodeToken& token = tokens_.Peek();
  declaration.name = token.name;
  declaration.kind = kind;
  declaration.scope = scope;
  declaration.place = tokens_.PlaceHere();
  declaration.procedure = procedure;
  declaration.branch = branch;
  declaration.has_type_character = token.type_character;
  code_.declarations.push_back(declaration);
  tokens_.Advance();
  return static_cast<std::int32_t>(code_.declarations.size()) - 1;
}

TypeName DeclarationReader::ReadTypeName() {
  TypeName type;
  while (tokens_.AtWord()) {
    type.qualifier = type.name;
    type.name = tokens_.Peek().name;
    tokens_.Advance();
    if (!tokens_.AtSign('.') || tokens_.Peek(1).kind != TokenKind::kWord) break;
    tokens_.Advance();
  }
  return type;
}

void DeclarationReader::ReadAs(std::int32_t declaration) {
  if (!tokens_.Take(Keyword("as"))) return;
  const bool as_new = tokens_.Take(Keyword("new"));
  const TypeName type = ReadTypeName();
  At(declaration).as_new = as_new;
  At(declaration).type = type;
  if (tokens_.TakeSign('*')) expressions_.ReadExpression();  // String * 20
  ReadArrayMark(declaration);                                // of what a function returns
}

void DeclarationReader::ReadArrayMark(std::int32_t declaration) {
  if (!tokens_.AtSign('(')) return;
  At(declaration).is_array = true;
  expressions_.ReadBounds();
}

void DeclarationReader::ReadInitialValue() {
  if (tokens_.TakeSign('=')) expressions_.ReadExpression();
}

DeclarationReader::ProcedureHead DeclarationReader::ReadProcedureHead() {
  ProcedureHead head;
  if (tokens_.Take(Keyword("sub"))) {
    head.found = true;
  } else if (tokens_.Take(Keyword("function"))) {
    head.found = true;
    head.kind = DeclarationKind::kFunction;
  } else if (tokens_.At(Keyword("property"))) {
    const NameId word = tokens_.Peek(1).keyword;
    head.found = word == Keyword("get") || word == Keyword("let") || word == Keyword("set");
    if (!head.found) return head;
    head.kind = DeclarationKind::kProperty;
    head.proc_kind = word == Keyword("get")   ? ProcKind::kGet
                     : word == Keyword("let") ? ProcKind::kLet
                                              : ProcKind::kSet;
    tokens_.Advance();
    tokens_.Advance();
  }
  return head;
}

std::int32_t DeclarationReader::ReadProcedure(const ProcedureHead& head, MemberScope scope,
                                              std::int32_t line) {
  if (!tokens_.AtWord()) return kNone;
  const auto index = static_cast<std::int32_t>(code_.procedures.size());
  Procedure opened;
  opened.kind = head.proc_kind;
  opened.first_line = line;
  opened.references_begin = static_cast<std::int32_t>(code_.references.size());
  procedure = index;
  opened.declaration = Add(head.kind, scope);
  code_.procedures.push_back(opened);
  ReadParameters(opened.declaration);
  ReadAs(opened.declaration);
  return index;
}

void DeclarationReader::ReadSecondHead() {
  if (!tokens_.AtStatementEnd()) tokens_.Advance();
  if (!tokens_.TakeSign('(')) return;
  while (!tokens_.AtStatementEnd() && !tokens_.TakeSign(')')) {
    const std::size_t before = tokens_.position();
    ReadParameter();
    if (tokens_.position() == before) tokens_.Advance();
  }
  if (tokens_.Take(Keyword("as"))) ReadTypeName();
}

void DeclarationReader::ReadParameters(std::int32_t owner) {
  if (!tokens_.TakeSign('(')) return;
  while (!tokens_.AtStatementEnd() && !tokens_.TakeSign(')')) {
    const std::size_t before = tokens_.position();
    ReadParameter();
    if (tokens_.position() == before) tokens_.Advance();
  }
  At(owner).parts = static_cast<std::int32_t>(code_.declarations.size()) - 1 - owner;
}

void DeclarationReader::ReadParameter() {
  Passing passing = Passing::kByRef;
  for (;;) {
    if (tokens_.Take(Keyword("byval"))) {
      passing = Passing::kByVal;
    } else if (tokens_.Take(Keyword("paramarray"))) {
      passing = Passing::kParamArray;
    } else if (!tokens_.Take(Keyword("optional")) && !tokens_.Take(Keyword("byref"))) {
      break;
    }
  }
  if (!tokens_.AtWord()) return;
  const std::int32_t parameter = Add(DeclarationKind::kParameter, MemberScope::kPrivate);
  At(parameter).passing = passing;
  ReadArrayMark(parameter);
  ReadAs(parameter);
  ReadInitialValue();
}

void DeclarationReader::ReadVariables(DeclarationKind kind, MemberScope scope) {
  do {
    const bool with_events = tokens_.Take(Keyword("withevents"));
    if (!tokens_.AtWord()) return;
    const std::int32_t variable = Add(kind, scope);
    At(variable).with_events = with_events;
    ReadArrayMark(variable);
    ReadAs(variable);
  } while (tokens_.TakeSign(','));
}

void DeclarationReader::ReadConstants(DeclarationKind kind, MemberScope scope) {
  do {
    if (!tokens_.AtWord()) return;
    ReadAs(Add(kind, scope));
    ReadInitialValue();
  } while (tokens_.TakeSign(','));
}

void DeclarationReader::ReadExternal(MemberScope scope) {
  tokens_.Take(Keyword("ptrsafe"));
  if (!tokens_.Take(Keyword("sub")) && !tokens_.Take(Keyword("function"))) return;
  if (!tokens_.AtWord()) return;
  const std::int32_t external = Add(DeclarationKind::kExternal, scope);
  while (!tokens_.AtStatementEnd() && !tokens_.AtSign('(') && !tokens_.At(Keyword("as"))) {
    tokens_.Advance();  // Lib "name" Alias "name"
  }
  ReadParameters(external);
  ReadAs(external);
}

void DeclarationReader::ReadEvent(MemberScope scope) {
  if (tokens_.AtWord()) ReadParameters(Add(DeclarationKind::kEvent, scope));
}

bool DeclarationReader::ReadBlock(DeclarationKind kind, MemberScope scope) {
  if (!tokens_.AtWord()) return false;
  block_ = Add(kind, scope);
  return true;
}

void DeclarationReader::ReadEnumMember() {
  if (!tokens_.AtWord()) return;
  Add(DeclarationKind::kEnumMember, At(block_).scope);
  At(block_).parts = static_cast<std::int32_t>(code_.declarations.size()) - 1 - block_;
  ReadInitialValue();
}

void DeclarationReader::ReadTypeMember() {
  if (!tokens_.AtWord()) return;
  const std::int32_t member = Add(DeclarationKind::kTypeMember, MemberScope::kPrivate);
  At(block_).parts = member - block_;
  ReadArrayMark(member);
  ReadAs(member);
}

void DeclarationReader::ReadImplements() { code_.interfaces.push_back(ReadTypeName()); }

// The size is what changes: what the array itself holds counts as kept with Preserve.
void DeclarationReader::ReadRedim() {
  const Role role = tokens_.Take(Keyword("preserve")) ? Role::kUpdate : Role::kReplace;
  do {
    if (!expressions_.AtChain()) return;
    if (tokens_.AtWord() && tokens_.AtSign('(', 1)) {
      const std::size_t name = code_.declarations.size();
      Declaration declaration;
      declaration.name = tokens_.Peek().name;
      declaration.kind = DeclarationKind::kRedim;
      declaration.scope = MemberScope::kPrivate;
      declaration.is_array = true;
      declaration.place = tokens_.PlaceHere();
      declaration.procedure = procedure;
      declaration.branch = branch;
      code_.declarations.push_back(declaration);
      expressions_.DetachParentheses(expressions_.ReadChain(role));
      ReadAs(static_cast<std::int32_t>(name));
    } else {
      expressions_.DetachParentheses(expressions_.ReadChain(role));
      if (tokens_.Take(Keyword("as"))) ReadTypeName();
    }
  } while (tokens_.TakeSign(','));
}

void DeclarationReader::AddLabel() { Add(DeclarationKind::kLabel, MemberScope::kPrivate); }

}  // namespace vbcode
