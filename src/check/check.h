// SPDX-License-Identifier: MIT
// What is out of step in a project: rows, code, and one against the other.
#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.h"
#include "codegen/code_context.h"
#include "platform/ado.h"
#include "store/operations.h"
#include "vbfiles/environment.h"

namespace check {

// Called with the steps that are done and their number; what it raises ends the work.
using Progress = std::function<void(std::size_t done, std::size_t total)>;

// What is looked at. All of it must outlive the call.
struct Parts {
  std::string path;  // of the database
  store::Operations& operations;
  const codegen::CodeContext& code;
  platform::Connection& connection;
  vbfiles::Environment* files = nullptr;  // null: no file of a Visual Basic project is judged
  // Whether the catalogue has the item; null when there is no catalogue.
  std::function<bool(std::string_view item)> has_item = {};
  // The number of faults in the database file; null: nobody looks.
  std::function<std::size_t()> count_faults = {};
};

struct Options {
  Severity least = Severity::kHint;
  std::set<const Rule*> silenced = {};
  Progress progress = {};
};

// Looks at everything once and changes nothing. Errors first, rows before files, these by their
// lines. Raises platform::Error when the database fails.
std::vector<Finding> Find(const Parts& parts, const Options& options = {});

// A part of a project that somebody changed.
struct Changed {
  bool rows = true;               // of the database: any class may be out of step with them
  std::set<std::string> classes;  // paths of files
};

// Looks at what changed alone, without what takes long: rows by themselves and against the code,
// not what procedures do, not the database file, not the files of the projects. Otherwise as Find.
std::vector<Finding> FindQuickly(const Parts& parts, const Changed& changed,
                                 const Options& options = {});

// Tables, columns and indexes that the database lacks. Without the first two nothing else can be
// looked at.
std::vector<Finding> FindMissing(platform::Connection& connection);

}  // namespace check
