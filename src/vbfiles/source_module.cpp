// SPDX-License-Identifier: MIT
#include "vbfiles/source_module.h"

#include <algorithm>

#include "vbfiles/attribute_carrier.h"
#include "vbfiles/errors.h"
#include "vbfiles/line_encoder.h"
#include "vbfiles/member_list.h"

namespace vbfiles {

using platform::ErrorKind;
using platform::kErrModuleNotEditable;

namespace {

// Whether the lines look like Visual Basic at all. A header says so too; without one, text in
// which nothing is recognised is taken for something else: encrypted, compressed, exported.
bool IsSource(const SourceIndex& index) {
  if (index.LineCount() == 0 || !index.procedures().empty()) return true;
  for (std::int32_t line = 1; line <= index.LineCount(); ++line) {
    const LineInfo& info = index.Info(line);
    if (info.line_class != LineClass::kCode || info.declaration_ends) return true;
  }
  return false;
}

}  // namespace

SourceModule::SourceModule(Session& session, ModuleFile& file, platform::VBComponent& component)
    : session_(session), file_(file), pane_(session, component) {}

void SourceModule::Load() {
  ModuleFile::Contents contents = file_.Read();
  const ModuleHeader header = ParseModuleHeader(contents.bytes, true);
  const bool recognised = header.recognised;
  ModuleText text(std::move(contents.bytes), header.length);
  if (!text.HasZeroBytes()) {
    loaded_ = std::make_unique<Loaded>(std::move(text), file_.page(), contents.stamp);
    if (recognised || IsSource(loaded_->index)) return;
    text = std::move(loaded_->text);
  }
  // All of it is header then: no visible line, no member.
  std::string bytes = text.OriginalBytes();
  const std::size_t length = bytes.size();
  loaded_ =
      std::make_unique<Loaded>(ModuleText(std::move(bytes), length), file_.page(), contents.stamp);
  loaded_->is_source = false;
}

SourceModule::Loaded& SourceModule::ForReading() {
  const bool current =
      loaded_ && (session_.in_unit || loaded_->text.edited() || file_.Stamp() == loaded_->stamp);
  if (!current) Load();
  return *loaded_;
}

SourceModule::Loaded& SourceModule::ForEditing() {
  file_.CheckWritable();
  if (!loaded_) Load();
  if (!loaded_->is_source) {
    throw platform::Error(ErrorKind::kIo, kErrModuleNotEditable,
                          file_.path() +
                              " holds no Visual Basic source text and is left alone. Restore it "
                              "from a backup.");
  }
  if (!IsUnchangedOnDisk()) {
    if (!loaded_->text.edited()) loaded_.reset();
    throw platform::Error(ErrorKind::kConflict, kErrModuleNotEditable,
                          file_.path() +
                              " was changed by another program after it was read. Nothing was "
                              "changed in it; repeat the operation.");
  }
  return *loaded_;
}

bool SourceModule::IsUnchangedOnDisk() {
  const std::optional<files::FileStamp> stamp = file_.Stamp();
  if (stamp == loaded_->stamp && loaded_->verified) return true;
  if (!stamp || !file_.Holds(loaded_->text.OriginalBytes())) return false;
  loaded_->stamp = *stamp;
  loaded_->verified = true;
  return true;
}

void SourceModule::CheckLine(const Loaded& module, std::int32_t line) const {
  if (line >= 1 && line <= module.text.LineCount()) return;
  throw SubscriptError(file_.path() + " has no line " + std::to_string(line) + "; it has " +
                       std::to_string(module.text.LineCount()) + " lines.");
}

std::vector<std::string> SourceModule::Encode(const Loaded& module, std::int32_t line,
                                              std::string_view text) {
  const bool in_comment = module.index.Info(line).continuation == Continuation::kComment;
  return EncodeLines(text, LinePlace{file_.path(), line, in_comment}, file_.page(),
                     session_.replaced);
}

std::int32_t SourceModule::CountOfLines() { return ForReading().text.LineCount(); }

std::int32_t SourceModule::CountOfDeclarationLines() {
  return ForReading().index.CountOfDeclarationLines();
}

std::string SourceModule::Lines(std::int32_t start, std::int32_t count) {
  const Loaded& module = ForReading();
  CheckLine(module, start);
  if (count < 0) throw SubscriptError("A count of lines cannot be negative.");
  const std::int32_t end = std::min(count, module.text.LineCount() - start + 1) + start;
  std::string text;
  for (std::int32_t line = start; line < end; ++line) {
    if (line > start) text += "\r\n";
    text += file_.page().ToUtf8(module.text.Line(line));
  }
  return text;
}

void SourceModule::InsertLines(std::int32_t line, std::string_view text) {
  Loaded& module = ForEditing();
  if (line < 1) CheckLine(module, line);
  line = std::min(line, module.text.LineCount() + 1);
  const std::vector<std::string> lines = Encode(module, line, text);
  module.text.Insert(line, lines);
  module.index.Update(line, 0, static_cast<std::int32_t>(lines.size()));
}

void SourceModule::ReplaceLine(std::int32_t line, std::string_view text) {
  Loaded& module = ForEditing();
  CheckLine(module, line);
  const std::vector<std::string> lines = Encode(module, line, text);
  const auto count = static_cast<std::int32_t>(lines.size());
  AttributeCarrier carrier(module.text, module.index, line);
  module.text.Replace(line, lines);
  module.index.Update(line, 1, count);
  carrier.Replaced(count);
}

void SourceModule::DeleteLines(std::int32_t start, std::int32_t count) {
  Loaded& module = ForEditing();
  CheckLine(module, start);
  if (count < 0) throw SubscriptError("A count of lines cannot be negative.");
  count = std::min(count, module.text.LineCount() - start + 1);
  if (count == 0) return;
  module.text.Erase(start, count);
  module.index.Update(start, count, 0);
}

void SourceModule::AddFromString(std::string_view text) {
  if (text.empty()) return;
  Loaded& module = ForEditing();
  if (text.ends_with("\r\n")) {
    text.remove_suffix(2);
  } else if (text.back() == '\n' || text.back() == '\r') {
    text.remove_suffix(1);
  }
  const std::int32_t end = module.text.LineCount() + 1;
  const bool continued = module.index.Info(end).continuation != Continuation::kNone;
  std::vector<std::string> lines;
  if (continued) lines.emplace_back();
  const std::int32_t first = end + (continued ? 1 : 0);
  for (std::string& line :
       EncodeLines(text, LinePlace{file_.path(), first, false}, file_.page(), session_.replaced)) {
    lines.push_back(std::move(line));
  }
  module.text.Insert(end, lines);
  module.index.Update(end, 0, static_cast<std::int32_t>(lines.size()));
}

const Procedure& SourceModule::Find(std::string_view name, platform::ProcKind kind) {
  const Procedure* procedure = FindProcedure(ForReading().index, name, kind);
  if (procedure != nullptr) return *procedure;
  throw platform::Error(
      ErrorKind::kNotFound, platform::kErrProcNotDefined,
      file_.path() + " declares no procedure " + std::string(name) + " of the kind asked for.");
}

std::int32_t SourceModule::ProcStartLine(std::string_view name, platform::ProcKind kind) {
  const Procedure& procedure = Find(name, kind);
  return loaded_->index.RegionStart(procedure);
}

std::int32_t SourceModule::ProcBodyLine(std::string_view name, platform::ProcKind kind) {
  return Find(name, kind).body_line;
}

std::int32_t SourceModule::ProcCountLines(std::string_view name, platform::ProcKind kind) {
  const Procedure& procedure = Find(name, kind);
  return loaded_->index.RegionEnd(procedure) - loaded_->index.RegionStart(procedure) + 1;
}

platform::ProcOfLineResult SourceModule::ProcOfLine(std::int32_t line) {
  const SourceIndex& index = ForReading().index;
  const Procedure* procedure = index.OwnerOf(line);
  if (procedure == nullptr) return {};
  return {file_.page().ToUtf8(index.Name(procedure->name)), procedure->kind};
}

std::vector<platform::Member> SourceModule::Members() { return ListMembers(ForReading().index); }

std::optional<platform::Member> SourceModule::FindMember(std::string_view name) {
  return vbfiles::FindMember(ForReading().index, name);
}

void SourceModule::Save() {
  saved_.reset();
  if (!loaded_) return;
  if (loaded_->text.edited()) {
    saved_ = loaded_->text;
    saved_stamp_ = loaded_->stamp;
  } else {
    loaded_.reset();
  }
}

void SourceModule::Collect(files::ChangeSet& changes) {
  if (!loaded_ || !loaded_->text.edited()) return;
  std::string before = loaded_->text.OriginalBytes();
  std::string after = loaded_->text.CurrentBytes();
  if (before == after) return;
  changes.files.push_back({file_.path(), std::move(before), std::move(after)});
}

void SourceModule::Committed() noexcept {
  saved_.reset();
  if (loaded_ && loaded_->text.edited()) loaded_.reset();
}

void SourceModule::Restore() noexcept {
  if (saved_) {
    loaded_ = std::make_unique<Loaded>(std::move(*saved_), file_.page(), saved_stamp_);
    saved_.reset();
  } else if (loaded_ && loaded_->text.edited()) {
    loaded_.reset();
  }
}

}  // namespace vbfiles
