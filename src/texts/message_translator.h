// SPDX-License-Identifier: MIT
// Messages of the layers that know no text table (database engine, file layer, source files) are
// English. Their sentences are the English texts of rows; a message is translated by finding
// the rows that it is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "texts/rows.h"

namespace texts {

// Translates whole messages from English to German. A message is a run of parts: sentences, or
// what stands before a colon. The English text of a row is the pattern of a part; a placeholder
// stands for any text, which goes over unchanged, or translated if its name begins with "Message".
// A row that ends without a full stop fits before a full stop, a colon or the end. Of several ways
// to read a message the one counts that explains most of it. What no row fits stays as it is.
class MessageTranslator {
 public:
  // Takes the rows with numbers from `first` to `last`.
  MessageTranslator(std::int32_t first, std::int32_t last);

  struct Result {
    std::string text;
    std::vector<std::string> untranslated;  // the parts that no row fits
  };
  Result Translate(std::string_view message) const;

 private:
  // A text and the name of the placeholder behind it, empty behind the last text.
  struct Piece {
    std::string_view text;
    std::string_view placeholder;
  };
  using Pieces = std::vector<Piece>;
  struct Pattern {
    Pieces english;
    Pieces german;
    std::string_view longest;  // text of the English pieces
    int weight = 0;            // characters of the English texts
  };
  struct Match;
  struct Reading;

  static Pieces Split(std::string_view text);
  static void FindMatches(const Pattern& pattern, std::string_view message, std::size_t begin,
                          std::vector<Match>& matches);
  void Append(const Match& match, Result& result) const;

  std::vector<Pattern> patterns_;
};

}  // namespace texts
