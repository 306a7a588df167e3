// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/file_identity.h"
#include "files/file_system.h"
#include "files/journal_format.h"
#include "files/recovery.h"

namespace files::journal {

// A file of the journal, compared with what is there now.
struct InspectedFile {
  std::string path;
  bool is_before = true;  // as before the change, and as after it: both when it is not changed
  bool is_after = true;
  bool is_missing = false;

  // A file with ranges.
  bool ranged = false;
  RangedFileRecord sizes;
  std::uint64_t size_now = 0;
  std::uint64_t edited_sectors = 0;  // neither as before nor as after
  std::uint64_t first_edited = 0;    // byte offset

  // A whole file.
  WholeFileRecord whole;
  Version now;
  std::int64_t modified_ns = 0;
  Version temporary_now;
  // The name under which the version stands that belongs to `path`, when the program died between
  // taking it out and looking at it; "" when it is in its place. `now` is that version.
  std::string displaced;
  bool has_kept_parts = false;  // the journal holds only the rest of its contents before

  FileState State() const;
  // Whether the state before is there or can be made.
  bool CanPutBack() const;
};

struct Inspection {
  JournalCondition condition = JournalCondition::kNone;
  bool readable_to_end = false;
  Header header;
  std::string database;  // where the journal says that it belongs
  std::string outside;   // the first file that it names and that it must not; "" for none
  std::string outside_folder;
  bool passed_over = false;  // whether it names files that were not looked at
  std::vector<InspectedFile> files;
};

// What the states of the files say together. `database_written`: the database was written since
// the journal was begun, as far as its time and size tell.
JournalCondition Classify(const Inspection& inspection, bool database_written);

enum class Scope {
  kAllFiles,
  kDatabase,  // only the database is looked at and listed
};

// Reads a journal and compares each file that it names with its states before and after. Changes
// nothing; memory is bounded whatever the journal holds, but for the whole files themselves. Of a
// journal that names anything but the database at this path, files within the reach and temporary
// files beside those, nothing is used. `database` as ResolveTarget returns it.
Inspection Inspect(FileSystem& system, RandomAccessFile& journal, const std::string& database,
                   const Reach& reach, Scope scope = Scope::kAllFiles);

}  // namespace files::journal
