// SPDX-License-Identifier: MIT
// Lists that come into the project, with a preview.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/dialog_context.h"
#include "exchange/contents.h"
#include "exchange/formula_copy.h"
#include "exchange/import_plan.h"
#include "messages/message.h"

namespace dialogs {

struct ListToImport {
  std::string name;  // as the preview is headed
  exchange::Contents contents;
  messages::Message title;      // of the operation
  bool create_aliases = false;  // what is proposed for aliases that are missing
  // Keeps the lines that are left out, before the others are imported; false goes back to the
  // preview. None: they are just left out.
  std::function<bool(const std::vector<exchange::ImportPlan::Line>& refused)> keep_refused = {};
};

// What of the project came or changed.
enum class ListChange {
  kNothing,   // the user left it
  kRows,      // aliases and arguments
  kFormulas,  // and formulas
};

// Shows what the list would do, and does it when the user agrees, as one operation. A failure is
// told, and the preview comes again.
ListChange ImportList(const DialogContext& context, const ListToImport& list);

// Shows what copies of a formula would be while the user says how they differ, and makes them when
// he agrees, as one operation.
ListChange DuplicateFormula(const DialogContext& context, const exchange::CopySource& source);

}  // namespace dialogs
