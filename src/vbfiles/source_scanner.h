// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/vbide.h"
#include "vbcode/source_lexer.h"
#include "vbcode/source_lines.h"
#include "vbfiles/code_page.h"

namespace vbfiles {

// What encloses a line.
enum class ScanMode : std::uint8_t { kModule, kProcedure, kType, kEnum };

// Whether a physical line continues the one above it.
enum class Continuation : std::uint8_t { kNone, kCode, kComment };

enum class LineClass : std::uint8_t { kBlank, kComment, kCode };

enum class DirectiveMark : std::uint8_t { kNone, kIf, kEndIf };

// What the scanner keeps of a line. `mode` and `continuation` hold before the line and so depend
// on the lines above it alone.
struct LineInfo {
  ScanMode mode : 2 = ScanMode::kModule;
  Continuation continuation : 2 = Continuation::kNone;
  LineClass line_class : 2 = LineClass::kBlank;
  DirectiveMark directive : 2 = DirectiveMark::kNone;
  // A declaration (of no procedure) or a directive ends on this line.
  bool declaration_ends = false;
};

// A name as it stands in a line.
struct NamePlace {
  std::int32_t line = 0;
  std::uint32_t column = 0;  // from 0
  std::uint32_t length = 0;
  std::uint32_t hash = 0;  // CodePage::NameHash
};

inline constexpr std::int32_t kToModuleEnd = -1;
inline constexpr std::int32_t kUnknownLine = 0;

struct Procedure {
  NamePlace name;
  std::int32_t body_line = 0;                // declaration line
  std::int32_t end_line = kToModuleEnd;      // kToModuleEnd while no end statement was found
  std::int32_t region_start = kUnknownLine;  // filled in by LineOwnership
  platform::ProcKind kind = platform::ProcKind::kProc;
  platform::MemberScope scope = platform::MemberScope::kPublic;
};

// A variable, constant, event or external procedure.
struct Declaration {
  NamePlace name;
  std::int32_t line = 0;  // on which the statement starts
  platform::MemberType type = platform::MemberType::kVariable;
  platform::MemberScope scope = platform::MemberScope::kPublic;
};

struct ScanResult {
  std::vector<Procedure> procedures;
  std::vector<Declaration> declarations;
  // End line of the procedure that was open when the scan began.
  std::int32_t open_end_line = kToModuleEnd;
  // What a line behind the last one scanned would continue.
  Continuation pending = Continuation::kNone;
};

// Reads Visual Basic source one logical line at a time.
class SourceScanner {
 public:
  SourceScanner(const vbcode::SourceLines& lines, const CodePage& page)
      : lines_(lines), page_(page) {}

  // Scans the logical line that begins at `line` in `mode`, which becomes the mode behind it.
  // Describes its physical lines in infos[line - 1]... and adds what it declares to `result`.
  // Returns the line behind it.
  std::int32_t Scan(std::int32_t line, ScanMode& mode, std::span<LineInfo> infos,
                    ScanResult& result) const;

 private:
  const vbcode::SourceLines& lines_;
  const CodePage& page_;
};

}  // namespace vbfiles
