// SPDX-License-Identifier: MIT
#include "vbfiles/line_encoder.h"

#include <cstdio>

#include "platform/error.h"
#include "platform/text.h"
#include "vbcode/source_lexer.h"
#include "vbfiles/errors.h"
#include "vbfiles/messages.h"
#include "vbfiles/physical_lines.h"

namespace vbfiles {

namespace {

constexpr std::size_t kMaxLineLength = 1023;

std::string CodePointName(char32_t character) {
  char name[16];
  std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(character));
  return name;
}

messages::Message PlaceOf(const LinePlace& place) {
  return {message::kLineOf, {{"<Line>", place.line}, {"<Path>", place.file}}};
}

[[noreturn]] void RefuseCharacter(std::string_view text, char32_t character, const LinePlace& place,
                                  const CodePage& page) {
  const std::string shown = character < 0x20 ? "" : " " + std::string(text);
  throw platform::Error(platform::ErrorKind::kRefused, kErrInvalidCall,
                        Joined({message::kNotInCodePage,
                                {{"<Character>", shown},
                                 {"<Code>", CodePointName(character)},
                                 {"<Place>", PlaceOf(place)},
                                 {"<Number>", page.number()}}},
                               message::kUseOtherCharacter));
}

std::string EncodeLine(std::string_view text, const LinePlace& place, const CodePage& page,
                       std::size_t comment_start, std::string& lacking) {
  const std::size_t plain = CodePage::PlainLength(text);
  std::string bytes(text.substr(0, plain));
  for (std::size_t position = plain; position < text.size();) {
    const std::size_t begin = position;
    const char32_t character = platform::NextCodePoint(text, position);
    if (page.Append(bytes, character)) continue;
    const std::string_view shown = text.substr(begin, position - begin);
    if (begin < comment_start) RefuseCharacter(shown, character, place, page);
    bytes += '?';
    lacking += shown;
  }
  if (bytes.size() > kMaxLineLength) {
    throw platform::Error(
        platform::ErrorKind::kRefused, kErrInvalidCall,
        Joined({message::kLineTooLong, {{"<Place>", PlaceOf(place)}, {"<Count>", bytes.size()}}},
               message::kShorten));
  }
  return bytes;
}

}  // namespace

std::vector<std::string> EncodeLines(std::string_view text, const LinePlace& place,
                                     const CodePage& page,
                                     std::vector<ReplacedCharacters>& replaced) {
  std::vector<std::string> lines;
  std::vector<ReplacedCharacters> found;
  LinePlace at = place;
  for (std::size_t begin = 0;;) {
    const PhysicalLine physical = ReadPhysicalLine(text, begin);
    const std::string_view line = TextOf(text, physical);
    const std::size_t comment =
        vbcode::CommentStart(line, vbcode::kNoLeadBytes, at.continues_comment);
    std::string lacking;
    lines.push_back(EncodeLine(line, at, page, comment, lacking));
    if (!lacking.empty()) found.push_back({at.file, at.line, lacking});
    if (!physical.terminated()) break;
    begin = physical.next;
    ++at.line;
    at.continues_comment = vbcode::IsContinued(line) && comment < line.size();
  }
  replaced.insert(replaced.end(), found.begin(), found.end());
  return lines;
}

}  // namespace vbfiles
