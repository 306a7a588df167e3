// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "files/change_set.h"
#include "messages/message.h"
#include "vbfiles/environment_state.h"
#include "vbfiles/module_file.h"
#include "vbfiles/module_text.h"
#include "vbfiles/source_index.h"

namespace vbfiles {

// The code of one source file while it is worked on. The file is read when its code is first
// asked for and again when it changed on disk; edits stay in memory until a unit of work commits
// them. Components of several projects that name the same file share its document.
class ModuleDocument {
 public:
  ModuleDocument(EnvironmentState& state, const CodePage& page, std::string path)
      : file_(state, page, std::move(path)), state_(state) {}

  ModuleFile& file() { return file_; }
  const ModuleFile& file() const { return file_; }

  // The lines as edited so far; outside a unit of work the file is looked at for changes by
  // others first. Raises platform::Error when the file cannot be read.
  const ModuleText& Text() { return ForReading().text; }
  const SourceIndex& Index() { return ForReading().index; }

  // Raises platform::Error (kErrModuleNotEditable) when the file cannot be read as source text; it
  // has no lines then.
  void RequireSource();

  // Access to the lines for one edit: Replace of ModuleText and so on, then SourceIndex::Update.
  // Raises platform::Error: kErrModuleNotEditable for a file that is read-only, outside the
  // project's folders or no source text; kConflict when it changed since its lines were read.
  struct Edit {
    ModuleText& text;
    SourceIndex& index;
  };
  Edit BeginEdit();

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
    SourceIndex index;  // of text
    files::FileStamp stamp;
    messages::Message not_source;   // why it is no source text, presented without lines; else empty
    bool seen_in_unit = false;      // the open unit of work looked at the file
    bool editable_in_unit = false;  // and may edit it
  };

  Loaded& ForReading();
  void Load();
  bool IsCurrent();
  bool IsUnchangedOnDisk();
  bool AdoptCollected() noexcept;

  ModuleFile file_;
  EnvironmentState& state_;
  std::unique_ptr<Loaded> loaded_;
  std::unique_ptr<Loaded> saved_;  // edits that were there before the unit of work began
  files::Contents collected_;      // what the unit of work writes
  std::string spare_;              // room for that: large memory that is new costs time
};

// The document of a file: the one that is open, or a new one.
std::shared_ptr<ModuleDocument> OpenDocument(EnvironmentState& state, const CodePage& page,
                                             const std::string& path);

}  // namespace vbfiles
