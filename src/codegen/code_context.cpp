// SPDX-License-Identifier: MIT
#include "codegen/code_context.h"

#include <optional>
#include <vector>

#include "codegen/source_line.h"
#include "codegen/sub_lines.h"

namespace codegen {

std::string FileNameOf(const platform::VBComponent& component) {
  const std::string path = component.FileName();
  return path.substr(path.find_last_of("/\\") + 1);
}

std::string Place::File() const { return FileNameOf(*component); }

Place Locate(const CodeContext& context, std::string_view prog_id) {
  Place place{std::string(prog_id), nullptr};
  const std::size_t point = prog_id.find('.');
  if (!context.vbe || point == std::string_view::npos) return place;
  const std::string_view rest = prog_id.substr(point + 1);
  const auto project = context.vbe->FindProject(prog_id.substr(0, point));
  if (!project) return place;
  place.component = project->FindComponent(rest.substr(0, rest.find('.')));
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
