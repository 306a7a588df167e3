// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "files/memory_file_system.h"
#include "vbfiles/environment.h"

// A project PumpServer of one class CPump in memory.
class ClassProject {
 public:
  static constexpr const char* kPath = "/plant/CPump.cls";

  static std::string Header(const std::string& name = "CPump") {
    return "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\nAttribute VB_Name = \"" +
           name +
           "\"\r\nAttribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = True\r\n"
           "Attribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = True\r\n";
  }

  // The code stands behind the class's header; with `whole` it is the whole file.
  explicit ClassProject(const std::string& code, vbfiles::Options options = {}, bool whole = false)
      : environment(system, std::move(options)) {
    system.Put("/plant/PumpServer.vbp",
               "Type=OleDll\r\nClass=CPump; CPump.cls\r\nName=\"PumpServer\"\r\n");
    system.Put(kPath, (whole ? "" : Header()) + code);
    environment.Open("/plant/PumpServer.vbp");
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

  files::MemoryFileSystem system;
  vbfiles::Environment environment;
};
