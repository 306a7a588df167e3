// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "vbcode/module_code.h"
#include "vbcode/names.h"
#include "vbcode/source_lexer.h"

namespace vbcode {

struct CodeToken : Token {
  NameId name = kNoName;     // of a word
  NameId keyword = kNoName;  // the same for a word of the language without brackets
  char sign = '\0';          // of punctuation
};

// The tokens of one logical line, and how far they are read.
class LineTokens {
 public:
  explicit LineTokens(Names& names) : names_(names) {}

  // Takes all that is left of the lexer's line.
  void Fill(Lexer& lexer) {
    tokens_.clear();
    at_ = 0;
    for (;;) {
      CodeToken& token = tokens_.emplace_back();
      lexer.Next(token);
      if (token.kind == TokenKind::kWord) {
        token.name = token.bracketed ? names_.Intern(token.text) : names_.InternWord(token.text);
        if (!token.bracketed && token.name <= kLanguageWords.size()) token.keyword = token.name;
      } else if (token.kind == TokenKind::kOther && token.text.size() == 1) {
        token.sign = token.text[0];
      }
      if (token.kind == TokenKind::kEnd) return;
    }
  }

  Names& names() { return names_; }
  const CodeToken& Peek() const { return tokens_[at_]; }
  const CodeToken& Peek(std::size_t ahead) const {
    return tokens_[at_ + ahead < tokens_.size() ? at_ + ahead : tokens_.size() - 1];
  }
  std::size_t position() const { return at_; }
  void Advance() {
    if (at_ + 1 < tokens_.size()) ++at_;
  }

  bool AtWord() const { return Peek().kind == TokenKind::kWord; }
  bool At(NameId keyword) const { return Peek().keyword == keyword; }
  bool Take(NameId keyword) {
    if (!At(keyword)) return false;
    Advance();
    return true;
  }
  bool AtSign(char sign) const { return Peek().sign == sign; }
  bool AtSign(char sign, std::size_t ahead) const { return Peek(ahead).sign == sign; }
  bool TakeSign(char sign) {
    if (!AtSign(sign)) return false;
    Advance();
    return true;
  }
  bool AtLineEnd() const { return Peek().kind == TokenKind::kEnd; }
  // Else ends the statement in front of it on the same line.
  bool AtStatementEnd() const {
    return AtLineEnd() || Peek().kind == TokenKind::kColon || At(Keyword("else"));
  }
  // Whether a member of what was read last stands here: no blank may part it from its dot, a
  // continued line may.
  bool IsAttached() const {
    return Peek().glued || (at_ > 0 && tokens_[at_ - 1].line != Peek().line);
  }
  Place PlaceHere() const {
    const CodeToken& token = Peek();
    return {token.line, static_cast<std::uint32_t>(token.column),
            static_cast<std::uint32_t>(token.text.size())};
  }

 private:
  Names& names_;
  std::vector<CodeToken> tokens_;  // the last is kEnd
  std::size_t at_ = 0;
};

}  // namespace vbcode
