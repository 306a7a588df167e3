// SPDX-License-Identifier: MIT
#include "recordset/sql_parser.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "recordset/ascii_text.h"
#include "recordset/sql_lexer.h"

namespace recordset {
namespace {

constexpr int kMaxDepth = 200;  // of brackets and NOTs, so that no text exhausts the stack

constexpr std::string_view kReserved[] = {"SELECT", "FROM", "WHERE", "ORDER", "BY",
                                          "INNER",  "JOIN", "ON",    "AND",   "OR",
                                          "NOT",    "IS",   "NULL",  "TRUE",  "FALSE"};

bool IsReserved(const Token& token) {
  for (std::string_view word : kReserved) {
    if (token.IsKeyword(word)) return true;
  }
  return false;
}

class Parser {
 public:
  explicit Parser(std::string_view source) : lexer_(source) { Advance(); }

  SelectSyntax Select();
  std::vector<ConditionSyntax> Filter();
  ConditionSyntax Find();

 private:
  // Counts nested brackets and NOTs.
  class Depth {
   public:
    explicit Depth(Parser& parser) : parser_(parser) {
      if (++parser_.depth_ > kMaxDepth) parser_.Fail(message::kTooDeep);
    }
    ~Depth() { --parser_.depth_; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

   private:
    Parser& parser_;
  };

  void Advance() { token_ = lexer_.Next(); }
  [[noreturn]] void Fail(const messages::Message& cause) const {
    ThrowSyntax(lexer_.source(), token_.offset, cause);
  }
  bool TakeSymbol(std::string_view symbol) {
    if (!token_.IsSymbol(symbol)) return false;
    Advance();
    return true;
  }
  bool TakeKeyword(std::string_view keyword) {
    if (!token_.IsKeyword(keyword)) return false;
    Advance();
    return true;
  }
  void ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) Fail({message::kSymbolExpected, {{"<Symbol>", symbol}}});
  }
  void ExpectKeyword(std::string_view keyword) {
    if (!TakeKeyword(keyword)) Fail({message::kKeywordExpected, {{"<Keyword>", keyword}}});
  }
  void ExpectEnd() {
    if (token_.kind != TokenKind::kEnd) {
      Fail(message::kTextMustEnd);
    }
  }

  bool AtName() const {
    return token_.kind == TokenKind::kName ||
           (token_.kind == TokenKind::kWord && !IsReserved(token_));
  }
  std::string_view Name();
  ColumnName Column();
  SelectItem Item();
  void Joined(SelectSyntax& select);
  void Source(SelectSyntax& select);
  void Order(SelectSyntax& select);

  // Adds what is joined by AND to the list.
  void AddConjuncts(ConditionSyntax condition, std::vector<ConditionSyntax>& list);
  ConditionSyntax Or();
  ConditionSyntax And();
  ConditionSyntax Not();
  ConditionSyntax Test();
  std::optional<Comparison> TakeComparison();
  OperandSyntax Operand();
  platform::Variant Number(bool negative);

  Lexer lexer_;
  Token token_;
  int depth_ = 0;
  std::size_t parameters_ = 0;
};

std::string_view Parser::Name() {
  if (!AtName()) Fail(message::kNameExpected);
  const std::string_view name = token_.text;
  Advance();
  return name;
}

ColumnName Parser::Column() {
  ColumnName column;
  column.offset = token_.offset;
  column.name = Name();
  if (TakeSymbol(".")) {
    column.table = column.name;
    column.name = Name();
  }
  return column;
}

SelectItem Parser::Item() {
  SelectItem item;
  item.column.offset = token_.offset;
  if (TakeSymbol("*")) {
    item.kind = SelectItem::Kind::kAll;
    return item;
  }
  item.column.name = Name();
  if (TakeSymbol(".")) {
    item.column.table = item.column.name;
    if (TakeSymbol("*")) {
      item.kind = SelectItem::Kind::kAllOfTable;
    } else {
      item.column.name = Name();
    }
  }
  return item;
}

SelectSyntax Parser::Select() {
  SelectSyntax select;
  ExpectKeyword("SELECT");
  do {
    select.items.push_back(Item());
  } while (TakeSymbol(","));
  ExpectKeyword("FROM");
  Joined(select);
  if (TakeKeyword("WHERE")) AddConjuncts(Or(), select.conditions);
  if (TakeKeyword("ORDER")) Order(select);
  TakeSymbol(";");
  if (token_.kind != TokenKind::kEnd) Fail(message::kOneStatement);
  select.parameters = parameters_;
  return select;
}

void Parser::Joined(SelectSyntax& select) {
  Source(select);
  while (token_.IsKeyword("INNER") || token_.IsKeyword("JOIN")) {
    TakeKeyword("INNER");
    ExpectKeyword("JOIN");
    Source(select);
    ExpectKeyword("ON");
    AddConjuncts(Or(), select.conditions);
  }
}

void Parser::Source(SelectSyntax& select) {
  if (TakeSymbol("(")) {
    Depth depth(*this);
    Joined(select);
    ExpectSymbol(")");
    return;
  }
  const std::size_t offset = token_.offset;
  const std::string_view name = Name();
  const SourceTable source{name, offset, TakeKeyword("AS") ? Name() : std::string_view()};
  for (const SourceTable& table : select.tables) {
    if (SameName(table.Name(), source.Name())) {
      ThrowSyntax(lexer_.source(), offset, message::kNameTwiceInFrom);
    }
  }
  select.tables.push_back(source);
}

void Parser::Order(SelectSyntax& select) {
  ExpectKeyword("BY");
  do {
    OrderItem item;
    item.column = Column();
    if (TakeKeyword("DESC")) {
      item.descending = true;
    } else {
      TakeKeyword("ASC");
    }
    select.order.push_back(item);
  } while (TakeSymbol(","));
}

void Parser::AddConjuncts(ConditionSyntax condition, std::vector<ConditionSyntax>& list) {
  if (condition.kind != ConditionSyntax::Kind::kAnd) {
    list.push_back(std::move(condition));
    return;
  }
  for (ConditionSyntax& operand : condition.operands) AddConjuncts(std::move(operand), list);
}

ConditionSyntax Parser::Or() {
  ConditionSyntax first = And();
  if (!token_.IsKeyword("OR")) return first;
  ConditionSyntax condition;
  condition.kind = ConditionSyntax::Kind::kOr;
  condition.operands.push_back(std::move(first));
  while (TakeKeyword("OR")) condition.operands.push_back(And());
  return condition;
}

ConditionSyntax Parser::And() {
  ConditionSyntax first = Not();
  if (!token_.IsKeyword("AND")) return first;
  ConditionSyntax condition;
  condition.kind = ConditionSyntax::Kind::kAnd;
  condition.operands.push_back(std::move(first));
  while (TakeKeyword("AND")) condition.operands.push_back(Not());
  return condition;
}

ConditionSyntax Parser::Not() {
  Depth depth(*this);
  if (TakeKeyword("NOT")) {
    ConditionSyntax condition;
    condition.kind = ConditionSyntax::Kind::kNot;
    condition.operands.push_back(Not());
    return condition;
  }
  if (TakeSymbol("(")) {
    ConditionSyntax condition = Or();
    ExpectSymbol(")");
    return condition;
  }
  return Test();
}

ConditionSyntax Parser::Test() {
  ConditionSyntax condition;
  condition.left = Operand();
  const bool has_column = condition.left.kind == OperandSyntax::Kind::kColumn;
  if (TakeKeyword("IS")) {
    const bool negated = TakeKeyword("NOT");
    ExpectKeyword("NULL");
    condition.kind = ConditionSyntax::Kind::kIsNull;
    if (!has_column) {
      ThrowSyntax(lexer_.source(), condition.left.offset, message::kOnlyColumnIsNull);
    }
    if (!negated) return condition;
    ConditionSyntax not_null;
    not_null.kind = ConditionSyntax::Kind::kNot;
    not_null.operands.push_back(std::move(condition));
    return not_null;
  }
  if (const auto comparison = TakeComparison()) {
    condition.comparison = *comparison;
    condition.right = Operand();
    // Two constants have nothing to say of a row; it is what a quote leaves that was not doubled.
    if (!has_column && condition.right.kind != OperandSyntax::Kind::kColumn) {
      ThrowSyntax(lexer_.source(), condition.left.offset, message::kComparisonNeedsColumn);
    }
    return condition;
  }
  if (!has_column) Fail(message::kComparisonExpected);
  condition.kind = ConditionSyntax::Kind::kIsTrue;
  return condition;
}

std::optional<Comparison> Parser::TakeComparison() {
  constexpr std::pair<std::string_view, Comparison> kComparisons[] = {
      {"=", Comparison::kEqual},   {"<>", Comparison::kNotEqual},
      {"<", Comparison::kLess},    {"<=", Comparison::kLessEqual},
      {">", Comparison::kGreater}, {">=", Comparison::kGreaterEqual},
  };
  for (const auto& [symbol, comparison] : kComparisons) {
    if (TakeSymbol(symbol)) return comparison;
  }
  return std::nullopt;
}

OperandSyntax Parser::Operand() {
  OperandSyntax operand;
  operand.offset = token_.offset;
  if (AtName()) {
    operand.kind = OperandSyntax::Kind::kColumn;
    operand.column = Column();
  } else if (TakeSymbol("?")) {
    operand.kind = OperandSyntax::Kind::kParameter;
    operand.parameter = parameters_++;
  } else if (token_.kind == TokenKind::kText) {
    operand.literal = Unquote(token_.text);
    Advance();
  } else if (TakeKeyword("NULL")) {
    operand.literal = platform::Null{};
  } else if (TakeKeyword("TRUE")) {
    operand.literal = true;
  } else if (TakeKeyword("FALSE")) {
    operand.literal = false;
  } else {
    const bool negative = token_.IsSymbol("-");
    if (negative || token_.IsSymbol("+")) Advance();
    operand.literal = Number(negative);
  }
  return operand;
}

platform::Variant Parser::Number(bool negative) {
  if (token_.kind != TokenKind::kNumber) Fail(message::kOperandExpected);
  double value = 0;
  const char* end = token_.text.data() + token_.text.size();
  const auto result = std::from_chars(token_.text.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end) Fail(message::kNumberTooLarge);
  Advance();
  if (negative) value = -value;
  constexpr double kMin = std::numeric_limits<std::int32_t>::min();
  constexpr double kMax = std::numeric_limits<std::int32_t>::max();
  if (value >= kMin && value <= kMax && value == static_cast<std::int32_t>(value)) {
    return static_cast<std::int32_t>(value);
  }
  return value;
}

std::vector<ConditionSyntax> Parser::Filter() {
  std::vector<ConditionSyntax> conditions;
  if (token_.kind == TokenKind::kEnd) return conditions;
  do {
    const bool bracket = TakeSymbol("(");
    conditions.push_back(Find());
    if (bracket) ExpectSymbol(")");
  } while (TakeKeyword("AND"));
  ExpectEnd();
  return conditions;
}

ConditionSyntax Parser::Find() {
  if (!AtName()) Fail(message::kCriterionNeedsColumn);
  ConditionSyntax condition = Test();
  if (condition.kind != ConditionSyntax::Kind::kCompare ||
      condition.right.kind != OperandSyntax::Kind::kLiteral) {
    Fail(message::kCriterionComparesColumns);
  }
  const bool equal = condition.comparison == Comparison::kEqual;
  if (!condition.right.literal.IsNull() ||
      (!equal && condition.comparison != Comparison::kNotEqual)) {
    return condition;
  }
  // Unlike a query, a criterion finds Null by comparing with it.
  condition.kind = ConditionSyntax::Kind::kIsNull;
  if (equal) return condition;
  ConditionSyntax not_null;
  not_null.kind = ConditionSyntax::Kind::kNot;
  not_null.operands.push_back(std::move(condition));
  return not_null;
}

}  // namespace

SelectSyntax ParseSelect(std::string_view source) { return Parser(source).Select(); }

std::vector<ConditionSyntax> ParseFilter(std::string_view source) {
  return Parser(source).Filter();
}

ConditionSyntax ParseFind(std::string_view source) {
  const std::vector<ConditionSyntax> conditions = ParseFilter(source);
  if (conditions.size() != 1) {
    ThrowSyntax(source, 0, message::kOneComparison);
  }
  return conditions.front();
}

bool IsSelect(std::string_view source) {
  constexpr std::string_view kSelect = "SELECT";
  source.remove_prefix(std::min(source.find_first_not_of(" \t\r\n"), source.size()));
  if (!SameName(source.substr(0, kSelect.size()), kSelect)) return false;
  return Lexer(source).Next().IsKeyword(kSelect);
}

}  // namespace recordset
