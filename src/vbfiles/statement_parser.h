// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "vbcode/source_lexer.h"
#include "vbfiles/source_scanner.h"

namespace vbfiles {

// Takes the statements of one logical line and reports what they declare. Bodies are not
// understood: inside a procedure only its end is looked for.
class StatementParser {
 public:
  StatementParser(vbcode::Lexer& lexer, const CodePage& page, ScanMode mode, ScanResult& result)
      : lexer_(lexer), page_(page), mode_(mode), result_(result) {}

  // Reads to the end of the logical line.
  void Run();

  ScanMode mode() const { return mode_; }  // behind the line
  bool has_tokens() const { return has_tokens_; }
  bool declaration_ends() const { return declaration_ends_; }

 private:
  void Advance();
  void SkipStatement();
  bool AtStatementEnd() const;
  bool AtKeyword(std::string_view keyword) const;
  bool TakeKeyword(std::string_view keyword);

  void Statement();
  void ModuleStatement();
  bool TakeEnd();
  bool TakeProcedure(std::int32_t line, platform::MemberScope scope);
  bool TakeBlock();
  void NameList(std::int32_t line, platform::MemberType type, platform::MemberScope scope);
  void SingleName(std::int32_t line, platform::MemberType type, platform::MemberScope scope);
  NamePlace Place() const;

  vbcode::Lexer& lexer_;
  const CodePage& page_;
  ScanMode mode_;
  ScanResult& result_;
  vbcode::Token token_;
  bool has_tokens_ = false;
  bool declaration_ends_ = false;
  bool procedure_end_ = false;  // the last statement ends a procedure
};

}  // namespace vbfiles
