// SPDX-License-Identifier: MIT
// Rows of a project as a list that an import reads back.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "exchange/formula_copy.h"
#include "exchange/table_header.h"
#include "store/operations.h"

namespace exchange {

// Takes the text piece by piece.
using Sink = std::function<void(std::string_view)>;

struct ExportedRows {
  bool aliases = true;
  bool formulas = true;  // with their arguments
};

// One object with the arrays that are wanted, in the order of ID, without IDs. Raises
// platform::Error when the database fails, as does the other.
void ExportJson(store::Operations& operations, const ExportedRows& rows, const Sink& sink);

// A table of aliases or of formulas: comma, CR LF, a header. No cell can be run by a spreadsheet.
// Returns how many cells hold control characters, which a table cannot carry: JSON can.
std::size_t ExportCsv(store::Operations& operations, TableKind kind, const Sink& sink);

std::string AliasesAsJson(std::span<const store::AliasRecord> aliases);
// Formulas as JSON, with their arguments and the text of their procedures.
std::string FormulasAsJson(std::span<const CopySource> formulas);
// The same as lines for a spreadsheet, with tabs and a header, without code. No cell can be run.
std::string FormulasAsLines(std::span<const CopySource> formulas);

}  // namespace exchange
