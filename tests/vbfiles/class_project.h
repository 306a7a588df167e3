// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "files/memory_file_system.h"
#include "tests/support/project_files.h"
#include "vbfiles/environment.h"

// A project PumpServer of one class CPump in memory.
class ClassProject {
 public:
  static constexpr const char* kPath = "/plant/CPump.cls";

  static std::string Header(const std::string& name = "CPump") {
    return support::ClassHeader(name);
  }

  // The code stands behind the class's header; with `whole` it is the whole file.
  explicit ClassProject(const std::string& code, vbfiles::Options options = {}, bool whole = false)
      : environment(system, std::move(options)) {
    support::PutProject(system, {{"CPump", code}});
    if (whole) system.Put(kPath, code);
    environment.Open(support::kProjectPath);
  }

  std::shared_ptr<platform::VBComponent> Component() {
    return environment.FindProject("PumpServer")->VBComponents().front();
  }
  platform::CodeModule& Module() { return *Component()->Module(); }

  // All visible lines, each with LF.
  std::string Text() {
    const std::int32_t count = Module().CountOfLines();
    std::string text = count == 0 ? "" : Module().Lines(1, count) + "\r\n";
    std::erase(text, '\r');
    return text;
  }

  // What the unit of work would write into the class's file; the file's contents when nothing.
  std::string Written() {
    files::ChangeSet changes;
    environment.Collect(changes);
    return changes.files.empty() ? system.Get(kPath) : *changes.files.front().after;
  }

  // Writes what was edited, as a unit of work does.
  void CommitChanges() {
    system.Put(kPath, Written());
    environment.Committed();
  }

  files::MemoryFileSystem system;
  vbfiles::Environment environment;
};
