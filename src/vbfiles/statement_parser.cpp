// SPDX-License-Identifier: MIT
#include "vbfiles/statement_parser.h"

namespace vbfiles {

using vbcode::IsKeyword;
using vbcode::TokenKind;

using platform::MemberScope;
using platform::MemberType;
using platform::ProcKind;

void StatementParser::Run() {
  Advance();
  has_tokens_ = token_.kind != TokenKind::kEnd;
  // A line number, which is decimal.
  if (token_.kind == TokenKind::kNumber && token_.text[0] != '&') Advance();
  while (token_.kind != TokenKind::kEnd) {
    if (token_.kind == TokenKind::kColon) {
      Advance();
    } else {
      procedure_end_ = false;
      Statement();
    }
  }
  if (mode_ == ScanMode::kProcedure && procedure_end_) mode_ = ScanMode::kModule;
}

void StatementParser::Advance() { token_ = lexer_.Next(); }

bool StatementParser::AtStatementEnd() const {
  return token_.kind == TokenKind::kColon || token_.kind == TokenKind::kEnd;
}

void StatementParser::SkipStatement() {
  while (!AtStatementEnd()) Advance();
}

bool StatementParser::AtKeyword(std::string_view keyword) const {
  return token_.kind == TokenKind::kWord && !token_.bracketed && IsKeyword(token_.text, keyword);
}

bool StatementParser::TakeKeyword(std::string_view keyword) {
  if (!AtKeyword(keyword)) return false;
  Advance();
  return true;
}

void StatementParser::Statement() {
  if (mode_ == ScanMode::kModule) {
    ModuleStatement();
  } else {
    TakeEnd();
  }
  SkipStatement();
}

// The end of the procedure or block that is open.
bool StatementParser::TakeEnd() {
  if (!TakeKeyword("end")) return false;
  if (mode_ == ScanMode::kProcedure) {
    procedure_end_ = AtKeyword("sub") || AtKeyword("function") || AtKeyword("property");
    return procedure_end_;
  }
  if (!AtKeyword(mode_ == ScanMode::kType ? "type" : "enum")) return false;
  mode_ = ScanMode::kModule;
  declaration_ends_ = true;
  return true;
}

void StatementParser::ModuleStatement() {
  const std::int32_t line = token_.line;
  if (TakeKeyword("option") || TakeKeyword("implements") ||
      (token_.text.size() > 3 && IsKeyword(token_.text.substr(0, 3), "def"))) {
    declaration_ends_ = true;
    return;
  }
  MemberScope scope = MemberScope::kPublic;
  bool scoped = true;  // a scope word stands here
  bool variables = true;
  if (TakeKeyword("public") || TakeKeyword("global")) {
  } else if (TakeKeyword("private") || TakeKeyword("dim")) {
    scope = MemberScope::kPrivate;
  } else if (TakeKeyword("friend")) {
    scope = MemberScope::kFriend;
    variables = false;
  } else {
    scoped = variables = false;
  }
  if (TakeKeyword("static")) variables = false;
  if (TakeProcedure(line, scope) || TakeBlock()) return;
  if (TakeKeyword("const")) {
    NameList(line, MemberType::kConst, scoped ? scope : MemberScope::kPrivate);
  } else if (TakeKeyword("event")) {
    SingleName(line, MemberType::kEvent, scope);
  } else if (TakeKeyword("declare")) {
    TakeKeyword("ptrsafe");
    if (TakeKeyword("sub") || TakeKeyword("function")) {
      SingleName(line, MemberType::kMethod, scope);
    }
  } else if (variables) {
    NameList(line, MemberType::kVariable, scope);
  }
}

bool StatementParser::TakeProcedure(std::int32_t line, MemberScope scope) {
  Procedure procedure;
  if (TakeKeyword("sub") || TakeKeyword("function")) {
    procedure.kind = ProcKind::kProc;
  } else if (TakeKeyword("property")) {
    if (TakeKeyword("get")) {
      procedure.kind = ProcKind::kGet;
    } else if (TakeKeyword("let")) {
      procedure.kind = ProcKind::kLet;
    } else if (TakeKeyword("set")) {
      procedure.kind = ProcKind::kSet;
    } else {
      return true;
    }
  } else {
    return false;
  }
  if (token_.kind != TokenKind::kWord) return true;
  procedure.name = Place();
  procedure.body_line = line;
  procedure.scope = scope;
  result_.procedures.push_back(procedure);
  mode_ = ScanMode::kProcedure;
  return true;
}

bool StatementParser::TakeBlock() {
  const ScanMode block = AtKeyword("type")   ? ScanMode::kType
                         : AtKeyword("enum") ? ScanMode::kEnum
                                             : ScanMode::kModule;
  if (block == ScanMode::kModule) return false;
  Advance();
  if (token_.kind == TokenKind::kWord) mode_ = block;
  return true;
}

// Names apart by commas outside parentheses: a As Long, b(1 To 3) As String.
void StatementParser::NameList(std::int32_t line, MemberType type, MemberScope scope) {
  while (!AtStatementEnd()) {
    TakeKeyword("withevents");
    SingleName(line, type, scope);
    int depth = 0;
    while (!AtStatementEnd() && (depth > 0 || token_.text != ",")) {
      if (token_.text == "(") ++depth;
      if (token_.text == ")") --depth;
      Advance();
    }
    if (!AtStatementEnd()) Advance();
  }
}

void StatementParser::SingleName(std::int32_t line, MemberType type, MemberScope scope) {
  if (token_.kind != TokenKind::kWord) return;
  result_.declarations.push_back(Declaration{Place(), line, type, scope});
  declaration_ends_ = true;
  Advance();
}

NamePlace StatementParser::Place() const {
  return NamePlace{token_.line, static_cast<std::uint32_t>(token_.column),
                   static_cast<std::uint32_t>(token_.text.size()), page_.NameHash(token_.text)};
}

}  // namespace vbfiles
