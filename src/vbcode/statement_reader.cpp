// SPDX-License-Identifier: MIT
#include "vbcode/statement_reader.h"

namespace vbcode {

using platform::MemberScope;

void StatementReader::Begin() {
  withs_.clear();
  set_with_mark(kNone);
}

void StatementReader::set_with_mark(WithMark mark) {
  with_ = mark;
  expressions_.set_with_object(mark == kNone ? kNothing : withs_[Index(mark)].object);
}

void StatementReader::PushWith(std::int32_t object) {
  withs_.push_back({with_, object});
  set_with_mark(static_cast<WithMark>(withs_.size()) - 1);
}

void StatementReader::PopWith() {
  if (with_ != kNone) set_with_mark(withs_[Index(with_)].outer);
}

void StatementReader::ForgetWith(WithMark before) {
  set_with_mark(before);
  PushWith(kSomeExpression);
}

void StatementReader::ReadLabel() {
  const CodeToken& token = tokens_.Peek();
  if (token.kind == TokenKind::kNumber && token.text[0] != '&') {
    tokens_.Advance();
  } else if (token.kind == TokenKind::kWord && !HasFlag(token.keyword, kReserved) &&
             tokens_.Peek(1).kind == TokenKind::kColon) {
    declarations_.AddLabel();
  }
}

bool StatementReader::ReadLine() {
  bool first = true;  // of the statements apart by colons
  ends_procedure_ = false;
  while (!tokens_.AtLineEnd()) {
    if (tokens_.Peek().kind == TokenKind::kColon) {
      tokens_.Advance();
      first = true;
      continue;
    }
    ends_procedure_ = another_follows_ = false;
    Read();
    if (!another_follows_) expressions_.SkipStatement();
    ends_procedure_ = ends_procedure_ && first;
    first = false;
  }
  return ends_procedure_;
}

void StatementReader::Read() {
  const NameId word = tokens_.Peek().keyword;
  if (HasFlag(word, kStatement)) {
    if (!ReadStatementOf(word)) ReadGeneric();
  } else if (!ReadSecondProcedureHead()) {
    ReadGeneric();
  }
}

// A procedure inside of another stands in another branch of #If: one body has two heads.
bool StatementReader::ReadSecondProcedureHead() {
  const NameId word = tokens_.Peek().keyword;
  if (word != Keyword("public") && word != Keyword("private") && word != Keyword("friend") &&
      word != Keyword("sub") && word != Keyword("function") && word != Keyword("property")) {
    return false;
  }
  tokens_.Take(Keyword("public")) || tokens_.Take(Keyword("private")) ||
      tokens_.Take(Keyword("friend"));
  tokens_.Take(Keyword("static"));
  if (declarations_.ReadProcedureHead().found) {
    declarations_.ReadSecondHead();
    return true;
  }
  return false;
}

// False when the statement is none of the word's own.
bool StatementReader::ReadStatementOf(NameId word) {
  if (!HasFlag(word, kReserved)) return ReadNonReserved(word);
  tokens_.Advance();
  switch (word) {
    case Keyword("if"):
    case Keyword("elseif"):
      ReadIf();
      return true;
    case Keyword("else"):
      another_follows_ = true;
      return true;
    case Keyword("endif"):
    case Keyword("stop"):
    case Keyword("return"):
    case Keyword("wend"):
      return true;
    case Keyword("end"):
      ReadEnd();
      return true;
    case Keyword("exit"):
    case Keyword("goto"):
    case Keyword("gosub"):
    case Keyword("resume"):
      if (!tokens_.AtStatementEnd()) tokens_.Advance();
      return true;
    case Keyword("call"):
    case Keyword("raiseevent"):
      if (expressions_.AtChain()) expressions_.ReadChain(Role::kCall);
      return true;
    case Keyword("let"):
      ReadAssignment(Role::kLet);
      return true;
    case Keyword("set"):
      ReadAssignment(Role::kSet);
      return true;
    case Keyword("lset"):
    case Keyword("rset"):
      ReadAssignment(Role::kUpdate);
      return true;
    case Keyword("dim"):
      declarations_.ReadVariables(DeclarationKind::kLocal, MemberScope::kPrivate);
      return true;
    case Keyword("static"):
      if (declarations_.ReadProcedureHead().found) {
        declarations_.ReadSecondHead();
      } else {
        declarations_.ReadVariables(DeclarationKind::kLocal, MemberScope::kPrivate);
      }
      return true;
    case Keyword("const"):
      declarations_.ReadConstants(DeclarationKind::kLocalConstant, MemberScope::kPrivate);
      return true;
    case Keyword("redim"):
      declarations_.ReadRedim();
      return true;
    case Keyword("erase"):
      ReadTargets(Role::kReplace);
      return true;
    case Keyword("for"):
      ReadFor();
      return true;
    case Keyword("next"):
      ReadTargets(Role::kUpdate);
      return true;
    case Keyword("do"):
    case Keyword("loop"):
      if (tokens_.Take(Keyword("while")) || tokens_.Take(Keyword("until"))) {
        expressions_.ReadExpression();
      }
      return true;
    case Keyword("while"):
      expressions_.ReadExpression();
      return true;
    case Keyword("select"):
      tokens_.Take(Keyword("case"));
      expressions_.ReadExpression();
      return true;
    case Keyword("case"):
      ReadCase();
      return true;
    case Keyword("with"):
      ReadWith();
      return true;
    case Keyword("on"):
      ReadOn();
      return true;
    case Keyword("open"):
      ReadOpen();
      return true;
    case Keyword("get"):
      ReadGet();
      return true;
    case Keyword("input"):
      expressions_.ReadExpression();
      tokens_.TakeSign(',');
      ReadTargets(Role::kLet);
      return true;
    case Keyword("lock"):
    case Keyword("unlock"):
      ReadCase();
      return true;
    case Keyword("close"):
    case Keyword("print"):
    case Keyword("put"):
    case Keyword("seek"):
    case Keyword("write"):
      expressions_.ReadExpressions();
      return true;
    default:
      return true;
  }
}

// Words that name something else where the rest does not fit.
bool StatementReader::ReadNonReserved(NameId word) {
  switch (word) {
    case Keyword("line"):
      if (tokens_.Peek(1).keyword != Keyword("input")) return false;
      tokens_.Advance();
      tokens_.Advance();
      expressions_.ReadExpression();
      tokens_.TakeSign(',');
      ReadTargets(Role::kLet);
      return true;
    case Keyword("mid"):
    case Keyword("midb"):
      if (!tokens_.AtSign('(', 1)) return false;
      ReadMid();
      return true;
    case Keyword("name"):
      if (!HasAs()) return false;
      tokens_.Advance();
      expressions_.ReadExpression();
      tokens_.Take(Keyword("as"));
      expressions_.ReadExpression();
      return true;
    case Keyword("width"):
      if (!tokens_.AtSign('#', 1)) return false;
      tokens_.Advance();
      expressions_.ReadExpressions();
      return true;
    default:
      return false;
  }
}

void StatementReader::ReadGeneric() {
  if (!expressions_.AtChain()) return;
  const ExpressionReader::Chain chain = expressions_.ReadChain(Role::kCall);
  if (tokens_.TakeSign('=')) {
    expressions_.SetRole(chain, Role::kLet);
    expressions_.ReadExpression();
    return;
  }
  // Without Call the parentheses behind the name are the first argument, or begin it.
  expressions_.DetachParentheses(chain);
  if (chain.parentheses_begin != kNone) expressions_.ContinueExpression();
  expressions_.ReadArguments(chain.last, 0);
}

void StatementReader::ReadAssignment(Role role) {
  if (!expressions_.AtChain()) return;
  expressions_.ReadChain(role);
  if (tokens_.TakeSign('=')) expressions_.ReadExpression();
}

void StatementReader::ReadIf() {
  expressions_.ReadExpression();
  another_follows_ = true;
  if (tokens_.Take(Keyword("then")) && tokens_.Peek().kind == TokenKind::kNumber) {
    tokens_.Advance();  // the line to go to
  }
}

void StatementReader::ReadEnd() {
  switch (tokens_.Peek().keyword) {
    case Keyword("sub"):
    case Keyword("function"):
    case Keyword("property"):
      ends_procedure_ = true;
      tokens_.Advance();
      break;
    case Keyword("with"):
      PopWith();
      tokens_.Advance();
      break;
    case Keyword("if"):
    case Keyword("select"):
      tokens_.Advance();
      break;
    default:
      break;
  }
}

void StatementReader::ReadWith() {
  const bool is_new = tokens_.At(Keyword("new"));
  std::int32_t object = expressions_.ReadExpression();
  if (is_new) {
    object = expressions_.last_reference();
  } else if (object >= 0) {
    expressions_.SetRole({object}, Role::kObject);
  }
  PushWith(object >= 0 ? object : kSomeExpression);
}

void StatementReader::ReadFor() {
  const bool each = tokens_.Take(Keyword("each"));
  if (expressions_.AtChain()) expressions_.ReadChain(each ? Role::kSet : Role::kLet);
  if (!(each ? tokens_.Take(Keyword("in")) : tokens_.TakeSign('='))) return;
  expressions_.ReadExpression();
  if (tokens_.Take(Keyword("to"))) expressions_.ReadExpression();
  if (tokens_.Take(Keyword("step"))) expressions_.ReadExpression();
}

// Values and ranges apart by commas: 1 To 5, Is > 7.
void StatementReader::ReadCase() {
  tokens_.Take(Keyword("else"));
  do {
    expressions_.ReadExpression();
    if (tokens_.Take(Keyword("to"))) expressions_.ReadExpression();
  } while (tokens_.TakeSign(','));
}

void StatementReader::ReadOn() {
  const bool error = tokens_.At(Keyword("error")) || tokens_.Peek(1).keyword == Keyword("error");
  if (!error) expressions_.ReadExpression();
  while (!tokens_.AtStatementEnd()) tokens_.Advance();  // labels
}

// Open path For mode Access read Lock read As #1 Len = length
void StatementReader::ReadOpen() {
  expressions_.ReadExpression();
  while (!tokens_.AtStatementEnd() && !tokens_.At(Keyword("as"))) tokens_.Advance();
  if (!tokens_.Take(Keyword("as"))) return;
  expressions_.ReadExpression();
  if (tokens_.Take(Keyword("len")) && tokens_.TakeSign('=')) expressions_.ReadExpression();
}

// Get #1, record, variable
void StatementReader::ReadGet() {
  expressions_.ReadExpression();
  tokens_.TakeSign(',');
  expressions_.ReadExpression();
  tokens_.TakeSign(',');
  ReadTargets(Role::kReplace);
}

void StatementReader::ReadTargets(Role role) {
  do {
    if (expressions_.AtChain()) expressions_.ReadChain(role);
  } while (tokens_.TakeSign(','));
}

// Mid(text, 1, 2) = other
void StatementReader::ReadMid() {
  tokens_.Advance();
  tokens_.Advance();
  const std::int32_t target = expressions_.ReadExpression();
  while (tokens_.TakeSign(',')) expressions_.ReadExpression();
  tokens_.TakeSign(')');
  const bool assigns = tokens_.TakeSign('=');
  if (target >= 0) expressions_.SetRole({target}, assigns ? Role::kUpdate : Role::kUnknown);
  if (assigns) expressions_.ReadExpression();
}

// Only Name old As new has As among the statements of its kind.
bool StatementReader::HasAs() const {
  for (std::size_t ahead = 1;; ++ahead) {
    const CodeToken& token = tokens_.Peek(ahead);
    if (token.kind == TokenKind::kEnd || token.kind == TokenKind::kColon ||
        token.keyword == Keyword("then") || token.keyword == Keyword("else")) {
      return false;
    }
    if (token.keyword == Keyword("as")) return true;
  }
}

}  // namespace vbcode
