// SPDX-License-Identifier: MIT
#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "project/ini_encoding.h"

namespace project {

// An INI file: bytes in, bytes out, without the file. Every line that is not set keeps its bytes,
// whatever they are. Names of sections and entries compare without regard to case; of repeated
// sections and entries the first counts. Blanks around names and values do not count, and quotes
// around a value are taken off.
class IniDocument {
 public:
  explicit IniDocument(std::string_view bytes = {});
  IniDocument(const IniDocument&) = delete;
  IniDocument& operator=(const IniDocument&) = delete;

  // The value of an entry as UTF-8; nothing when the section has no such entry.
  std::optional<std::string> Get(std::string_view section, std::string_view entry) const;

  // Sets an entry; a section or entry that is missing is appended. An entry that has the value
  // already keeps its bytes. Control characters in a value become blanks. A value that
  // Windows-1252 cannot hold turns the document into UTF-16 with mark.
  // REQUIRES: the names hold no line ends, the entry no "=", the section no "]".
  void Set(std::string_view section, std::string_view entry, std::string_view value);

  std::string Bytes() const;

 private:
  using Lines = std::list<std::string>;  // encoded, with their line ends, without the mark
  struct Section {
    Lines::iterator last;  // the last line that is not blank: new entries follow it
    std::unordered_map<std::string, Lines::iterator> entries;  // by folded name
  };

  void SplitLines(std::string_view bytes);
  void Index();
  Section& AddSection(std::string_view name);
  // Encoded line; turns the document into UTF-16 first when it must.
  std::string EncodeLine(std::string_view text);
  void ConvertToUtf16();
  void EndLine(std::string& line);
  bool EndsWithLineEnd(const std::string& line) const;

  IniEncoding encoding_;
  std::string line_end_ = "\r\n";  // as UTF-8
  Lines lines_;
  std::unordered_map<std::string, Section> sections_;  // by folded name
};

}  // namespace project
