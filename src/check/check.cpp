// SPDX-License-Identifier: MIT
#include "check/check.h"

#include "check/body_rules.h"
#include "check/class_rules.h"
#include "check/findings.h"
#include "check/modules.h"
#include "check/project_rules.h"
#include "check/row_rules.h"
#include "check/rows.h"

namespace check {

std::vector<Finding> Find(const Parts& parts, const Options& options) {
  Findings findings(options.least, options.silenced);
  for (Finding& missing : FindMissing(parts.connection)) findings.Add(std::move(missing));
  CheckProject(parts, findings);
  {
    // What was read goes before the findings are put in order.
    const Rows rows(parts.operations, parts.code.items);
    CheckRows(rows, parts, findings);
    const Modules modules(parts, findings, options.progress);
    CheckClasses(rows, modules, parts, findings, options.progress);
    CheckBodies(rows, modules, findings);
  }
  return findings.Take();
}

std::vector<Finding> FindQuickly(const Parts& parts, const Changed& changed,
                                 const Options& options) {
  Findings findings(options.least, options.silenced);
  {
    const Rows rows(parts.operations, parts.code.items);
    if (changed.rows) {
      CheckCounts(rows, parts, findings);
      CheckRows(rows, parts, findings);
    }
    const Modules modules(parts, findings, options.progress, &changed);
    CheckClasses(rows, modules, parts, findings, options.progress);
  }
  return findings.Take();
}

}  // namespace check
