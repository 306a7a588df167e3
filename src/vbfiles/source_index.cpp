// SPDX-License-Identifier: MIT
#include "vbfiles/source_index.h"

#include <algorithm>
#include <iterator>

namespace vbfiles {

using vbcode::SourceLines;

namespace {

std::int32_t FirstLine(const Procedure& procedure) { return procedure.body_line; }
std::int32_t FirstLine(const Declaration& declaration) { return declaration.line; }

void Shift(Procedure& procedure, std::int32_t delta) {
  procedure.name.line += delta;
  procedure.body_line += delta;
  if (procedure.end_line != kToModuleEnd) procedure.end_line += delta;
  if (procedure.region_start != kUnknownLine) procedure.region_start += delta;
}

void Shift(Declaration& declaration, std::int32_t delta) {
  declaration.name.line += delta;
  declaration.line += delta;
}

// Index of the first entry that begins at or below the line.
template <typename Entry>
std::ptrdiff_t IndexAt(const std::vector<Entry>& entries, std::int32_t line) {
  const auto at = std::partition_point(entries.begin(), entries.end(),
                                       [&](const Entry& e) { return FirstLine(e) < line; });
  return at - entries.begin();
}

// Replaces the entries [first, last) and moves those behind them by `delta` lines.
template <typename Entry>
void Splice(std::vector<Entry>& entries, NameTable& names, std::ptrdiff_t first,
            std::ptrdiff_t last, const std::vector<Entry>& replacement, std::int32_t delta) {
  const bool same_names = std::equal(
      entries.begin() + first, entries.begin() + last, replacement.begin(), replacement.end(),
      [](const Entry& a, const Entry& b) { return a.name.hash == b.name.hash; });
  if (!same_names) names.Forget(static_cast<std::size_t>(first), entries);
  if (delta != 0) {
    for (auto i = entries.begin() + last; i != entries.end(); ++i) Shift(*i, delta);
  }
  const std::ptrdiff_t same =
      std::min(last - first, static_cast<std::ptrdiff_t>(replacement.size()));
  std::copy_n(replacement.begin(), same, entries.begin() + first);
  if (same < last - first) {
    entries.erase(entries.begin() + first + same, entries.begin() + last);
  } else {
    entries.insert(entries.begin() + last, replacement.begin() + same, replacement.end());
  }
}

}  // namespace

SourceIndex::SourceIndex(const SourceLines& lines, const CodePage& page)
    : lines_(lines), page_(page), infos_(1) {
  Update(1, 0, lines.LineCount());
}

void SourceIndex::Update(std::int32_t first, std::int32_t removed, std::int32_t inserted) {
  const std::int32_t delta = inserted - removed;
  const std::int32_t start = LogicalFirst(first);
  const ScanMode start_mode = Info(start).mode;

  const auto at = infos_.begin() + (first - 1);
  if (delta > 0) {
    infos_.insert(at, static_cast<std::size_t>(delta), LineInfo{});
  } else {
    infos_.erase(at, at - delta);
  }

  ScanResult found;
  ScanMode mode = start_mode;
  const SourceScanner scanner(lines_, page_);
  const std::int32_t edit_end = first + inserted;
  std::int32_t line = start;
  // Behind the edit the entries still tell the state before it.
  while (line <= LineCount() && (line < edit_end || Info(line).mode != mode ||
                                 Info(line).continuation != Continuation::kNone)) {
    line = scanner.Scan(line, mode, infos_, found);
  }

  const std::int32_t stop_before = line - delta;  // as the lines were numbered before the edit
  const std::ptrdiff_t kept = IndexAt(procedures_, start);
  const std::ptrdiff_t behind =
      line > LineCount() ? std::ssize(procedures_) : IndexAt(procedures_, stop_before);
  std::int32_t end_of_open = kToModuleEnd;  // of the procedure open at `line`
  if (line <= LineCount() && mode == ScanMode::kProcedure) {
    end_of_open = procedures_[static_cast<std::size_t>(behind) - 1].end_line;
    if (end_of_open != kToModuleEnd) end_of_open += delta;
  }
  if (line > LineCount()) {
    infos_.back().mode = mode;
    infos_.back().continuation = found.pending;
  }
  if (start_mode == ScanMode::kProcedure) {
    const bool open_to_stop = found.procedures.empty() && found.open_end_line == kToModuleEnd;
    procedures_[static_cast<std::size_t>(kept) - 1].end_line =
        open_to_stop ? end_of_open : found.open_end_line;
  }
  if (!found.procedures.empty() && mode == ScanMode::kProcedure) {
    found.procedures.back().end_line = end_of_open;
  }
  const std::ptrdiff_t declarations_behind =
      line > LineCount() ? std::ssize(declarations_) : IndexAt(declarations_, stop_before);
  const std::ptrdiff_t declarations_kept = IndexAt(declarations_, start);
  Splice(declarations_, declaration_names_, declarations_kept, declarations_behind,
         found.declarations, delta);
  Splice(procedures_, procedure_names_, kept, behind, found.procedures, delta);
  const std::size_t next = static_cast<std::size_t>(kept) + found.procedures.size();
  if (next < procedures_.size()) procedures_[next].region_start = kUnknownLine;
  last_region_end_ = kUnknownLine;
}

std::int32_t SourceIndex::CountOfDeclarationLines() const {
  if (procedures_.empty()) return LineCount();
  std::int32_t count = 0;
  int depth = 0;
  for (std::int32_t line = 1; line < procedures_.front().body_line; ++line) {
    const LineInfo& info = Info(line);
    if (info.directive == DirectiveMark::kIf) ++depth;
    if (info.directive == DirectiveMark::kEndIf && depth > 0) --depth;
    if (info.declaration_ends && depth == 0) count = line;
  }
  return count;
}

std::int32_t SourceIndex::LogicalFirst(std::int32_t line) const {
  while (line > 1 && Info(line).continuation != Continuation::kNone) --line;
  return line;
}

std::int32_t SourceIndex::LogicalLast(std::int32_t line) const {
  while (line < LineCount() && Info(line + 1).continuation != Continuation::kNone) ++line;
  return line;
}

std::int32_t SourceIndex::RegionStart(const Procedure& procedure) const {
  if (procedure.region_start != kUnknownLine) return procedure.region_start;
  std::int32_t line = procedure.body_line;
  auto climb = [&](LineClass line_class) {
    while (line > 1 && Info(line - 1).line_class == line_class) --line;
  };
  climb(LineClass::kBlank);
  climb(LineClass::kComment);
  climb(LineClass::kBlank);
  procedures_[static_cast<std::size_t>(&procedure - procedures_.data())].region_start = line;
  return line;
}

std::int32_t SourceIndex::RegionEnd(const Procedure& procedure) const {
  if (&procedure != &procedures_.back()) return procedure.end_line;
  if (procedure.end_line == kToModuleEnd) return LineCount();
  if (last_region_end_ == kUnknownLine) {
    std::int32_t line = procedure.end_line;
    while (line < LineCount() && Info(line + 1).line_class == LineClass::kBlank) ++line;
    last_region_end_ = line;
  }
  return last_region_end_;
}

const Procedure* SourceIndex::OwnerOf(std::int32_t line) const {
  if (line < 1 || line > LineCount()) return nullptr;
  const auto at =
      std::partition_point(procedures_.begin(), procedures_.end(),
                           [&](const Procedure& procedure) { return RegionEnd(procedure) < line; });
  if (at == procedures_.end() || line < RegionStart(*at)) return nullptr;
  return &*at;
}

}  // namespace vbfiles
