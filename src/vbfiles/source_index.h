// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "vbcode/source_lines.h"
#include "vbfiles/code_page.h"
#include "vbfiles/name_table.h"
#include "vbfiles/source_scanner.h"

namespace vbfiles {

// What the lines of a module declare, kept up to date under edits: after an edit the scan begins
// at the logical line that was touched and ends where the text means again what it meant before.
// Knows nothing of files; the lines and the page must outlive it.
class SourceIndex {
 public:
  SourceIndex(const vbcode::SourceLines& lines, const CodePage& page);  // scans everything

  // The lines from `first` on were edited: `removed` lines went, `inserted` came in their place.
  void Update(std::int32_t first, std::int32_t removed, std::int32_t inserted);

  std::int32_t LineCount() const { return static_cast<std::int32_t>(infos_.size()) - 1; }
  // REQUIRES: 1 <= line <= LineCount() + 1; behind the last line only mode and continuation count.
  const LineInfo& Info(std::int32_t line) const {
    return infos_[static_cast<std::size_t>(line) - 1];
  }
  // In the order of their lines.
  const std::vector<Procedure>& procedures() const { return procedures_; }
  const std::vector<Declaration>& declarations() const { return declarations_; }
  std::int32_t CountOfDeclarationLines() const;

  std::string_view Name(const NamePlace& place) const {
    return lines_.Line(place.line).substr(place.column, place.length);
  }
  // The first of that name for which `is_wanted` holds; null for none. The name is in the page.
  template <typename IsWanted>
  const Procedure* FindProcedure(std::string_view name, const IsWanted& is_wanted) const {
    return Find(procedure_names_, procedures_, name, is_wanted);
  }
  const Declaration* FindDeclaration(std::string_view name) const {
    return Find(declaration_names_, declarations_, name, [](const auto&) { return true; });
  }
  bool IsNamed(const NamePlace& place, std::string_view name, std::uint32_t hash) const {
    return place.hash == hash && page_.SameName(Name(place), name);
  }
  const CodePage& page() const { return page_; }

  // The first line and the last line of the logical line that `line` is part of.
  std::int32_t LogicalFirst(std::int32_t line) const;
  std::int32_t LogicalLast(std::int32_t line) const;

  // First line of the procedure's region: the blank lines and the one block of comment directly
  // above its declaration; the declaration line itself when there are none.
  std::int32_t RegionStart(const Procedure& procedure) const;
  // Last line that belongs to the procedure; blank lines below the last one count to it.
  std::int32_t RegionEnd(const Procedure& procedure) const;
  // The procedure that the line belongs to; null for none and for a line out of range.
  const Procedure* OwnerOf(std::int32_t line) const;

 private:
  template <typename Entry, typename IsWanted>
  const Entry* Find(NameTable& names, const std::vector<Entry>& entries, std::string_view name,
                    const IsWanted& is_wanted) const {
    const std::uint32_t hash = page_.NameHash(name);
    return names.Find(hash, entries, [&](const Entry& entry) {
      return IsNamed(entry.name, name, hash) && is_wanted(entry);
    });
  }

  const vbcode::SourceLines& lines_;
  const CodePage& page_;
  std::vector<LineInfo> infos_;  // one a line, and one for the state behind the last line
  mutable std::vector<Procedure> procedures_;  // region_start is found when it is asked for
  std::vector<Declaration> declarations_;
  mutable NameTable procedure_names_;  // made when a name is looked for
  mutable NameTable declaration_names_;
  mutable std::int32_t last_region_end_ = kUnknownLine;
};

}  // namespace vbfiles
