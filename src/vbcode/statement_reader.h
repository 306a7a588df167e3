// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "vbcode/declaration_reader.h"
#include "vbcode/expression_reader.h"
#include "vbcode/line_tokens.h"
#include "vbcode/module_code.h"

namespace vbcode {

// Reads the statements of procedure bodies.
class StatementReader {
 public:
  StatementReader(LineTokens& tokens, ExpressionReader& expressions,
                  DeclarationReader& declarations)
      : tokens_(tokens), expressions_(expressions), declarations_(declarations) {}

  // Before the first statement of a procedure.
  void Begin();
  // The label that a line of a procedure may begin with.
  void ReadLabel();
  // The statements that are left of the line. Whether the last of them ends a procedure.
  bool ReadLine();

  // Branches of #If may open With differently. A mark says what is open.
  using WithMark = std::int32_t;
  WithMark with_mark() const { return with_; }
  void set_with_mark(WithMark mark);
  // From two branches that began with `before` and left differently nothing is known.
  void ForgetWith(WithMark before);

 private:
  struct With {
    WithMark outer = kNone;
    std::int32_t object = kSomeExpression;
  };

  void Read();
  bool ReadStatementOf(NameId word);
  bool ReadNonReserved(NameId word);
  void ReadGeneric();
  void ReadAssignment(Role role);
  void ReadIf();
  void ReadEnd();
  void ReadWith();
  void ReadFor();
  void ReadCase();
  void ReadOn();
  void ReadOpen();
  void ReadGet();
  void ReadTargets(Role role);
  void ReadMid();
  bool ReadSecondProcedureHead();
  bool HasAs() const;
  void PushWith(std::int32_t object);
  void PopWith();

  LineTokens& tokens_;
  ExpressionReader& expressions_;
  DeclarationReader& declarations_;
  std::vector<With> withs_;
  WithMark with_ = kNone;
  bool ends_procedure_ = false;   // so does the last statement
  bool another_follows_ = false;  // without a colon: behind Then and Else
};

}  // namespace vbcode
