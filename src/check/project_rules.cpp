// SPDX-License-Identifier: MIT
#include "check/project_rules.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/text.h"
#include "store/schema.h"
#include "vbfiles/vb_project.h"

namespace check {
namespace {

using platform::Connection;

void CheckFiles(vbfiles::Environment& environment, Findings& findings) {
  for (const auto& project : environment.Projects()) {
    for (const messages::Message& problem : project->Problems()) {
      findings.Add({rule::kProjectFile, Line(project->FileName(), 0), {{"<Why>", problem}}});
    }
  }
}

}  // namespace

void CheckProject(const Parts& parts, Findings& findings) {
  if (parts.count_faults && findings.Wants(rule::kDamage)) {
    const std::size_t count = parts.count_faults();
    if (count > 0) findings.Add({rule::kDamage, Line(parts.path, 0), {{"<Count>", count}}});
  }
  if (parts.files) CheckFiles(*parts.files, findings);
}

void CheckCounts(const Rows& rows, const Parts& parts, Findings& findings) {
  if (rows.missing() > 0) {
    findings.Add({rule::kDamage, Line(parts.path, 0), {{"<Count>", rows.missing()}}});
  }
}

std::vector<Finding> FindMissing(Connection& connection) {
  std::vector<Finding> findings;
  for (const std::string& name : store::MissingFromSchema(connection)) {
    const std::string table = name.substr(0, name.find('.'));
    const std::string column = table == name ? "" : name.substr(table.size() + 1);
    findings.push_back({rule::kNoColumn, Row(table, 0, column), {{"<Name>", name}}});
  }
  if (!findings.empty()) return findings;
  for (const std::string& name : store::MissingIndexes(connection)) {
    const std::string table = name.substr(0, name.find('.'));
    findings.push_back({rule::kNoIndex, Row(table, 0, ""), {{"<Name>", name}}});
  }
  return findings;
}

}  // namespace check
