// SPDX-License-Identifier: MIT
#include "vbfiles/module_document.h"

#include <algorithm>
#include <string_view>

#include "files/messages.h"
#include "vbfiles/errors.h"
#include "vbfiles/messages.h"

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

bool IsUtf16(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
         (bytes.size() > 3 && bytes[0] != 0 && bytes[1] == 0 && bytes[2] != 0 && bytes[3] == 0);
}

// What keeps the file from being read as source text; `zero` is the place of a zero byte among
// its lines, if there is one.
messages::Message WhyNoSource(const std::string& path, std::string_view bytes, std::size_t zero) {
  if (IsUtf16(bytes)) {
    return Joined({message::kUtf16, {{"<Path>", path}}}, message::kSaveAsAnsi);
  }
  if (zero == std::string_view::npos) {
    return Joined({message::kNoSourceText, {{"<Path>", path}}}, files::message::kRestoreFromBackup);
  }
  const auto line = 1 + std::ranges::count(bytes.substr(0, zero), '\n');
  return Joined({message::kZeroByte, {{"<Path>", path}, {"<Line>", line}}},
                message::kRestoreOrRemoveByte);
}

}  // namespace

void ModuleDocument::Load() {
  const ModuleFile::Version file = file_.Read();
  const ModuleHeader header = ParseModuleHeader(*file.contents, true);
  ModuleText text(file.contents, header.length);
  const std::size_t zero = text.HasZeroBytes() ? file.contents->find('\0') : std::string::npos;
  if (zero == std::string::npos) {
    loaded_ = std::make_unique<Loaded>(std::move(text), file_.page(), file.stamp);
    if (header.recognised || IsSource(loaded_->index)) return;
  }
  // All of it is header then: no visible line, no member.
  loaded_ = std::make_unique<Loaded>(ModuleText(file.contents, file.contents->size()), file_.page(),
                                     file.stamp);
  loaded_->not_source = WhyNoSource(file_.path(), *file.contents, zero);
}

void ModuleDocument::RequireSource() {
  const messages::Message& problem = ForReading().not_source;
  if (!problem.empty()) throw platform::Error(ErrorKind::kIo, kErrModuleNotEditable, problem);
}

ModuleDocument::Loaded& ModuleDocument::ForReading() {
  if (!loaded_ || !IsCurrent()) {
    Load();
    loaded_->seen_in_unit = state_.in_unit;
  }
  return *loaded_;
}

// Edited lines stay. A unit of work looks at the file once: what it changes is compared again,
// byte by byte, before it is written.
bool ModuleDocument::IsCurrent() {
  if (loaded_->text.edited() || (state_.in_unit && loaded_->seen_in_unit)) return true;
  if (!IsUnchangedOnDisk()) return false;
  loaded_->seen_in_unit = state_.in_unit;
  return true;
}

// A unit of work asks once.
ModuleDocument::Edit ModuleDocument::BeginEdit() {
  if (loaded_ && loaded_->editable_in_unit && state_.in_unit) {
    return Edit{loaded_->text, loaded_->index};
  }
  file_.CheckWritable();
  if (!loaded_) Load();
  if (!loaded_->not_source.empty()) {
    throw platform::Error(ErrorKind::kIo, kErrModuleNotEditable, loaded_->not_source);
  }
  if (!IsUnchangedOnDisk()) {
    if (!loaded_->text.edited()) loaded_.reset();
    throw platform::Error(ErrorKind::kConflict, kErrModuleNotEditable,
                          Joined({message::kChangedMeanwhile, {{"<Path>", file_.path()}}},
                                 message::kRepeatOperation));
  }
  loaded_->editable_in_unit = state_.in_unit;
  return Edit{loaded_->text, loaded_->index};
}

// A file that looks the same is taken to be the same.
bool ModuleDocument::IsUnchangedOnDisk() {
  const std::optional<files::FileStamp> stamp = file_.Stamp();
  if (stamp == loaded_->stamp) return true;
  if (!stamp || !file_.Holds(*loaded_->text.original())) return false;
  loaded_->stamp = *stamp;
  return true;
}

void ModuleDocument::Save() {
  saved_.reset();
  if (!loaded_) return;
  loaded_->editable_in_unit = false;
  if (loaded_->text.edited()) {
    saved_ = std::make_unique<Loaded>(loaded_->text, file_.page(), loaded_->stamp);
  } else {
    loaded_->seen_in_unit = false;
  }
}

void ModuleDocument::Collect(files::ChangeSet& changes) {
  collected_ = {};
  if (!loaded_ || !loaded_->text.edited()) return;
  files::FileChange change{file_.path(), loaded_->text.original(), {}};
  change.after = loaded_->text.CurrentBytes(&change.kept, std::move(spare_));
  if (change.before == change.after) return;
  collected_ = change.after;
  changes.files.push_back(std::move(change));
}

void ModuleDocument::Committed() noexcept {
  saved_.reset();
  if (loaded_ && loaded_->text.edited() && !AdoptCollected()) loaded_.reset();
  collected_ = {};
}

// Goes on with the lines that were written.
bool ModuleDocument::AdoptCollected() noexcept {
  try {
    const std::optional<files::FileStamp> stamp = file_.Stamp();
    if (!collected_ || !stamp) return false;
    const std::size_t header = ParseModuleHeader(*collected_, true).length;
    files::Contents before = loaded_->text.original();
    if (!loaded_->text.Adopt(collected_, header)) return false;
    spare_ = before.Release();
    loaded_->stamp = *stamp;
    loaded_->seen_in_unit = false;
    return true;
  } catch (...) {
    return false;
  }
}

void ModuleDocument::Restore() noexcept {
  collected_ = {};
  if (saved_) {
    loaded_ = std::move(saved_);
  } else if (loaded_ && loaded_->text.edited()) {
    loaded_.reset();
  }
}

std::shared_ptr<ModuleDocument> OpenDocument(EnvironmentState& state, const CodePage& page,
                                             const std::string& path) {
  std::weak_ptr<ModuleDocument>& known = state.documents[path];
  std::shared_ptr<ModuleDocument> document = known.lock();
  if (!document) known = document = std::make_shared<ModuleDocument>(state, page, path);
  return document;
}

}  // namespace vbfiles
