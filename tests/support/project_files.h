// SPDX-License-Identifier: MIT
// The files of a formula server project in memory.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "files/memory_file_system.h"

namespace support {

inline constexpr const char* kProjectPath = "/plant/PumpServer.vbp";

// Path of a class of the project.
inline std::string ClassPath(std::string_view name) {
  return "/plant/" + std::string(name) + ".cls";
}

// What stands above the first visible line of a class that can hold formulas, or of a private one.
inline std::string ClassHeader(std::string_view name, bool is_public = true) {
  const std::string shown = is_public ? "True" : "False";
  return "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = " + std::string(is_public ? "-1" : "0") +
         "  '" + shown + "\r\nEND\r\nAttribute VB_Name = \"" + std::string(name) +
         "\"\r\nAttribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = " + shown +
         "\r\nAttribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = " + shown + "\r\n";
}

// The files of a project PumpServer with these public classes: name and code.
inline void PutProject(files::MemoryFileSystem& system,
                       const std::map<std::string, std::string>& classes) {
  std::string project = "Type=OleDll\r\n";
  for (const auto& [name, code] : classes) {
    project += "Class=" + name + "; " + name + ".cls\r\n";
    system.Put(ClassPath(name), ClassHeader(name) + code);
  }
  system.Put(kProjectPath, project + "Name=\"PumpServer\"\r\n");
}

}  // namespace support
