// SPDX-License-Identifier: MIT
#include "vbcode/expression_reader.h"

#include <string_view>

namespace vbcode {

namespace {

// Parentheses within parentheses; the language itself gives up earlier.
constexpr int kMaxDepth = 200;

bool IsOperatorSign(char c) {
  switch (c) {
    case '+':
    case '-':
    case '*':
    case '/':
    case '\\':
    case '^':
    case '&':
    case '=':
    case '<':
    case '>':
      return true;
    default:
      return false;
  }
}

}  // namespace

bool ExpressionReader::AtMember() const {
  return (tokens_.AtSign('.') || tokens_.AtSign('!')) && tokens_.Peek(1).kind == TokenKind::kWord;
}

bool ExpressionReader::AtChain() const {
  const CodeToken& token = tokens_.Peek();
  if (token.kind != TokenKind::kWord) return AtMember();
  return !HasFlag(token.keyword, kReserved) || HasFlag(token.keyword, kIntrinsic) ||
         token.keyword == Keyword("me");
}

std::int32_t ExpressionReader::AddReference(std::int32_t previous, Role role) {
  const CodeToken& token = tokens_.Peek();
  Reference reference;
  reference.name = token.name;
  reference.line = token.line;
  reference.column = static_cast<std::uint32_t>(token.column);
  reference.previous = previous;
  reference.role = role;
  code_.references.push_back(reference);
  tokens_.Advance();
  return static_cast<std::int32_t>(code_.references.size()) - 1;
}

ExpressionReader::Chain ExpressionReader::ReadChain(Role role) {
  Chain chain;
  if (tokens_.AtWord()) {
    chain.last = AddReference(kNothing, role);
  } else {
    const bool bang = tokens_.AtSign('!');
    tokens_.Advance();
    if (bang) {
      tokens_.Advance();
    } else {
      chain.last = AddReference(with_object_ == kNothing ? kSomeExpression : with_object_, role);
      code_.references.back().with_dot = with_object_ >= 0;
    }
  }
  ReadMembers(chain, role);
  return chain;
}

// What follows a name or parentheses. Of a key behind "!" no reference is kept: it names a member
// at run time only.
void ExpressionReader::ReadMembers(Chain& chain, Role role) {
  for (;;) {
    if (tokens_.AtSign('(')) {
      if (depth_ >= kMaxDepth) return;
      if (tokens_.AtSign(')', 1)) {
        TakeEmptyParentheses(chain);
        continue;
      }
      chain.parentheses_begin = static_cast<std::int32_t>(code_.references.size());
      if (chain.last >= 0 && code_.references[Index(chain.last)].parentheses < 2) {
        ++code_.references[Index(chain.last)].parentheses;
      }
      ReadParenthesized(chain.last);
    } else if (AtMember() && tokens_.IsAttached()) {
      SetRole(chain, Role::kObject);
      const bool bang = tokens_.AtSign('!');
      tokens_.Advance();
      if (bang) {
        tokens_.Advance();
        chain.last = kSomeExpression;
      } else {
        chain.last = AddReference(chain.last, role);
      }
      chain.parentheses_begin = kNone;
    } else {
      return;
    }
  }
}

void ExpressionReader::TakeEmptyParentheses(const Chain& chain) {
  if (chain.last >= 0) {
    code_.references[Index(chain.last)].empty_parentheses = true;
  }
  tokens_.Advance();
  tokens_.Advance();
}

void ExpressionReader::SetRole(const Chain& chain, Role role) {
  if (chain.last >= 0) code_.references[Index(chain.last)].role = role;
}

void ExpressionReader::DetachParentheses(const Chain& chain) {
  if (chain.parentheses_begin == kNone || chain.last < 0) return;
  --code_.references[Index(chain.last)].parentheses;
  for (auto i = static_cast<std::size_t>(chain.parentheses_begin); i < code_.references.size();
       ++i) {
    Reference& reference = code_.references[i];
    if (reference.role == Role::kArgument &&
        code_.arguments[Index(reference.argument)].callee == chain.last) {
      reference.role = Role::kRead;
      reference.argument = kNone;
    }
  }
}

// Reads "(...)" behind the reference, which may be kSomeExpression.
void ExpressionReader::ReadParenthesized(std::int32_t callee) {
  ++depth_;
  tokens_.Advance();
  for (std::int32_t position = 0; !tokens_.AtStatementEnd();) {
    if (tokens_.TakeSign(')')) break;
    if (tokens_.TakeSign(',') || tokens_.TakeSign(';')) {
      ++position;
    } else if (!tokens_.Take(Keyword("to"))) {
      const std::size_t before = tokens_.position();
      ReadArgument(callee, position);
      if (tokens_.position() == before) SkipToken();
    }
  }
  --depth_;
}

void ExpressionReader::ReadArgument(std::int32_t callee, std::int32_t position) {
  Argument argument{callee, kNoName, position};
  if (tokens_.AtWord() && tokens_.AtSign(':', 1) && tokens_.AtSign('=', 2)) {
    argument.name = tokens_.Peek().name;
    for (int i = 0; i < 3; ++i) tokens_.Advance();
  }
  const bool by_value = tokens_.Take(Keyword("byval"));
  if (ReadSpecialArgument(callee, position)) return;
  const std::int32_t whole = ReadExpression();
  if (whole < 0 || callee < 0 || by_value) return;
  Reference& reference = code_.references[Index(whole)];
  reference.role = Role::kArgument;
  reference.argument = static_cast<std::int32_t>(code_.arguments.size());
  code_.arguments.push_back(argument);
}

// The member that CallByName takes as a text; B and BF of the Line method, which are no names.
bool ExpressionReader::ReadSpecialArgument(std::int32_t callee, std::int32_t position) {
  if (callee < 0) return false;
  const NameId name = code_.references[Index(callee)].name;
  const CodeToken token = tokens_.Peek();
  if (name == Keyword("callbyname") && position == 1 && token.kind == TokenKind::kString &&
      token.text.size() > 2) {
    Reference reference;
    reference.name = tokens_.names().Intern(token.text.substr(1, token.text.size() - 2));
    reference.line = token.line;
    reference.column = static_cast<std::uint32_t>(token.column) + 1;
    reference.previous = kSomeExpression;
    reference.role = Role::kUnknown;
    reference.in_text = true;
    code_.references.push_back(reference);
  } else if (name == Keyword("line") && position == 2 && token.kind == TokenKind::kWord &&
             (IsKeyword(token.text, "b") || IsKeyword(token.text, "bf"))) {
    tokens_.Advance();
    return true;
  }
  return false;
}

void ExpressionReader::ReadArguments(std::int32_t callee, std::int32_t position) {
  while (!tokens_.AtStatementEnd()) {
    if (tokens_.TakeSign(',') || tokens_.TakeSign(';')) {
      ++position;
      continue;
    }
    const std::size_t before = tokens_.position();
    ReadArgument(callee, position);
    if (tokens_.position() == before) SkipStatement();
  }
}

void ExpressionReader::ReadExpressions() { ReadArguments(kSomeExpression, 0); }

void ExpressionReader::ReadBounds() { ReadParenthesized(kSomeExpression); }

std::int32_t ExpressionReader::ReadExpression() {
  std::int32_t whole = kNone;
  if (!ReadOperand(whole)) return kNone;
  const std::size_t before = tokens_.position();
  ContinueExpression();
  return tokens_.position() == before ? whole : kNone;
}

void ExpressionReader::ContinueExpression() {
  std::int32_t ignored = kNone;
  while (ReadOperator()) {
    if (!ReadOperand(ignored)) return;
  }
}

bool ExpressionReader::ReadOperator() {
  const CodeToken& token = tokens_.Peek();
  const bool is_operator = token.kind == TokenKind::kOther ? IsOperatorSign(token.sign)
                                                           : HasFlag(token.keyword, kOperator);
  if (is_operator) tokens_.Advance();
  return is_operator;
}

bool ExpressionReader::ReadOperand(std::int32_t& chain) {
  chain = kNone;
  bool bare = true;
  while (tokens_.TakeSign('#') || ReadOperator()) bare = false;
  const CodeToken& token = tokens_.Peek();
  switch (token.kind) {
    case TokenKind::kNumber:
    case TokenKind::kString:
      tokens_.Advance();
      return true;
    case TokenKind::kWord:
      break;
    case TokenKind::kOther:
      if (token.text.size() > 1) {  // a date
        tokens_.Advance();
        return true;
      }
      if (tokens_.AtSign('(') && depth_ < kMaxDepth) {
        ReadParenthesized(kSomeExpression);
        Chain members;
        ReadMembers(members, Role::kRead);
        return true;
      }
      if (tokens_.AtSign('.') && tokens_.Peek(1).kind == TokenKind::kNumber) {
        tokens_.Advance();
        tokens_.Advance();
        return true;
      }
      break;
    default:
      return false;
  }
  if (HasFlag(token.keyword, kLiteral)) {
    tokens_.Advance();
    return true;
  }
  if (tokens_.Take(Keyword("new"))) {
    ReadNewObject();
    return true;
  }
  if (tokens_.Take(Keyword("typeof"))) {
    ReadTypeOf();
    return true;
  }
  const bool address = tokens_.Take(Keyword("addressof"));
  if (!AtChain()) return address;
  const Chain read = ReadChain(address ? Role::kAddress : Role::kRead);
  if (bare && !address) chain = read.last >= 0 ? read.last : kNone;
  return true;
}

// "Class" or "Library.Class", behind New.
void ExpressionReader::ReadNewObject() {
  std::int32_t last = kSomeExpression;
  while (tokens_.AtWord()) {
    if (last >= 0) code_.references[Index(last)].role = Role::kObject;
    last = AddReference(last >= 0 ? last : kNothing, Role::kNew);
    if (!AtMember()) break;
    tokens_.Advance();
  }
}

// "object Is Class", behind TypeOf.
void ExpressionReader::ReadTypeOf() {
  if (AtChain()) ReadChain(Role::kRead);
  if (!tokens_.Take(Keyword("is"))) return;
  while (tokens_.AtWord()) {
    tokens_.Advance();
    if (!AtMember()) break;
    tokens_.Advance();
  }
}

void ExpressionReader::SkipToken() {
  if (AtChain()) {
    ReadChain(Role::kUnknown);
  } else {
    tokens_.Advance();
  }
}

void ExpressionReader::SkipStatement() {
  while (!tokens_.AtStatementEnd()) {
    const std::size_t before = tokens_.position();
    SkipToken();
    if (tokens_.position() == before) tokens_.Advance();
  }
}

}  // namespace vbcode
