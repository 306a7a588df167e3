// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "com/late_bound.h"
#include "platform/vbide.h"
#include "vbcode/text_lines.h"
#include "vbfiles/source_index.h"

namespace com {

// The code of a component in the development environment. Its text is read in one piece; what it
// declares is found by our own scanner, so that decisions are the same as for files. Edits are
// line operations of the environment, which may write them down in its own way: the text is read
// again behind each.
class HostModule final : public platform::CodeModule {
 public:
  explicit HostModule(LateBound module);
  // The module's object may be another one than before, when the project was opened anew.
  void Rebind(LateBound module) { module_ = std::move(module); }
  ~HostModule() override;

  void RequireSource() override;
  std::int32_t CountOfLines() override;
  std::int32_t CountOfDeclarationLines() override;
  std::string Lines(std::int32_t start, std::int32_t count) override;
  void InsertLines(std::int32_t line, std::string_view text) override;
  void ReplaceLine(std::int32_t line, std::string_view text) override;
  void DeleteLines(std::int32_t start, std::int32_t count) override;
  void AddFromString(std::string_view text) override;
  std::int32_t ProcStartLine(std::string_view name, platform::ProcKind kind) override;
  std::int32_t ProcBodyLine(std::string_view name, platform::ProcKind kind) override;
  std::int32_t ProcCountLines(std::string_view name, platform::ProcKind kind) override;
  platform::ProcOfLineResult ProcOfLine(std::int32_t line) override;
  std::vector<platform::Member> Members() override;
  std::optional<platform::Member> FindMember(std::string_view name) override;
  std::optional<std::int32_t> Find(std::string_view text, std::int32_t start,
                                   std::int32_t end) override;
  platform::CodePane& Pane() override;

  // From now on the text is taken to stay as it is but for our edits, and kept for Restore.
  void BeginUnit();
  void EndUnit();
  // Puts the text back that BeginUnit found; nothing when nothing was edited. False, changing
  // nothing, when somebody else changed it since our last edit.
  bool Restore();
  // The text that BeginUnit found, where it was edited since.
  const std::optional<std::string>& original() const { return original_; }
  std::string Text() { return Current().lines.text(); }
  // Makes the module hold that text; only lines that differ are touched.
  void SetText(std::string_view text);

 private:
  class HostPane;
  struct Source {
    explicit Source(std::string text);
    vbcode::TextLines lines;
    vbfiles::SourceIndex index;
  };

  std::string ReadText() const;
  const Source& Current();
  const vbfiles::Procedure& Require(const Source& source, std::string_view name,
                                    platform::ProcKind kind) const;
  // What differs between the module and the text, as at most one deletion and one insertion.
  void Become(std::string_view text);
  // Carries out an edit and reads what became of it.
  void Edit(const wchar_t* name, LateBound::Arguments arguments);

  LateBound module_;
  std::unique_ptr<Source> source_;
  std::unique_ptr<HostPane> pane_;
  bool in_unit_ = false;
  bool fresh_ = false;                   // source_ is what the unit works with
  std::optional<std::string> original_;  // before the first edit of the unit
};

}  // namespace com
