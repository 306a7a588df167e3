// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "vbcode/line_tokens.h"
#include "vbcode/module_code.h"

namespace vbcode {

// Reads expressions as far as names need it: which names stand where, with which members and
// arguments. Operators have no order here.
class ExpressionReader {
 public:
  ExpressionReader(LineTokens& tokens, ModuleCode& code) : tokens_(tokens), code_(code) {}

  // A name with what follows it: "a.b(1).c". References to all of its names are added.
  struct Chain {
    std::int32_t last = kSomeExpression;  // reference of its last name; kSomeExpression for none
    // Its last parentheses, when it ends with some: the first reference in them.
    std::int32_t parentheses_begin = kNone;
  };
  // Whether a chain can begin here.
  bool AtChain() const;
  // REQUIRES: AtChain().
  Chain ReadChain(Role role);
  void SetRole(const Chain& chain, Role role);
  // The parentheses at the chain's end are no arguments but an expression by itself.
  void DetachParentheses(const Chain& chain);

  // Reads until something that continues no expression. The reference of the chain that is all
  // the expression holds; kNone for others.
  std::int32_t ReadExpression();
  // What is left of one, when an operand was read already.
  void ContinueExpression();
  // Expressions apart by commas or semicolons, to the end of the statement.
  void ReadExpressions();
  // Arguments of the reference without parentheses, the first of that position.
  void ReadArguments(std::int32_t callee, std::int32_t position);
  // "(1 To n, m)" of a declaration. REQUIRES: at the opening parenthesis.
  void ReadBounds();
  // The reference that was added last; kNone for none.
  std::int32_t last_reference() const {
    return static_cast<std::int32_t>(code_.references.size()) - 1;
  }
  // Whatever it is, to the end of the statement.
  void SkipStatement();

  // The object of With for the statements that follow; kNothing for none.
  std::int32_t with_object() const { return with_object_; }
  void set_with_object(std::int32_t reference) { with_object_ = reference; }

 private:
  // Whether the dot or exclamation mark here has a name behind it.
  bool AtMember() const;
  std::int32_t AddReference(std::int32_t previous, Role role);
  // True when it was an operand; `chain` becomes the reference of one that is nothing else.
  bool ReadOperand(std::int32_t& chain);
  void ReadNewObject();
  void ReadTypeOf();
  bool ReadOperator();
  void TakeEmptyParentheses(const Chain& chain);
  void ReadMembers(Chain& chain, Role role);
  void ReadParenthesized(std::int32_t callee);
  void ReadArgument(std::int32_t callee, std::int32_t position);
  bool ReadSpecialArgument(std::int32_t callee, std::int32_t position);
  void SkipToken();

  LineTokens& tokens_;
  ModuleCode& code_;
  std::int32_t with_object_ = kNothing;
  int depth_ = 0;
};

}  // namespace vbcode
