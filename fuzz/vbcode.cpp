// SPDX-License-Identifier: MIT
// Two modules of any content in code page 1252, apart by a zero byte: reading them ends, each use
// carries its name at its place, and what was renamed is renamed back to the same text.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "platform/text.h"
#include "vbcode/body_findings.h"
#include "vbcode/rename.h"
#include "vbcode/text_search.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

vbcode::Program Read(const std::string& first, const std::string& second) {
  return vbcode::Program({{"C", "P", vbcode::ModuleKind::kClass, first},
                          {"M", "P", vbcode::ModuleKind::kStandard, second}});
}

std::string TextOf(const vbcode::Program& program, std::int32_t module,
                   const std::vector<vbcode::LineEdit>& edits) {
  std::string text;
  const vbcode::TextLines& lines = *program.module(module).lines;
  auto edit = edits.begin();
  while (edit != edits.end() && edit->module < module) ++edit;
  for (std::int32_t line = 1; line <= lines.LineCount(); ++line) {
    const bool edited = edit != edits.end() && edit->module == module && edit->line == line;
    text += edited ? edit++->text : std::string(lines.Line(line));
    text += '\n';
  }
  return text;
}

void CheckUses(const vbcode::Program& program, const std::string& name) {
  for (const vbcode::Use& use : program.Uses(0, name)) {
    const std::string_view line = program.module(use.module).lines->Line(use.line);
    vbcode::ColumnCounter columns;
    const std::size_t begin = columns.ByteOf(line, use.column - 1);
    const std::size_t end = columns.ByteOf(line, use.column - 1 + use.length);
    Require(platform::EqualsIgnoringCase(line.substr(begin, end - begin), name));
  }
}

void CheckRename(const vbcode::Program& program, const std::string& name) {
  constexpr const char* kNew = "RenamedByTest";
  if (!vbcode::FindText(program, kNew, {}).empty()) return;  // such a use would become a sure one
  const vbcode::Renaming there = vbcode::RenameMember(
      program, {{0}, name, kNew, vbcode::kNone, false, false, /*declarations=*/true});
  if (!there.refusals.empty() || there.edits.empty()) return;
  const vbcode::Program renamed =
      Read(TextOf(program, 0, there.edits), TextOf(program, 1, there.edits));
  std::size_t sure = 0;
  for (const vbcode::Use& use : renamed.Uses(0, kNew)) {
    if (use.binding == vbcode::Binding::kMember) ++sure;
  }
  Require(sure == there.changed.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input =
      platform::Windows1252ToUtf8({reinterpret_cast<const char*>(data), size});
  const std::size_t cut = input.find('\0');
  const std::string second = cut == std::string::npos ? "" : input.substr(cut + 1);
  const vbcode::Program program = Read(input.substr(0, cut), second);
  const auto& declarations = program.module(0).code.declarations;
  for (std::size_t i = 0; i < declarations.size() && i < 8; ++i) {
    const std::string name(program.Text(declarations[i].name));
    CheckUses(program, name);
    CheckRename(program, name);
  }
  const auto& procedures = program.module(0).code.procedures;
  std::vector<vbcode::FormulaCode> formulas;
  for (std::size_t i = 0; i < procedures.size() && i < 8; ++i) {
    const auto own = static_cast<std::size_t>(procedures[i].declaration);
    formulas.push_back(
        {0, std::string(program.Text(declarations[own].name)), {{"Level", true, true}}});
  }
  vbcode::FindBodyFindings(program, formulas, {"Level", "Pump"});
  vbcode::FindText(program, "le", {});
  return 0;
}
