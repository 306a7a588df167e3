// SPDX-License-Identifier: MIT
// Files keep every byte that was not edited. The lines of these tests carry numbers of their own,
// so that the judge is not the code under test.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/vbfiles/class_project.h"

namespace vbfiles {
namespace {

constexpr const char* kForm =
    "VERSION 5.00\r\nObject = \"{831}#2.0#0\"; \"M.OCX\"\r\nBegin VB.Form f \r\n"
    "   BeginProperty Font \r\n      Name = \"End\"\r\n   EndProperty\r\nEnd\r\n"
    "Attribute VB_Name = \"f\"\r\n";

// A file as a list of visible lines.
struct FileModel {
  struct Line {
    std::string text;
    std::string terminator;
    std::string hidden;
  };
  std::string header;
  std::vector<Line> lines;
  std::string trailer;
  bool unterminated = false;

  std::string Bytes() const {
    std::string bytes = header;
    for (const Line& line : lines) bytes += line.text + line.terminator + line.hidden;
    if (unterminated && !lines.empty()) {
      bytes.resize(bytes.size() - lines.back().terminator.size());
    }
    return bytes + trailer;
  }
  void Insert(std::size_t at, const std::vector<std::string>& texts) {
    const std::string terminator = lines.empty() ? "\r\n" : lines[at > 0 ? at - 1 : 0].terminator;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at + i), {texts[i], terminator, ""});
    }
  }
};

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t n) { return random_() % n; }
  template <typename T>
  const T& Of(const std::vector<T>& choices) {
    return choices[Below(choices.size())];
  }

  // A line that no rule takes for a declaration or an attribute; never empty.
  std::string Line() {
    std::string text = Of<std::string>({"x", "  y = ", "' ", "\t", "\"", "'", "If \xE4 "});
    text += std::to_string(next_++);
    for (std::size_t i = Below(12); i > 0; --i) {
      text += static_cast<char>(Below(8) == 0 ? 0x80 + Below(128) : ' ' + Below(90));
    }
    return Below(200) == 0 ? text + std::string(100000, 'z') : text + (Below(10) == 0 ? " _" : "");
  }

  FileModel File() {
    FileModel file;
    file.header = Of<std::string>(
        {"", ClassProject::Header(), "\xEF\xBB\xBF" + ClassProject::Header(),
         "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"C\"\n",
         "Attribute VB_Name = \"MMain\"\r\nAttribute VB_Ext_KEY = \"a\" ,\"b\"\r\n", kForm});
    const std::string only = Of<std::string>({"\r\n", "\r\n", "\n", "\r", ""});
    for (std::size_t i = Below(30); i > 0; --i) {
      FileModel::Line line{Line(), only.empty() ? Of<std::string>({"\r\n", "\n", "\r"}) : only, ""};
      if (only == "\r\n" && Below(5) == 0) line.text.clear();
      for (std::size_t h = Below(8) == 0 ? Below(3) : 0; h > 0; --h) {
        line.hidden += "Attribute m" + std::to_string(next_++) + ".VB_HelpID = 1" + line.terminator;
      }
      file.lines.push_back(line);
    }
    // A blank line first, so that a file without header is recognised as source.
    if (file.header.empty()) file.lines.insert(file.lines.begin(), {"' source", "\r\n", ""});
    file.unterminated = !file.lines.empty() && !file.lines.back().text.empty() && Below(3) == 0;
    if (file.unterminated) {  // what the last line lacks is taken from the line above
      const std::size_t last = file.lines.size() - 1;
      const std::string missing = last > 0 ? file.lines[last - 1].terminator : "\r\n";
      file.lines[last] = {file.lines[last].text, missing, ""};
    }
    file.trailer = Of<std::string>({"", "", std::string(3, '\0'), "\x1A"});
    return file;
  }

 private:
  std::mt19937 random_;
  int next_ = 1000;
};

bool HoldsY(const std::string& text) {
  std::string word;
  for (const char c : text + " ") {
    const bool in_word = std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c < 0;
    if (!in_word && (word == "y" || word == "Y")) return true;
    if (in_word) {
      word += c;
    } else {
      word.clear();
    }
  }
  return false;
}

std::optional<std::int32_t> FirstWithY(const FileModel& file, std::size_t begin) {
  for (std::size_t at = begin; at < file.lines.size(); ++at) {
    if (HoldsY(file.lines[at].text)) return static_cast<std::int32_t>(at) + 1;
  }
  return std::nullopt;
}

int Rounds(int usual) { return std::getenv("OV_LONG") != nullptr ? usual * 50 : usual; }

TEST(ModuleBytes, WhatIsNotEditedStays) {
  Generator generator(6);
  for (int round = 0; round < Rounds(200); ++round) {
    SCOPED_TRACE(round);
    const FileModel file = generator.File();
    ClassProject project(file.Bytes(), {}, true);
    platform::CodeModule& module = project.Module();
    ASSERT_EQ(module.CountOfLines(), static_cast<std::int32_t>(file.lines.size()));
    const auto line = static_cast<std::int32_t>(generator.Below(file.lines.size() + 1)) + 1;
    module.InsertLines(line, "' comes\r\nand goes _");
    module.DeleteLines(line, 2);
    files::ChangeSet changes;
    project.environment.Collect(changes);
    ASSERT_TRUE(changes.files.empty()) << "nothing to write";
  }
}

TEST(ModuleBytes, EditsChangeTheirOwnLinesOnly) {
  Generator generator(7);
  for (int round = 0; round < Rounds(100); ++round) {
    FileModel file = generator.File();
    ClassProject project(file.Bytes(), {}, true);
    platform::CodeModule& module = project.Module();
    const CodePage& page = CodePage::Get(1252);
    for (int edit = 0; edit < 20; ++edit) {
      SCOPED_TRACE("round " + std::to_string(round) + ", edit " + std::to_string(edit));
      std::vector<std::string> texts;
      std::string joined;
      for (std::size_t i = generator.Below(3) + 1; i > 0; --i) {
        texts.push_back(generator.Line().substr(0, 900));
        joined += (joined.empty() ? "" : "\r\n") + page.ToUtf8(texts.back());
      }
      const std::size_t at = generator.Below(file.lines.size() + 1);
      const auto line = static_cast<std::int32_t>(at) + 1;
      const std::size_t kind = at == file.lines.size() ? 0 : generator.Below(3);
      if (kind == 0) {
        file.Insert(at, texts);
        module.InsertLines(line, joined);
      } else if (kind == 1) {
        const std::size_t count = std::min(generator.Below(3) + 1, file.lines.size() - at);
        file.lines.erase(file.lines.begin() + static_cast<std::ptrdiff_t>(at),
                         file.lines.begin() + static_cast<std::ptrdiff_t>(at + count));
        module.DeleteLines(line, static_cast<std::int32_t>(count));
      } else {
        FileModel::Line& replaced = file.lines[at];
        if (!replaced.hidden.empty()) continue;  // attributes of nothing: tested elsewhere
        replaced.text = texts.back();
        texts.pop_back();
        file.Insert(at, texts);
        module.ReplaceLine(line, joined);
      }
      ASSERT_EQ(module.CountOfLines(), static_cast<std::int32_t>(file.lines.size()));
      ASSERT_EQ(project.Written(), file.Bytes());
      ASSERT_EQ(module.Find("Y", line, module.CountOfLines()), FirstWithY(file, at));
      ASSERT_FALSE(module.Find("VB_HelpID", 1, module.CountOfLines())) << "it is hidden";
      if (generator.Below(7) != 0) continue;
      project.CommitChanges();
      ClassProject again(file.Bytes(), {}, true);
      if (again.Module().CountOfLines() == 0) break;  // nothing in it is recognised as source
      ASSERT_EQ(project.Text(), again.Text()) << "reading the file shows other lines";
      // Comments may have become attributes, line ends of two kinds one; which line end the last
      // line would have had is forgotten.
      if (file.unterminated ||
          again.Module().CountOfLines() != static_cast<std::int32_t>(file.lines.size()))
        break;
    }
  }
}

TEST(ModuleBytes, EndsOfFiles) {
  struct Case {
    const char* what;
    std::string before;
    std::string after;  // "x" appended as a line
  };
  const std::string zeros(2, '\0');
  const Case cases[] = {
      {"with a line end", "Dim a\r\n", "Dim a\r\nx\r\n"},
      {"without", "Dim a\nDim b", "Dim a\nDim b\nx"},
      {"one line without", "Dim a", "Dim a\r\nx"},
      {"zero bytes behind the last line end", "Dim a\r\n" + zeros, "Dim a\r\nx\r\n" + zeros},
      {"zero bytes behind the last line", "Dim a" + zeros, "Dim a\r\nx" + zeros},
      {"attribute line last", "Dim a\r\nAttribute a.VB_VarHelpID = 1",
       "Dim a\r\nAttribute a.VB_VarHelpID = 1\r\nx"},
      {"nothing", "", "x\r\n"},
      {"header only, without a line end", "Attribute VB_Name = \"M\"",
       "Attribute VB_Name = \"M\"\r\nx"},
      {"CR alone", "Dim a\rDim b\r", "Dim a\rDim b\rx\r"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ClassProject project(c.before, {}, true);
    project.Module().AddFromString("x\r\n");
    EXPECT_EQ(project.Written(), c.after);
  }
}

TEST(ModuleBytes, ALineEndThatTheFileLacksIsNoneOfTheLineAbove) {
  // Blank lines with line ends of both kinds become neighbours and look like a pair.
  ClassProject project("Dim a\n\r'\n\nDim b", {}, true);
  project.Module().DeleteLines(5, 1);
  project.Module().DeleteLines(3, 1);
  EXPECT_EQ(project.Written(), "Dim a\n\r");
}

}  // namespace
}  // namespace vbfiles
