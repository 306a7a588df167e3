// SPDX-License-Identifier: MIT
// The lines of a sub in its module: where they are, which of those above it are its header, and
// how that is rewritten.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "codegen/templates.h"
#include "platform/vbide.h"

namespace codegen {

// A sub of a module: where its declaration stands.
struct SubLocation {
  std::string name;             // as spelled in the declaration
  std::int32_t body_line = 0;   // the declaration
  std::int32_t start_line = 0;  // first line that the code model counts to it
};

// The sub of that name with a procedure body. Nothing for any other member: a function, a
// property, a variable, a declaration of an external procedure.
std::optional<SubLocation> FindSub(platform::CodeModule& module, std::string_view name);

// The physical lines of the declaration statement.
std::vector<std::string> DeclarationLines(platform::CodeModule& module, const SubLocation& sub);

// The lines from the declaration to the procedure's end. Blank lines behind the last procedure of
// a module count to it for the code model, but not here.
std::vector<std::string> ProcedureLines(platform::CodeModule& module, const SubLocation& sub);

// The comment and blank lines directly above a declaration that belong to its procedure. Ends
// below any other line and below the end of a commented-out procedure, whoever owns that.
struct HeaderRegion {
  std::int32_t first_line = 0;
  std::vector<std::string> lines;  // up to the declaration, which is not included
};
HeaderRegion FindHeaderRegion(platform::CodeModule& module, const SubLocation& sub);

// Only the blank lines directly above the declaration, and the lines from `floor` on.
HeaderRegion LimitedRegion(HeaderRegion region, std::int32_t floor);

// The region's lines with `header` in place of a generated header. Everything that the generator
// did not write stays above it, an empty line apart.
std::vector<std::string> WithHeader(const std::vector<std::string>& region,
                                    const std::vector<std::string>& header,
                                    const Templates& templates);

// A header as the generator writes it, in whatever language: title and aliases of a formula.
struct GeneratedHeader {
  std::string title;
  std::vector<std::string> aliases;
  bool is_whole =
      false;  // stands at the region's end with nothing in it that does not belong there
};
// The last one of a region.
std::optional<GeneratedHeader> FindGeneratedHeader(const std::vector<std::string>& region,
                                                   const Templates& templates);

// Whether the header is that of the formula, its aliases in whatever order.
bool IsHeaderOf(const GeneratedHeader& header, std::string_view name,
                const std::vector<std::string>& aliases, const Templates& templates);

// Turns `old_lines`, which begin at `first_line`, into `new_lines`; lines that stand already are
// not touched.
void RewriteLines(platform::CodeModule& module, std::int32_t first_line,
                  const std::vector<std::string>& old_lines,
                  const std::vector<std::string>& new_lines);

}  // namespace codegen
