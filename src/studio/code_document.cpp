// SPDX-License-Identifier: MIT
#include "studio/code_document.h"

#include <cstdint>
#include <vector>

#include "project/line_diff.h"
#include "vbfiles/messages.h"

namespace studio {

namespace {

// Where lines are exchanged they are replaced one for one, so that the hidden lines of a
// declaration stay with it.
void Apply(platform::CodeModule& module, const std::vector<project::LineChange>& changes) {
  std::int32_t moved = 0;  // how far the lines below the last change are from their old places
  for (const project::LineChange& change : changes) {
    auto line = static_cast<std::int32_t>(change.first) + 1 + moved;
    auto removed = static_cast<std::int32_t>(change.count);
    moved += static_cast<std::int32_t>(change.lines.size()) - removed;
    std::size_t next = 0;
    for (; next < change.lines.size() && removed > 0; ++next, --removed)
      module.ReplaceLine(line++, change.lines[next]);
    if (removed > 0) module.DeleteLines(line, removed);
    for (; next < change.lines.size(); ++next) module.InsertLines(line++, change.lines[next]);
  }
}

}  // namespace

std::string CodeDocument::Current() {
  const std::int32_t count = module_.CountOfLines();
  std::string text = count == 0 ? std::string() : module_.Lines(1, count);
  std::erase(text, '\r');
  return text;
}

const std::string& CodeDocument::Load() { return text_ = Current(); }

bool CodeDocument::ChangedMeanwhile() { return Current() != text_; }

std::optional<std::string> CodeDocument::Merge(std::string_view typed) {
  std::string now = Current();
  auto merged = project::MergeTexts(text_, typed, now);
  if (merged) text_ = std::move(now);
  return merged;
}

void CodeDocument::Save(std::string_view text) {
  platform::UnitOfWorkScope scope(unit_);
  if (ChangedMeanwhile()) {
    throw platform::Error(platform::ErrorKind::kConflict, platform::kErrModuleNotEditable,
                          vbfiles::message::kModuleChanged);
  }
  const project::Lines before =
      module_.CountOfLines() == 0 ? project::Lines() : project::EditorLines(text_);
  const project::Lines after = text.empty() ? project::Lines() : project::EditorLines(text);
  Apply(module_, project::LineChanges(before, after));
  scope.Commit();
  // A file without a last line end cannot hold an empty last line.
  text_ = Current();
}

}  // namespace studio
