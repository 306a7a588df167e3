// SPDX-License-Identifier: MIT
#include "vbfiles/project_file.h"

#include <array>
#include <functional>

#include "vbcode/source_lines.h"
#include "vbfiles/field_text.h"
#include "vbfiles/physical_lines.h"

namespace vbfiles {

using vbcode::IsKeyword;

namespace {

using platform::ComponentType;
using platform::ProjectType;

struct ComponentKey {
  std::string_view key;
  ComponentType type;
  bool named;  // NAME; PATH instead of PATH
};

constexpr std::array<ComponentKey, 9> kComponentKeys = {{
    {"class", ComponentType::kClassModule, true},
    {"module", ComponentType::kStdModule, true},
    {"form", ComponentType::kVBForm, false},
    {"usercontrol", ComponentType::kUserControl, false},
    {"propertypage", ComponentType::kPropPage, false},
    {"userdocument", ComponentType::kDocObject, false},
    {"designer", ComponentType::kActiveXDesigner, false},
    {"relateddoc", ComponentType::kRelatedDocument, false},
    {"resfile32", ComponentType::kResFile, false},
}};

// Calls `take` with key and value of each Key=Value line up to the first section.
void ForEachSetting(std::string_view text,
                    const std::function<void(std::string_view, std::string_view)>& take) {
  std::size_t begin = text.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
  while (begin < text.size()) {
    const PhysicalLine physical = ReadPhysicalLine(text, begin);
    const std::string_view line = Trimmed(TextOf(text, physical));
    begin = physical.next;
    if (!line.empty() && line.front() == '[') return;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    take(Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)));
  }
}

ProjectType TypeOf(std::string_view value) {
  if (IsKeyword(value, "oleexe")) return ProjectType::kActiveXExe;
  if (IsKeyword(value, "oledll")) return ProjectType::kActiveXDll;
  if (IsKeyword(value, "control")) return ProjectType::kActiveXControl;
  return ProjectType::kStandardExe;
}

ComponentEntry EntryOf(const ComponentKey& key, std::string_view value) {
  ComponentEntry entry{key.type, "", ""};
  const std::size_t semicolon = key.named ? value.find(';') : std::string_view::npos;
  if (semicolon != std::string_view::npos) {
    entry.name = Trimmed(value.substr(0, semicolon));
    value.remove_prefix(semicolon + 1);
  }
  entry.path = Unquoted(Trimmed(value));
  return entry;
}

}  // namespace

ProjectFile ParseProjectFile(std::string_view text) {
  ProjectFile project;
  ForEachSetting(text, [&](std::string_view key, std::string_view value) {
    if (IsKeyword(key, "type")) {
      project.type = TypeOf(value);
    } else if (IsKeyword(key, "name")) {
      project.name = Unquoted(value);
    } else {
      for (const ComponentKey& component : kComponentKeys) {
        if (!IsKeyword(key, component.key)) continue;
        ComponentEntry entry = EntryOf(component, value);
        if (!entry.path.empty()) project.components.push_back(std::move(entry));
      }
    }
  });
  return project;
}

std::vector<std::string> ParseGroupFile(std::string_view text) {
  std::vector<std::string> projects;
  std::size_t startup_projects = 0;
  ForEachSetting(text, [&](std::string_view key, std::string_view value) {
    if (value.empty()) return;
    if (IsKeyword(key, "startupproject")) {
      projects.insert(projects.begin() + static_cast<std::ptrdiff_t>(startup_projects++),
                      std::string(Unquoted(value)));
    } else if (IsKeyword(key, "project")) {
      projects.emplace_back(Unquoted(value));
    }
  });
  return projects;
}

}  // namespace vbfiles
