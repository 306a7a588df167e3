// SPDX-License-Identifier: MIT
// The layers below speak English and know no text table; no sentence of theirs may be forgotten.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "files/messages.h"
#include "jet/messages.h"
#include "recordset/messages.h"
#include "texts/message_translator.h"
#include "texts/rows.h"
#include "vbfiles/messages.h"

namespace texts {
namespace {

struct Literal {
  std::string text;
  std::string place;
};

// The string literals of a source; those that stand side by side are one.
void CollectLiterals(const std::string& file, const std::string& source,
                     std::vector<Literal>& literals) {
  static const std::regex pattern(
      R"re(//[^\n]*|#include[^\n]*|'(?:\\.|[^'])'|"((?:\\.|[^"\\])*)"|\S)re");
  static const std::regex escape(R"re(\\(.))re");
  bool in_literal = false;
  const std::sregex_iterator end;
  for (std::sregex_iterator found(source.begin(), source.end(), pattern); found != end; ++found) {
    if (!found->operator[](1).matched) {
      in_literal = false;
      continue;
    }
    if (!in_literal) {
      const auto line = std::count(source.begin(), source.begin() + found->position(), '\n') + 1;
      literals.push_back({"", file + ":" + std::to_string(line)});
    }
    literals.back().text += std::regex_replace(found->str(1), escape, "$1");
    in_literal = true;
  }
}

// Doubles of the file system are no part of the program.
bool IsDouble(const std::string& file) {
  return file == "memory_file_system.cpp" || file == "failing_file_system.cpp" ||
         file == "forgetting_file_system.cpp";
}

std::vector<Literal> LiteralsOfEngines() {
  std::vector<Literal> literals;
  for (const char* folder : {"files", "jet", "recordset", "vbfiles"}) {
    const auto root = std::filesystem::path(OV_SOURCE_DIR) / "src" / folder;
    for (const auto& entry : std::filesystem::directory_iterator(root)) {
      const std::string name = entry.path().filename().string();
      const bool is_source = name.ends_with(".cpp") || name.ends_with(".h");
      if (!is_source || IsDouble(name)) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string source((std::istreambuf_iterator<char>(file)), {});
      CollectLiterals(std::string(folder) + "/" + name, source, literals);
    }
  }
  return literals;
}

// Names of formats, of columns and of values have no word in small letters beside a blank.
bool IsProse(const std::string& text) {
  static const std::regex pattern("(^|[^A-Za-z<.])[a-z']{2,} | [a-z']{2,}");
  static const std::set<std::string> kNoMessages = {"words are read in memory order", " trn"};
  return std::regex_search(text, pattern) && !kNoMessages.contains(text);
}

// Whether a row has the text, whole or as a piece between its placeholders.
bool StandsInARow(const std::string& text) {
  return std::ranges::any_of(Areas(), [&](const Area& area) {
    return area.first >= kFirstMessage && std::ranges::any_of(area.rows, [&](const Row& row) {
             return std::string_view(row.english).find(text) != std::string_view::npos;
           });
  });
}

TEST(EngineMessages, AreInTheTable) {
  static const std::regex part(R"re([A-Za-z"'(].*?[a-z")](?=[.:;,?] |[.:;,? ]*$))re");
  for (const Literal& literal : LiteralsOfEngines()) {
    if (!IsProse(literal.text)) continue;
    const std::sregex_iterator end;
    for (std::sregex_iterator found(literal.text.begin(), literal.text.end(), part); found != end;
         ++found) {
      EXPECT_TRUE(StandsInARow(found->str()))
          << "src/" << literal.place << " says what no row of src/texts/*_message_rows.cpp has: \""
          << found->str() << '"';
    }
  }
}

TEST(EngineMessages, HaveAGermanRowWithTheSameEnglish) {
  std::map<std::int32_t, const Row*> rows;
  for (const Area& area : Areas()) {
    for (const Row& row : area.rows) rows.emplace(row.number, &row);
  }
  for (const auto& layer :
       {files::Messages(), jet::Messages(), recordset::Messages(), vbfiles::Messages()}) {
    for (const messages::Pattern& pattern : layer) {
      ASSERT_TRUE(rows.contains(pattern.number)) << pattern.number << ' ' << pattern.english;
      EXPECT_EQ(rows[pattern.number]->english, pattern.english);
    }
  }
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
