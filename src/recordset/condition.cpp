// SPDX-License-Identifier: MIT
#include "recordset/condition.h"

#include <algorithm>
#include <compare>
#include <optional>

#include "platform/ado.h"
#include "recordset/sql_lexer.h"
#include "recordset/value_comparison.h"

namespace recordset {
namespace {

using jet::Value;
using platform::Variant;

const Value& ValueOf(const Operand& operand, std::span<const jet::RowBuffer> rows) {
  return operand.is_column ? rows[operand.column.table][operand.slot] : operand.value;
}

Truth ToTruth(bool v) { return v ? Truth::kTrue : Truth::kFalse; }

Truth Compare(const Condition& condition, std::span<const jet::RowBuffer> rows) {
  const Value& left = ValueOf(condition.left, rows);
  const Value& right = ValueOf(condition.right, rows);
  if (left.is_null() || right.is_null()) return Truth::kUnknown;
  switch (condition.comparison) {
    case Comparison::kEqual:
      return ToTruth(EqualValues(left, right));
    case Comparison::kNotEqual:
      return ToTruth(!EqualValues(left, right));
    case Comparison::kLess:
      return ToTruth(std::is_lt(CompareValues(left, right)));
    case Comparison::kLessEqual:
      return ToTruth(std::is_lteq(CompareValues(left, right)));
    case Comparison::kGreater:
      return ToTruth(std::is_gt(CompareValues(left, right)));
    case Comparison::kGreaterEqual:
      return ToTruth(std::is_gteq(CompareValues(left, right)));
  }
  return Truth::kUnknown;
}

// A constant as the engine's value; nothing for what cannot be compared with a column.
std::optional<Value> ToConstant(const Variant& variant) {
  if (variant.IsNull() || variant.IsEmpty()) return Value::Null();
  if (auto v = variant.Get<bool>()) return Value::Boolean(*v);
  if (auto v = variant.Get<std::int32_t>()) return Value::Integer(*v);
  if (auto v = variant.Get<double>()) return Value::Real(*v);
  if (auto v = variant.Get<platform::Date>()) return Value::Date(v->days);
  if (auto v = variant.Get<std::string>()) return Value::Text(*v);
  return std::nullopt;
}

}  // namespace

std::size_t NeededColumns::Slot(TableColumn column) {
  std::vector<std::size_t>& columns = columns_[column.table];
  const auto found = std::find(columns.begin(), columns.end(), column.column);
  const auto slot = static_cast<std::size_t>(found - columns.begin());
  if (found == columns.end()) columns.push_back(column.column);
  return slot;
}

Truth Evaluate(const Condition& condition, std::span<const jet::RowBuffer> rows) {
  switch (condition.kind) {
    case Condition::Kind::kCompare:
      return Compare(condition, rows);
    case Condition::Kind::kIsNull:
      return ToTruth(ValueOf(condition.left, rows).is_null());
    case Condition::Kind::kIsTrue: {
      const Value& value = ValueOf(condition.left, rows);
      if (value.is_null()) return Truth::kUnknown;
      return ToTruth(!EqualValues(value, Value::Integer(0)));
    }
    case Condition::Kind::kNot:
      switch (Evaluate(condition.operands.front(), rows)) {
        case Truth::kFalse:
          return Truth::kTrue;
        case Truth::kTrue:
          return Truth::kFalse;
        case Truth::kUnknown:
          return Truth::kUnknown;
      }
      return Truth::kUnknown;
    case Condition::Kind::kAnd: {
      Truth truth = Truth::kTrue;
      for (const Condition& operand : condition.operands) {
        truth = std::min(truth, Evaluate(operand, rows));
        if (truth == Truth::kFalse) break;
      }
      return truth;
    }
    case Condition::Kind::kOr: {
      Truth truth = Truth::kFalse;
      for (const Condition& operand : condition.operands) {
        truth = std::max(truth, Evaluate(operand, rows));
        if (truth == Truth::kTrue) break;
      }
      return truth;
    }
  }
  return Truth::kUnknown;
}

Condition ConditionBinder::Bind(const ConditionSyntax& syntax) {
  Condition condition;
  condition.kind = syntax.kind;
  condition.comparison = syntax.comparison;
  for (const ConditionSyntax& operand : syntax.operands) {
    condition.operands.push_back(Bind(operand));
    condition.tables |= condition.operands.back().tables;
  }
  if (!syntax.operands.empty()) return condition;

  condition.left = BindOperand(syntax.left);
  if (syntax.kind == Condition::Kind::kCompare) {
    condition.right = BindOperand(syntax.right);
    CheckComparable(condition.left, condition.right, syntax.left.offset);
  } else if (syntax.kind == Condition::Kind::kIsTrue &&
             FamilyOf(TypeOf(condition.left)) != Family::kNumber) {
    ThrowAt(platform::kErrTypeMismatch, source_, syntax.left.offset, message::kTextIsNoCondition);
  }
  for (const Operand* operand : {&condition.left, &condition.right}) {
    if (operand->is_column) condition.tables |= 1u << operand->column.table;
  }
  return condition;
}

Operand ConditionBinder::BindOperand(const OperandSyntax& syntax) {
  Operand operand;
  if (syntax.kind == OperandSyntax::Kind::kColumn) {
    operand.is_column = true;
    operand.column = resolve_(syntax.column);
    operand.slot = needed_.Slot(operand.column);
    return operand;
  }
  const bool parameter = syntax.kind == OperandSyntax::Kind::kParameter;
  if (parameter &&
      (syntax.parameter >= parameters_.size() || parameters_[syntax.parameter].IsMissing())) {
    ThrowAt(platform::kErrParameter, source_, syntax.offset, message::kParameterMissing);
  }
  const auto value = ToConstant(parameter ? parameters_[syntax.parameter] : syntax.literal);
  if (!value) {
    ThrowAt(platform::kErrTypeMismatch, source_, syntax.offset, message::kCannotCompareValue);
  }
  operand.value = *value;
  return operand;
}

jet::ColumnType ConditionBinder::TypeOf(const Operand& operand) const {
  return tables_[operand.column.table]->columns()[operand.column.column].type;
}

void ConditionBinder::CheckComparable(const Operand& left, const Operand& right,
                                      std::size_t offset) const {
  auto family = [&](const Operand& operand) -> std::optional<Family> {
    if (operand.is_column) return FamilyOf(TypeOf(operand));
    if (operand.value.is_null()) return std::nullopt;
    return FamilyOf(operand.value);
  };
  const auto a = family(left), b = family(right);
  if (a == Family::kBytes || b == Family::kBytes) {
    ThrowAt(platform::kErrTypeMismatch, source_, offset, message::kCannotCompareColumn);
  }
  if (a && b && *a != *b) {
    ThrowAt(platform::kErrTypeMismatch, source_, offset, message::kTextWithNumber);
  }
}

}  // namespace recordset
