// SPDX-License-Identifier: MIT
#include "com/host_module.h"

#include <algorithm>

#include "com/failure.h"
#include "vbfiles/errors.h"
#include "vbfiles/member_list.h"
#include "vbfiles/messages.h"
#include "vbfiles/word_search.h"

namespace com {

namespace {

const vbfiles::CodePage& Page() { return vbfiles::CodePage::Get(vbfiles::CodePage::kUtf8); }

}  // namespace

class HostModule::HostPane final : public platform::CodePane {
 public:
  explicit HostPane(LateBound pane) : pane_(std::move(pane)) {}

  std::int32_t TopLine() const override { return pane_.Get(L"TopLine").ToLong(); }
  void SetTopLine(std::int32_t line) override { pane_.Put(L"TopLine", Value(line)); }
  platform::CodeSelection GetSelection() const override {
    LateBound::Arguments places = {Value(0), Value(0), Value(0), Value(0)};
    pane_.CallByReference(L"GetSelection", places);
    return {places[0].ToLong(), places[1].ToLong(), places[2].ToLong(), places[3].ToLong()};
  }
  void SetSelection(const platform::CodeSelection& selection) override {
    pane_.Get(L"SetSelection", {Value(selection.start_line), Value(selection.start_column),
                                Value(selection.end_line), Value(selection.end_column)});
  }
  void Show() override { pane_.Get(L"Show"); }

 private:
  LateBound pane_;
};

HostModule::Source::Source(std::string text) : lines(std::move(text)), index(lines, Page()) {}

HostModule::HostModule(LateBound module) : module_(std::move(module)) {}
HostModule::~HostModule() = default;

std::string HostModule::ReadText() const {
  const std::int32_t count = module_.Get(L"CountOfLines").ToLong();
  return count == 0 ? std::string() : module_.Get(L"Lines", {Value(1), Value(count)}).ToText();
}

const HostModule::Source& HostModule::Current() {
  if (in_unit_ && fresh_) return *source_;
  std::string text = ReadText();
  if (!source_ || source_->lines.text() != text)
    source_ = std::make_unique<Source>(std::move(text));
  fresh_ = true;
  return *source_;
}

void HostModule::RequireSource() { Current(); }

std::int32_t HostModule::CountOfLines() { return Current().lines.LineCount(); }

std::int32_t HostModule::CountOfDeclarationLines() {
  return Current().index.CountOfDeclarationLines();
}

std::string HostModule::Lines(std::int32_t start, std::int32_t count) {
  const vbcode::TextLines& lines = Current().lines;
  if (start < 1 || start > lines.LineCount() || count < 0) {
    com::Require(ResultOf(platform::kErrSubscript));
  }
  const std::int32_t end = start + std::min(count, lines.LineCount() - start + 1);
  std::string text;
  for (std::int32_t line = start; line < end; ++line) {
    if (line > start) text += "\r\n";
    text += lines.Line(line);
  }
  return text;
}

// --- Edits ---

void HostModule::Edit(const wchar_t* name, LateBound::Arguments arguments) {
  Current();
  if (in_unit_ && !original_) original_ = source_->lines.text();
  fresh_ = false;
  module_.Get(name, std::move(arguments));
}

void HostModule::InsertLines(std::int32_t line, std::string_view text) {
  Edit(L"InsertLines", {Value(line), Value(text)});
}

void HostModule::ReplaceLine(std::int32_t line, std::string_view text) {
  Edit(L"ReplaceLine", {Value(line), Value(text)});
}

void HostModule::DeleteLines(std::int32_t start, std::int32_t count) {
  Edit(L"DeleteLines", {Value(start), Value(count)});
}

// The environment's own AddFromString puts the text behind the declarations.
void HostModule::AddFromString(std::string_view text) {
  if (text.empty()) return;
  if (text.ends_with("\r\n")) text.remove_suffix(2);
  const std::int32_t end = CountOfLines() + 1;
  Edit(L"InsertLines", {Value(end), Value(text)});
}

// --- What the lines declare ---

const vbfiles::Procedure& HostModule::Require(const Source& source, std::string_view name,
                                              platform::ProcKind kind) const {
  const vbfiles::Procedure* procedure = vbfiles::FindProcedure(source.index, name, kind);
  if (!procedure) com::Require(ResultOf(platform::kErrProcNotDefined));
  return *procedure;
}

std::int32_t HostModule::ProcStartLine(std::string_view name, platform::ProcKind kind) {
  const Source& source = Current();
  return source.index.RegionStart(Require(source, name, kind));
}

std::int32_t HostModule::ProcBodyLine(std::string_view name, platform::ProcKind kind) {
  return Require(Current(), name, kind).body_line;
}

std::int32_t HostModule::ProcCountLines(std::string_view name, platform::ProcKind kind) {
  const Source& source = Current();
  const vbfiles::Procedure& procedure = Require(source, name, kind);
  return source.index.RegionEnd(procedure) - source.index.RegionStart(procedure) + 1;
}

platform::ProcOfLineResult HostModule::ProcOfLine(std::int32_t line) {
  const Source& source = Current();
  const vbfiles::Procedure* procedure = source.index.OwnerOf(line);
  if (!procedure) return {};
  return {std::string(source.index.Name(procedure->name)), procedure->kind};
}

std::vector<platform::Member> HostModule::Members() {
  return vbfiles::ListMembers(Current().index);
}

std::optional<platform::Member> HostModule::FindMember(std::string_view name) {
  return vbfiles::FindMember(Current().index, name);
}

std::optional<std::int32_t> HostModule::Find(std::string_view text, std::int32_t start,
                                             std::int32_t end) {
  const vbcode::TextLines& lines = Current().lines;
  std::string word = Page().NameFromUtf8(text);
  if (word.empty()) return std::nullopt;
  const vbfiles::WordSearch search(std::move(word), Page());
  for (std::int32_t line = std::max(start, 1); line <= std::min(end, lines.LineCount()); ++line) {
    if (search.IsIn(lines.Line(line))) return line;
  }
  return std::nullopt;
}

platform::CodePane& HostModule::Pane() {
  pane_ = std::make_unique<HostPane>(module_.Object(L"CodePane"));
  return *pane_;
}

// --- Units of work ---

void HostModule::BeginUnit() {
  in_unit_ = true;
  fresh_ = false;
  original_.reset();
}

void HostModule::EndUnit() {
  in_unit_ = false;
  fresh_ = false;
  original_.reset();
}

bool HostModule::Restore() {
  if (!original_) return true;
  if (fresh_ && ReadText() != source_->lines.text()) return false;
  Become(*original_);
  return true;
}

void HostModule::SetText(std::string_view text) {
  Current();
  if (in_unit_ && !original_) original_ = source_->lines.text();
  Become(text);
}

// Marks and hidden attributes of the other lines stay.
void HostModule::Become(std::string_view text) {
  const vbcode::TextLines wanted{std::string(text)};
  const vbcode::TextLines now(ReadText());
  const std::int32_t shorter = std::min(wanted.LineCount(), now.LineCount());
  std::int32_t head = 0;
  while (head < shorter && wanted.Line(head + 1) == now.Line(head + 1)) ++head;
  std::int32_t tail = 0;
  while (tail < shorter - head &&
         wanted.Line(wanted.LineCount() - tail) == now.Line(now.LineCount() - tail)) {
    ++tail;
  }
  std::string lines;
  for (std::int32_t line = head + 1; line <= wanted.LineCount() - tail; ++line) {
    if (line > head + 1) lines += "\r\n";
    lines += wanted.Line(line);
  }
  fresh_ = false;
  const std::int32_t removed = now.LineCount() - head - tail;
  if (removed > 0) module_.Get(L"DeleteLines", {Value(head + 1), Value(removed)});
  if (wanted.LineCount() - head - tail > 0) {
    module_.Get(L"InsertLines", {Value(head + 1), Value(lines)});
  }
}

}  // namespace com
