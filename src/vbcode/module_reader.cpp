// SPDX-License-Identifier: MIT
#include "vbcode/module_reader.h"

#include <vector>

#include "vbcode/declaration_reader.h"
#include "vbcode/expression_reader.h"
#include "vbcode/line_tokens.h"
#include "vbcode/source_lexer.h"
#include "vbcode/statement_reader.h"

namespace vbcode {

namespace {

using platform::MemberScope;

class ModuleReader {
 public:
  ModuleReader(const SourceLines& lines, Names& names) : lines_(lines), tokens_(names) {}

  ModuleCode Read() {
    code_.branches.push_back({});
    const std::int32_t count = lines_.LineCount();
    code_.references.reserve(static_cast<std::size_t>(count) * 2);
    code_.declarations.reserve(static_cast<std::size_t>(count) / 4);
    for (std::int32_t line = 1; line <= count;) line = ReadLine(line);
    if (declarations_.procedure != kNone) CloseProcedure(count);
    return std::move(code_);
  }

 private:
  enum class Mode { kModule, kProcedure, kType, kEnum };

  // A #If that is open.
  struct Conditional {
    std::int32_t group = 0;
    std::int32_t outer_branch = 0;
    std::size_t procedures = 0;  // that were begun before it
    StatementReader::WithMark with_before = kNone;
    StatementReader::WithMark with_behind = kNone;  // the first branch
    bool has_second_branch = false;
    bool differs = false;  // what With opened in the branches
  };

  // Returns the line behind the logical line.
  std::int32_t ReadLine(std::int32_t line) {
    const std::string_view text = lines_.Line(line);
    const std::size_t first = SkipBlanks(text);
    if (first == text.size()) return line + 1;
    if (text[first] == '\'' && !IsContinued(text)) return line + 1;
    const bool directive = text[first] == '#';
    Lexer lexer(lines_, kNoLeadBytes, line, directive ? first + 1 : first);
    tokens_.Fill(lexer);
    if (directive) {
      ReadDirective(line);
    } else {
      ReadStatements(lexer.last_line());
    }
    return lexer.last_line() + 1;
  }

  void ReadStatements(std::int32_t last_line) {
    if (mode_ == Mode::kProcedure) {
      statements_.ReadLabel();
    } else if (tokens_.Peek().kind == TokenKind::kNumber && tokens_.Peek().text[0] != '&') {
      tokens_.Advance();
    }
    while (mode_ != Mode::kProcedure && !tokens_.AtLineEnd()) {
      if (tokens_.Peek().kind == TokenKind::kColon) {
        tokens_.Advance();
        continue;
      }
      if (mode_ == Mode::kModule) {
        ReadModuleStatement();
      } else {
        ReadBlockStatement();
      }
      SkipModuleStatement();
    }
    if (mode_ == Mode::kProcedure && statements_.ReadLine()) CloseProcedure(last_line);
  }

  void SkipModuleStatement() {
    while (!tokens_.AtLineEnd() && tokens_.Peek().kind != TokenKind::kColon) tokens_.Advance();
  }

  void ReadModuleStatement() {
    const std::int32_t line = tokens_.Peek().line;
    if (tokens_.Take(Keyword("option"))) return;
    if (tokens_.Take(Keyword("implements"))) return declarations_.ReadImplements();
    MemberScope scope = MemberScope::kPublic;
    bool scoped = true;
    bool variables = true;
    if (tokens_.Take(Keyword("public")) || tokens_.Take(Keyword("global"))) {
    } else if (tokens_.Take(Keyword("private")) || tokens_.Take(Keyword("dim"))) {
      scope = MemberScope::kPrivate;
    } else if (tokens_.Take(Keyword("friend"))) {
      scope = MemberScope::kFriend;
      variables = false;
    } else {
      scoped = variables = false;
    }
    if (tokens_.Take(Keyword("static"))) variables = false;
    const auto head = declarations_.ReadProcedureHead();
    if (head.found) return OpenProcedure(head, scope, line);
    if (tokens_.Take(Keyword("type"))) {
      if (declarations_.ReadBlock(DeclarationKind::kType, scope)) mode_ = Mode::kType;
    } else if (tokens_.Take(Keyword("enum"))) {
      if (declarations_.ReadBlock(DeclarationKind::kEnum, scope)) mode_ = Mode::kEnum;
    } else if (tokens_.Take(Keyword("const"))) {
      declarations_.ReadConstants(DeclarationKind::kConstant,
                                  scoped ? scope : MemberScope::kPrivate);
    } else if (tokens_.Take(Keyword("event"))) {
      declarations_.ReadEvent(scope);
    } else if (tokens_.Take(Keyword("declare"))) {
      declarations_.ReadExternal(scope);
    } else if (variables) {
      declarations_.ReadVariables(DeclarationKind::kVariable, scope);
    }
  }

  void ReadBlockStatement() {
    const bool is_type = mode_ == Mode::kType;
    if (tokens_.At(Keyword("end")) &&
        tokens_.Peek(1).keyword == (is_type ? Keyword("type") : Keyword("enum"))) {
      mode_ = Mode::kModule;
    } else if (is_type) {
      declarations_.ReadTypeMember();
    } else {
      declarations_.ReadEnumMember();
    }
  }

  void OpenProcedure(const DeclarationReader::ProcedureHead& head, MemberScope scope,
                     std::int32_t line) {
    if (declarations_.ReadProcedure(head, scope, line) == kNone) return;
    mode_ = Mode::kProcedure;
    statements_.Begin();
  }

  void CloseProcedure(std::int32_t line) {
    Procedure& procedure = code_.procedures.back();
    procedure.last_line = line;
    procedure.references_end = static_cast<std::int32_t>(code_.references.size());
    procedure.declarations_end = static_cast<std::int32_t>(code_.declarations.size());
    declarations_.procedure = kNone;
    mode_ = Mode::kModule;
  }

  // Conditions are not judged: all branches are read.
  void ReadDirective(std::int32_t line) {
    if (tokens_.Take(Keyword("if"))) {
      Conditional opened;
      opened.group = ++groups_;
      opened.outer_branch = declarations_.branch;
      opened.procedures = code_.procedures.size();
      opened.with_before = statements_.with_mark();
      conditionals_.push_back(opened);
      BeginBranch(line);
    } else if (conditionals_.empty()) {
      return;
    } else if (tokens_.At(Keyword("elseif")) || tokens_.At(Keyword("else"))) {
      EndBranch();
      conditionals_.back().has_second_branch = true;
      if (IsInOneProcedure(conditionals_.back())) {
        statements_.set_with_mark(conditionals_.back().with_before);
      }
      BeginBranch(line);
    } else if (tokens_.Take(Keyword("end")) && tokens_.At(Keyword("if"))) {
      EndBranch();
      const Conditional closed = conditionals_.back();
      conditionals_.pop_back();
      const bool leaves_open =
          !closed.has_second_branch && closed.with_behind != closed.with_before;
      if (IsInOneProcedure(closed) && (closed.differs || leaves_open)) {
        statements_.ForgetWith(closed.with_before);
      }
      StartBranch(line, closed.outer_branch);
    }
  }

  // What With opened before it counts no more where a procedure began in it.
  bool IsInOneProcedure(const Conditional& conditional) const {
    return conditional.procedures == code_.procedures.size();
  }

  void BeginBranch(std::int32_t line) {
    const Conditional& conditional = conditionals_.back();
    code_.branches.push_back({conditional.outer_branch, conditional.group});
    StartBranch(line, static_cast<std::int32_t>(code_.branches.size()) - 1);
  }

  void EndBranch() {
    Conditional& conditional = conditionals_.back();
    if (!conditional.has_second_branch) {
      conditional.with_behind = statements_.with_mark();
    } else if (conditional.with_behind != statements_.with_mark()) {
      conditional.differs = true;
    }
  }

  void StartBranch(std::int32_t line, std::int32_t branch) {
    declarations_.branch = branch;
    code_.branch_starts.push_back({line, branch});
  }

  const SourceLines& lines_;
  ModuleCode code_;
  LineTokens tokens_;
  ExpressionReader expressions_{tokens_, code_};
  DeclarationReader declarations_{tokens_, expressions_, code_};
  StatementReader statements_{tokens_, expressions_, declarations_};
  Mode mode_ = Mode::kModule;
  std::vector<Conditional> conditionals_;
  std::int32_t groups_ = 0;
};

}  // namespace

ModuleCode ReadModule(const SourceLines& lines, Names& names) {
  return ModuleReader(lines, names).Read();
}

}  // namespace vbcode
