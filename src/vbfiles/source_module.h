// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "files/change_set.h"
#include "platform/vbide.h"
#include "vbfiles/module_file.h"
#include "vbfiles/module_text.h"
#include "vbfiles/pane.h"
#include "vbfiles/session.h"
#include "vbfiles/source_index.h"

namespace vbfiles {

// The code module over a component's file. The file is read when its code is first asked for and
// again when it changed on disk; edits stay in memory until a unit of work commits them. An edit
// is refused when the file changed since its lines were read (kConflict), when it is read-only or
// no source text, and when it lies outside the project's folder tree (kErrModuleNotEditable).
class SourceModule final : public platform::CodeModule {
 public:
  SourceModule(Session& session, ModuleFile& file, platform::VBComponent& component);

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
  platform::CodePane& Pane() override { return pane_; }

  // The steps of a unit of work, as files::Participant describes them.
  void Save();
  void Collect(files::ChangeSet& changes);
  void Committed() noexcept;
  void Restore() noexcept;

 private:
  struct Loaded {
    Loaded(ModuleText module_text, const CodePage& page, const files::FileStamp& file_stamp)
        : text(std::move(module_text)), index(text, page), stamp(file_stamp) {}
    ModuleText text;
    SourceIndex index;
    files::FileStamp stamp;
    bool is_source = true;  // false: binary or encrypted, presented without lines
    bool verified = false;  // an edit found the contents on disk to be those that were read
  };

  Loaded& ForReading();
  Loaded& ForEditing();
  void Load();
  bool IsUnchangedOnDisk();
  void CheckLine(const Loaded& module, std::int32_t line) const;
  std::vector<std::string> Encode(const Loaded& module, std::int32_t line, std::string_view text);
  const Procedure& Find(std::string_view name, platform::ProcKind kind);

  Session& session_;
  ModuleFile& file_;
  vbfiles::Pane pane_;
  std::unique_ptr<Loaded> loaded_;
  std::optional<ModuleText> saved_;  // edits that were there before the unit of work began
  files::FileStamp saved_stamp_;
};

}  // namespace vbfiles
