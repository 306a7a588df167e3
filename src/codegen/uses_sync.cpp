// SPDX-License-Identifier: MIT
// Names and texts in procedures: what follows a new name, what is replaced.
#include <algorithm>
#include <iterator>
#include <utility>

#include "codegen/code_places.h"
#include "codegen/code_sync.h"
#include "codegen/code_texts.h"
#include "codegen/project_code.h"
#include "codegen/source_line.h"
#include "platform/text.h"
#include "vbcode/columns.h"
#include "vbcode/rename.h"

namespace codegen {
namespace {

// Of the places that are left to the engineer.
constexpr std::size_t kPlacesNamed = 20;

messages::TextNumber TextOf(vbcode::RenameProblem problem) {
  return kTextFirstRenameProblem + static_cast<int>(problem);
}

// The line with another text at these places of it.
std::string ReplacedLine(std::span<const CodePlace> places, std::string_view text) {
  const std::string& before = places.front().text;
  std::string line;
  vbcode::ColumnCounter columns;
  std::size_t at = 0;
  for (const CodePlace& place : places) {
    const std::size_t begin = columns.ByteOf(before, place.column - 1);
    const std::size_t end = columns.ByteOf(before, place.column - 1 + place.length);
    if (begin < at) continue;
    line.append(before, at, begin - at).append(text);
    at = end;
  }
  return line.append(before, at);
}

}  // namespace

void CodeSync::FollowUses(const Touched::Uses& uses) {
  ProjectCode code(*context_.vbe);
  code.Load(uses.prog_ids);
  if (uses.procedure.empty()) code.LoadHolders(uses.old_name);
  const vbcode::Program& program = code.program();
  vbcode::RenameRequest request;
  for (const std::string& prog_id : uses.prog_ids) {
    const std::int32_t module = code.FindClass(prog_id);
    if (module != vbcode::kNone) request.modules.push_back(module);
  }
  if (request.modules.empty()) return;
  if (!uses.procedure.empty()) {
    request.procedure = program.FindProcedure(request.modules.front(), uses.procedure);
    if (request.procedure == vbcode::kNone) return;
  }
  request.old_name = uses.old_name;
  request.new_name = uses.name;
  request.in_comments = uses.in_comments;
  request.in_literals = uses.in_literals;
  vbcode::Renaming renaming = vbcode::RenameMember(program, request);
  if (!renaming.refusals.empty()) {
    const vbcode::RenameRefusal& refusal = renaming.refusals.front();
    const std::int32_t module = std::max(refusal.module, 0);
    report_.Refuse(TextOf(refusal.problem), {{"<File>", FileNameOf(code.ComponentOf(module))},
                                             {"<Line>", std::to_string(refusal.line)},
                                             {"<Old>", uses.old_name},
                                             {"<Name>", uses.name}});
  }
  for (const vbcode::LineEdit& edit : renaming.edits) {
    code.ComponentOf(edit.module).Module()->ReplaceLine(edit.line, edit.text);
  }
  for (const messages::Message& problem : code.unread()) {
    report_.Warn(kTextNotSearched, {{"<Cause>", problem}});
  }
  KeepLeftUses(code, renaming.left, uses);
}

// Lines still move; procedures keep theirs.
void CodeSync::KeepLeftUses(const ProjectCode& code, std::span<const vbcode::Use> left,
                            const Touched::Uses& uses) {
  const vbcode::Program& program = code.program();
  for (const vbcode::Use& use : left.first(std::min(left.size(), kPlacesNamed))) {
    LeftUse kept{code.NameOf(use.module), {}, platform::ProcKind::kProc, use.line, uses.old_name};
    if (use.procedure != vbcode::kNone) {
      const vbcode::ModuleCode& module = program.module(use.module).code;
      const vbcode::Procedure& procedure = module.procedures[vbcode::Index(use.procedure)];
      const vbcode::Declaration& declaration =
          module.declarations[vbcode::Index(procedure.declaration)];
      kept.procedure = program.Text(declaration.name);
      if (platform::EqualsIgnoringCase(kept.procedure, uses.old_name)) kept.procedure = uses.name;
      kept.kind = procedure.kind;
      kept.line -= procedure.first_line;
    }
    left_uses_.push_back(std::move(kept));
  }
  if (left.size() <= kPlacesNamed) return;
  report_.Warn(kTextMoreLeft, {{"<Count>", std::to_string(left.size() - kPlacesNamed)},
                               {"<Name>", uses.old_name}});
}

void CodeSync::WarnOfLeftUses() {
  for (const LeftUse& use : std::exchange(left_uses_, {})) {
    const Place place = Locate(context_, use.prog_id);
    if (!place) continue;
    const std::int32_t first =
        use.procedure.empty() ? 0 : place.module->ProcBodyLine(use.procedure, use.kind);
    WarnAt(place, kTextUseLeft, first + use.line, use.name);
  }
}

void CodeSync::FollowReplacement(const Touched::Replacement& replacement) {
  const std::vector<CodePlace>& places = replacement.places;
  const std::string& text = replacement.text;
  if (text.find_first_of("\r\n") != std::string_view::npos) report_.Refuse(kTextOneLine, {});
  for (auto first = places.begin(); first != places.end();) {
    const auto last = std::find_if(first, places.end(), [&](const CodePlace& place) {
      return place.file != first->file || place.line != first->line;
    });
    const Place place = Locate(context_, first->module);
    const std::string line = std::to_string(first->line);
    const bool stands = place && first->line <= place.module->CountOfLines() &&
                        place.module->Lines(first->line, 1) == first->text;
    if (!stands) report_.Refuse(kTextCodeChanged, {{"<File>", first->file}, {"<Line>", line}});
    const std::string replaced = ReplacedLine({first, last}, text);
    if (replaced.size() > first->text.size() &&
        vbcode::CountCharacters(replaced) > kMaxLineLength) {
      report_.Refuse(TextOf(vbcode::RenameProblem::kLineTooLong),
                     {{"<File>", place.File()}, {"<Line>", line}});
    }
    place.module->ReplaceLine(first->line, replaced);
    first = last;
  }
}

}  // namespace codegen
