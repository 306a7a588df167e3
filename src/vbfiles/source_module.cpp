// SPDX-License-Identifier: MIT
#include "vbfiles/source_module.h"

#include <algorithm>

#include "vbfiles/attribute_carrier.h"
#include "vbfiles/errors.h"
#include "vbfiles/member_list.h"
#include "vbfiles/messages.h"
#include "vbfiles/word_search.h"

namespace vbfiles {

namespace {

// Without the line end that closes the last line.
std::string_view WithoutLastLineEnd(std::string_view text) {
  if (text.ends_with("\r\n")) return text.substr(0, text.size() - 2);
  if (text.ends_with('\n') || text.ends_with('\r')) return text.substr(0, text.size() - 1);
  return text;
}

void CheckCount(std::int32_t count) {
  if (count < 0) throw SubscriptError(message::kNegativeCount);
}

std::int32_t CountOf(const std::vector<std::string>& lines) {
  return static_cast<std::int32_t>(lines.size());
}

}  // namespace

void SourceModule::CheckLine(std::int32_t line, std::int32_t line_count) const {
  if (line >= 1 && line <= line_count) return;
  throw SubscriptError(
      {message::kNoLine,
       {{"<Path>", document_.file().path()}, {"<Line>", line}, {"<Count>", line_count}}});
}

std::vector<std::string> SourceModule::Encode(const LinePlace& place, std::string_view text) {
  return EncodeLines(text, place, document_.file().page(), state_.replaced);
}

std::int32_t SourceModule::CountOfLines() { return document_.Text().LineCount(); }

std::int32_t SourceModule::CountOfDeclarationLines() {
  return document_.Index().CountOfDeclarationLines();
}

std::string SourceModule::Lines(std::int32_t start, std::int32_t count) {
  const ModuleText& lines = document_.Text();
  CheckLine(start, lines.LineCount());
  CheckCount(count);
  const std::int32_t end = start + std::min(count, lines.LineCount() - start + 1);
  std::string text;
  for (std::int32_t line = start; line < end; ++line) {
    if (line > start) text += "\r\n";
    text += document_.file().page().ToUtf8(lines.Line(line));
  }
  return text;
}

void SourceModule::InsertLines(std::int32_t line, std::string_view text) {
  const auto [lines, index] = document_.BeginEdit();
  if (line < 1) CheckLine(line, lines.LineCount());
  line = std::min(line, lines.LineCount() + 1);
  const bool in_comment = index.Info(line).continuation == Continuation::kComment;
  const auto inserted = Encode({document_.file().path(), line, in_comment}, text);
  lines.Insert(line, inserted);
  index.Update(line, 0, CountOf(inserted));
}

void SourceModule::ReplaceLine(std::int32_t line, std::string_view text) {
  const auto [lines, index] = document_.BeginEdit();
  CheckLine(line, lines.LineCount());
  const bool in_comment = index.Info(line).continuation == Continuation::kComment;
  const auto inserted = Encode({document_.file().path(), line, in_comment}, text);
  AttributeCarrier attributes(lines, index, line);
  lines.Replace(line, inserted);
  index.Update(line, 1, CountOf(inserted));
  attributes.Replaced(CountOf(inserted));
}

void SourceModule::DeleteLines(std::int32_t start, std::int32_t count) {
  const auto [lines, index] = document_.BeginEdit();
  CheckLine(start, lines.LineCount());
  CheckCount(count);
  count = std::min(count, lines.LineCount() - start + 1);
  lines.Erase(start, count);
  index.Update(start, count, 0);
}

void SourceModule::AddFromString(std::string_view text) {
  if (text.empty()) return;
  const auto [lines, index] = document_.BeginEdit();
  const std::int32_t end = lines.LineCount() + 1;
  // Behind a comment that goes on with " _" the first line would be comment.
  const bool continued = index.Info(end).continuation != Continuation::kNone;
  const std::int32_t first = continued ? end + 1 : end;
  auto added = Encode({document_.file().path(), first, false}, WithoutLastLineEnd(text));
  if (continued) added.insert(added.begin(), "");
  lines.Insert(end, added);
  index.Update(end, 0, CountOf(added));
}

const Procedure& SourceModule::Require(const SourceIndex& index, std::string_view name,
                                       platform::ProcKind kind) const {
  const Procedure* procedure = FindProcedure(index, name, kind);
  if (procedure != nullptr) return *procedure;
  throw platform::Error(platform::ErrorKind::kNotFound, platform::kErrProcNotDefined,
                        messages::Message(message::kNoProcedure,
                                          {{"<Path>", document_.file().path()}, {"<Name>", name}}));
}

std::int32_t SourceModule::ProcStartLine(std::string_view name, platform::ProcKind kind) {
  const SourceIndex& index = document_.Index();
  return index.RegionStart(Require(index, name, kind));
}

std::int32_t SourceModule::ProcBodyLine(std::string_view name, platform::ProcKind kind) {
  return Require(document_.Index(), name, kind).body_line;
}

std::int32_t SourceModule::ProcCountLines(std::string_view name, platform::ProcKind kind) {
  const SourceIndex& index = document_.Index();
  const Procedure& procedure = Require(index, name, kind);
  return index.RegionEnd(procedure) - index.RegionStart(procedure) + 1;
}

platform::ProcOfLineResult SourceModule::ProcOfLine(std::int32_t line) {
  const SourceIndex& index = document_.Index();
  const Procedure* procedure = index.OwnerOf(line);
  if (procedure == nullptr) return {};
  return {index.page().ToUtf8(index.Name(procedure->name)), procedure->kind};
}

std::vector<platform::Member> SourceModule::Members() { return ListMembers(document_.Index()); }

std::optional<platform::Member> SourceModule::FindMember(std::string_view name) {
  return vbfiles::FindMember(document_.Index(), name);
}

std::optional<std::int32_t> SourceModule::Find(std::string_view text, std::int32_t start,
                                               std::int32_t end) {
  const ModuleText& lines = document_.Text();
  const CodePage& page = document_.file().page();
  std::string word = page.NameFromUtf8(text);
  if (word.empty()) return std::nullopt;
  return lines.FindWord(WordSearch(std::move(word), page), std::max(start, 1),
                        std::min(end, lines.LineCount()));
}

}  // namespace vbfiles
