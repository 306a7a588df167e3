// SPDX-License-Identifier: MIT
// The layers below speak English and know no text table; no sentence of theirs may be forgotten.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "texts/message_translator.h"
#include "texts/rows.h"

namespace texts {
namespace {

// Stands for whatever a sentence is put together with.
constexpr std::string_view kValue = "Q7";

struct Token {
  bool is_literal = false;
  std::string text;
  std::size_t line = 0;
};

// Enough of the language for literals and what stands between them.
std::vector<Token> Tokens(std::string_view source) {
  std::vector<Token> tokens;
  std::size_t line = 1;
  for (std::size_t at = 0; at < source.size();) {
    const char c = source[at];
    const auto skip_to = [&](std::string_view end) {
      const std::size_t found = std::min(source.find(end, at + 1), source.size());
      line += static_cast<std::size_t>(
          std::count(source.begin() + static_cast<std::ptrdiff_t>(at),
                     source.begin() + static_cast<std::ptrdiff_t>(found), '\n'));
      at = found;
    };
    if (c == '\n') ++line;
    if (std::isspace(static_cast<unsigned char>(c))) {
      ++at;
    } else if (source.substr(at).starts_with("//") || c == '#') {
      skip_to("\n");
    } else if (c == '"' || c == '\'') {
      std::string text;
      for (++at; at < source.size() && source[at] != c; ++at) {
        if (source[at] == '\\') ++at;
        text += source[at];
      }
      ++at;
      tokens.push_back({c == '"', c == '"' ? text : "0", line});
    } else if (std::isalnum(static_cast<unsigned char>(c)) || c == '_') {
      std::size_t end = at;
      while (std::isalnum(static_cast<unsigned char>(source[end])) || source[end] == '_') ++end;
      tokens.push_back({false, std::string(source.substr(at, end - at)), line});
      at = end;
    } else {
      static const std::set<std::string_view> kPairs = {"::", "->", "+=", "++", "=="};
      const std::size_t size = kPairs.contains(source.substr(at, 2)) ? 2 : 1;
      tokens.push_back({false, std::string(source.substr(at, size)), line});
      at += size;
    }
  }
  return tokens;
}

struct Sentence {
  std::string text;
  std::string place;
};

// Collects the sums of literals and values: "Column " + name + " is lost." gives one sentence.
class Collector {
 public:
  Collector(std::string file, std::vector<Sentence>& sentences)
      : file_(std::move(file)), sentences_(sentences) {}

  void Collect(const std::vector<Token>& tokens) {
    std::size_t at = 0;
    while (at < tokens.size()) {
      CollectLevel(tokens, at);
      ++at;  // a closing bracket too many, because of a macro
    }
  }

 private:
  // Up to the bracket that closes the level. Whether it was literals only, and these.
  std::pair<bool, std::string> CollectLevel(const std::vector<Token>& tokens, std::size_t& at) {
    std::string text;
    std::size_t line = 0;
    bool in_value = false, has_literal = false, only_literals = true;
    const auto flush = [&] {
      if (has_literal) Add(text, line);
      text.clear();
      in_value = has_literal = false;
    };
    const auto add_value = [&] {
      if (!in_value) text += kValue;
      in_value = true;
    };
    for (; at < tokens.size(); ++at) {
      const Token& token = tokens[at];
      if (token.is_literal) {
        text += token.text;
        has_literal = true;
        line = token.line;
        continue;
      }
      const std::string& sign = token.text;
      if (sign == ")" || sign == "]" || sign == "}") break;
      if (sign == "+") {
        in_value = false;
        continue;
      }
      const bool is_cast = sign == "(" && at > 0 && tokens[at - 1].text == "string";
      only_literals = false;
      if (sign == "(" || sign == "[" || sign == "{") {
        if (sign == "{") flush();
        const auto [is_literal, inner] = CollectLevel(tokens, ++at);
        if (is_cast && is_literal) {
          text = text.substr(0, text.size() - kValue.size()) + inner;
          has_literal = true;
          line = token.line;
        } else if (sign != "{") {
          add_value();
        }
      } else if (std::isalnum(static_cast<unsigned char>(sign[0])) || sign == "::" || sign == "." ||
                 sign == "->" || sign == "*" || sign == "_") {
        if (sign == "return") {
          flush();
        } else {
          add_value();
        }
      } else {
        flush();
      }
    }
    const std::string whole = text;
    flush();
    return {only_literals, whole};
  }

  void Add(const std::string& text, std::size_t line) {
    sentences_.push_back({text, file_ + ":" + std::to_string(line)});
  }

  std::string file_;
  std::vector<Sentence>& sentences_;
};

// Doubles of the file system are no part of the program.
bool IsDouble(const std::string& file) {
  return file == "memory_file_system.cpp" || file == "failing_file_system.cpp" ||
         file == "forgetting_file_system.cpp";
}

std::vector<Sentence> SentencesOfEngines() {
  std::vector<Sentence> sentences;
  for (const char* folder : {"files", "jet", "recordset", "vbfiles"}) {
    const auto root = std::filesystem::path(OV_SOURCE_DIR) / "src" / folder;
    for (const auto& entry : std::filesystem::directory_iterator(root)) {
      const std::string name = entry.path().filename().string();
      const bool is_source = name.ends_with(".cpp") || name.ends_with(".h");
      if (!is_source || IsDouble(name)) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string source((std::istreambuf_iterator<char>(file)), {});
      Collector(std::string(folder) + "/" + name, sentences).Collect(Tokens(source));
    }
  }
  return sentences;
}

// Names of formats, of columns and of values have no word in small letters beside a blank.
bool IsProse(const std::string& text) {
  static const std::regex pattern("(^|[^A-Za-z<.])[a-z']{2,} | [a-z']{2,}");
  static const std::set<std::string> kNoMessages = {"words are read in memory order", " trn"};
  return std::regex_search(text, pattern) && !kNoMessages.contains(text);
}

std::vector<std::string> Literals(const std::string& sentence) {
  std::vector<std::string> list;
  std::size_t begin = 0;
  for (std::size_t end = 0; end != std::string::npos; begin = end + kValue.size()) {
    end = sentence.find(kValue, begin);
    list.push_back(sentence.substr(begin, end == std::string::npos ? end : end - begin));
  }
  return list;
}

// Whether the sentence may be a piece of a row: its literals stand there in this order.
bool IsPieceOfRow(const std::string& sentence) {
  const std::vector<std::string> literals = Literals(sentence);
  for (const Area& area : Areas()) {
    if (area.first < kFirstMessage) continue;
    for (const Row& row : area.rows) {
      const std::string_view english = row.english;
      std::size_t at = 0;
      for (const std::string& literal : literals) {
        at = english.find(literal, at);
        if (at == std::string_view::npos) break;
        at += literal.size();
      }
      if (at != std::string_view::npos) return true;
    }
  }
  return false;
}

bool IsWholeSentence(const std::string& text) {
  return std::isupper(static_cast<unsigned char>(text.front())) && !text.starts_with(kValue) &&
         text.ends_with('.');
}

TEST(EngineMessages, AreInTheTable) {
  const MessageTranslator translator(kFirstMessage, kLastMessage);
  std::size_t count = 0;
  for (const Sentence& sentence : SentencesOfEngines()) {
    if (!IsProse(sentence.text)) continue;
    ++count;
    // A value before a sentence is a whole sentence itself.
    static const std::regex before_sentence("Q7 ([A-Z])");
    std::string message = std::regex_replace(sentence.text, before_sentence, "Q7. $1");
    message.erase(0, message.find_first_not_of(' '));
    std::vector<std::string> untranslated = translator.Translate(message).untranslated;
    std::erase_if(untranslated, [](const std::string& part) {
      return part.starts_with(kValue) && part.size() <= kValue.size() + 2;
    });
    if (untranslated.empty()) continue;
    const bool is_piece = !IsWholeSentence(sentence.text) && IsPieceOfRow(sentence.text);
    EXPECT_TRUE(is_piece) << "src/" << sentence.place
                          << " says what no row of src/texts/*_message_rows.cpp translates: \""
                          << sentence.text << "\"";
  }
  EXPECT_GT(count, 250u) << "the sources were not read";
}

TEST(EngineMessages, KeepTheirPlaceholdersApart) {
  for (const Area& area : Areas()) {
    if (area.first < kFirstMessage) continue;
    for (const Row& row : area.rows) {
      EXPECT_EQ(std::string(row.english).find("><"), std::string::npos) << row.english;
      EXPECT_EQ(std::string(row.english).ends_with('.'), std::string(row.german).ends_with('.'))
          << row.english;
    }
  }
}

TEST(MessageTranslator, ReadsWholeMessages) {
  const MessageTranslator translator(kFirstMessage, kLastMessage);
  struct Case {
    const char* english;
    const char* german;
  };
  const Case cases[] = {
      {"", ""},
      {"Plant.ovs cannot be opened: no such file or folder. Check the path.",
       "Plant.ovs lässt sich nicht öffnen: die Datei oder der Ordner ist nicht vorhanden. Prüfen "
       "Sie den Pfad."},
      // A path may hold what ends a sentence, and more.
      {"/Werk 1. Bau: Nord/a cannot be opened/b.cls cannot be read. Check the path.",
       "/Werk 1. Bau: Nord/a cannot be opened/b.cls lässt sich nicht lesen. Prüfen Sie den Pfad."},
      {"/p.ovs, page 4, row 2: Column Name lies outside its row. Restore the file from a backup, "
       "or "
       "let Access compact and repair it.",
       "/p.ovs, Seite 4, Zeile 2: Die Spalte Name liegt außerhalb ihrer Zeile. Stellen Sie die "
       "Datei aus einer Sicherung wieder her, oder lassen Sie sie von Access komprimieren und "
       "reparieren."},
      // Placeholders in another order, and one that is itself a message.
      {"/a.cls was changed by another program at 2024-05-06 07:08:09 UTC (now 12 bytes; 7 bytes "
       "before the change, no file after it).",
       "/a.cls wurde am 2024-05-06 07:08:09 UTC von einem anderen Programm geändert (jetzt 12 "
       "Byte; vor der Änderung 7 Byte, danach keine Datei)."},
      {"Formulas: page 3: The page is used twice: for the map of free pages and for Alias, rows.",
       "Formulas: Seite 3: Die Seite ist doppelt belegt: die Karte der freien Seiten und Alias, "
       "Zeilen."},
      {"3021\r\nThere is no current row; move to a row first.",
       "3021\r\nEs gibt keine aktuelle Zeile; gehen Sie zuerst zu einer Zeile."},
      // What no row fits stays.
      {"p.ovs: Something new happened. Check the path. Then phone.",
       "p.ovs: Something new happened. Prüfen Sie den Pfad. Then phone."},
      {"Prüfen Sie den Pfad.", "Prüfen Sie den Pfad."},
  };
  for (const Case& c : cases) EXPECT_EQ(translator.Translate(c.english).text, c.german);
}

TEST(MessageTranslator, SurvivesAnything) {
  const MessageTranslator translator(kFirstMessage, kLastMessage);
  // Rows turned inside out: every prefix and every suffix, and many in one message.
  std::string all;
  for (const Area& area : Areas()) {
    if (area.first < kFirstMessage) continue;
    for (const Row& row : area.rows) {
      const std::string text = row.english;
      for (std::size_t i = 0; i <= text.size(); i += 7) {
        translator.Translate(text.substr(0, i));
        translator.Translate(text.substr(i));
      }
      if (all.size() < 4000) all += text + ": ";
    }
  }
  EXPECT_FALSE(translator.Translate(all).text.empty());
}

}  // namespace
}  // namespace texts
