// SPDX-License-Identifier: MIT
#include "codegen/code_context.h"

#include <optional>
#include <vector>

#include "codegen/source_line.h"
#include "codegen/sub_lines.h"
#include "platform/prog_id.h"

namespace codegen {

std::string FileNameOf(const platform::VBComponent& component) {
  const std::string path = component.FileName();
  return path.substr(path.find_last_of("/\\") + 1);
}

std::string Place::File() const { return FileNameOf(*component); }

Place Locate(const CodeContext& context, std::string_view prog_id) {
  Place place{std::string(prog_id), nullptr};
  const platform::ProgId named(prog_id);
  if (!context.vbe || named.project().empty()) return place;
  const auto project = context.vbe->FindProject(named.project());
  if (!project) return place;
  const std::string_view name = named.class_name();
  place.component = project->FindComponent(name.substr(0, name.find('.')));
  if (place.component) place.module = place.component->Module();
  if (place.module) place.module->RequireSource();
  return place;
}

std::string SubText(const Place& place, std::string_view name, bool with_header) {
  const auto sub = place ? FindSub(*place.module, name) : std::nullopt;
  if (!sub) return {};
  std::vector<std::string> lines;
  if (with_header) lines = FindHeaderRegion(*place.module, *sub).lines;
  const std::vector<std::string> body = ProcedureLines(*place.module, *sub);
  lines.insert(lines.end(), body.begin(), body.end());
  return JoinLines(lines);
}

}  // namespace codegen
