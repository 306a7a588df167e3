// SPDX-License-Identifier: MIT
#include "workbench/code_document.h"

#include <algorithm>
#include <cstdint>

#include "workbench/line_diff.h"

namespace workbench {

namespace {

// The lines of an editor's text: an empty text is one empty line, and so is what follows a last
// line end.
Lines EditorLines(std::string_view text) {
  Lines lines = SplitLines(text);
  if (text.empty() || text.ends_with('\n')) lines.emplace_back();
  return lines;
}

// Carries out a script of edits. Where lines are exchanged they are replaced one for one, so that
// the hidden lines of a declaration stay with it.
void Apply(platform::CodeModule& module, const std::vector<LineEdit>& script) {
  std::int32_t line = 1;
  for (auto edit = script.begin(); edit != script.end();) {
    if (edit->kind == ' ') {
      ++line;
      ++edit;
      continue;
    }
    Lines added;
    std::int32_t removed = 0;
    for (; edit != script.end() && edit->kind != ' '; ++edit) {
      if (edit->kind == '+') {
        added.push_back(edit->line);
      } else {
        ++removed;
      }
    }
    std::size_t next = 0;
    for (; next < added.size() && removed > 0; ++next, --removed)
      module.ReplaceLine(line++, added[next]);
    if (removed > 0) module.DeleteLines(line, removed);
    for (; next < added.size(); ++next) module.InsertLines(line++, added[next]);
  }
}

}  // namespace

std::string CodeDocument::Read() {
  const std::int32_t count = module_.CountOfLines();
  std::string text = count == 0 ? std::string() : module_.Lines(1, count);
  std::erase(text, '\r');
  return text;
}

const std::string& CodeDocument::Load() { return text_ = Read(); }

bool CodeDocument::ChangedMeanwhile() { return Read() != text_; }

void CodeDocument::Save(std::string_view text) {
  platform::UnitOfWorkScope scope(unit_);
  if (ChangedMeanwhile()) {
    throw platform::Error(platform::ErrorKind::kConflict, platform::kErrModuleNotEditable,
                          "The module was changed by somebody else meanwhile.");
  }
  const Lines before = module_.CountOfLines() == 0 ? Lines() : EditorLines(text_);
  const Lines after = text.empty() ? Lines() : EditorLines(text);
  Apply(module_, DiffLines(before, after));
  scope.Commit();
  // A file without a last line end cannot hold an empty last line.
  text_ = Read();
}

}  // namespace workbench
