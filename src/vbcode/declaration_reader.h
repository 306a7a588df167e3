// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "vbcode/expression_reader.h"
#include "vbcode/line_tokens.h"
#include "vbcode/module_code.h"

namespace vbcode {

// Reads what declares names, at the level of the module and in procedures.
class DeclarationReader {
 public:
  DeclarationReader(LineTokens& tokens, ExpressionReader& expressions, ModuleCode& code)
      : tokens_(tokens), expressions_(expressions), code_(code) {}

  // The kind of the procedure statement that begins here, scope words and Static left aside; its
  // words are read when there is one.
  struct ProcedureHead {
    bool found = false;
    DeclarationKind kind = DeclarationKind::kSub;
    platform::ProcKind proc_kind = platform::ProcKind::kProc;
  };
  ProcedureHead ReadProcedureHead();
  // Name, parameters and type of a procedure. Its index; kNone when it has no name.
  std::int32_t ReadProcedure(const ProcedureHead& head, platform::MemberScope scope,
                             std::int32_t line);
  // The same for one that is declared again inside of another, as in branches of #If: more
  // parameters of the procedure around it.
  void ReadSecondHead();

  // Names apart by commas: a As Long, b(1 To 3) As String.
  void ReadVariables(DeclarationKind kind, platform::MemberScope scope);
  void ReadConstants(DeclarationKind kind, platform::MemberScope scope);
  void ReadExternal(platform::MemberScope scope);
  void ReadEvent(platform::MemberScope scope);
  // The head of an Enum or a Type; false when it has no name.
  bool ReadBlock(DeclarationKind kind, platform::MemberScope scope);
  void ReadEnumMember();
  void ReadTypeMember();
  void ReadImplements();
  void ReadRedim();
  void AddLabel();

  // Where declarations stand.
  std::int32_t procedure = kNone;
  std::int32_t branch = 0;

 private:
  // Takes the name that stands here. REQUIRES: at a word.
  std::int32_t Add(DeclarationKind kind, platform::MemberScope scope);
  Declaration& At(std::int32_t declaration) {
    return code_.declarations[static_cast<std::size_t>(declaration)];
  }
  void ReadAs(std::int32_t declaration);
  TypeName ReadTypeName();
  void ReadArrayMark(std::int32_t declaration);
  void ReadInitialValue();
  void ReadParameters(std::int32_t owner);
  void ReadParameter();

  LineTokens& tokens_;
  ExpressionReader& expressions_;
  ModuleCode& code_;
  std::int32_t block_ = kNone;  // the Enum or Type that is open
};

}  // namespace vbcode
