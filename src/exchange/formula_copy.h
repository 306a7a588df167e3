// SPDX-License-Identifier: MIT
// Copies of a formula under other names, with its arguments and its procedure.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "exchange/contents.h"
#include "exchange/import_plan.h"
#include "store/formula_records.h"

namespace exchange {

// The text that is to become another one: in names and items wherever it stands, but never so that
// a number is cut ("Tank1" does not stand in "Tank10"). May be series.
struct Replacement {
  std::string from;
  std::string to;
};

// The formula to be copied, of any project.
struct CopySource {
  store::FormulaRecord formula;
  std::vector<store::ArgumentRecord> arguments;
  std::string code;  // its procedure from declaration to end; empty when there is none
  bool is_of_this_project = true;  // into which it is copied
};

struct CopyRequest {
  std::string name = {};     // of the copy, may be a series; empty: the old one with replacements
  std::string prog_id = {};  // empty: that of the source
  std::vector<Replacement> replacements = {};
};

// Copies that are planned, and the rows that the plan refers to.
struct CopyPlan {
  Contents contents;
  ImportPlan plan;
};

// Plans one copy, or one for each text of a series. Aliases and items of the arguments are
// replaced, too; an alias whose item becomes another one gets another name, and what is missing is
// created. The procedure says the new names. A copy that would stand beside its source under the
// same name takes the next free number. Raises messages::Error for series of different lengths and
// platform::Error when the project cannot be read.
CopyPlan PlanCopies(const CopySource& source, const CopyRequest& request,
                    store::Operations& operations, ImportOptions options);

// The text with the replacements.
std::string Replaced(std::string_view text, const std::vector<Replacement>& replacements);

// A procedure's text with names exchanged, which are compared without regard to case, and with
// replacements in all other words, in comments and in literals. Words of the language stay, and so
// does a word that would become no name.
std::string ReplacedInCode(std::string_view code,
                           const std::vector<std::pair<std::string, std::string>>& names,
                           const std::vector<Replacement>& replacements);

}  // namespace exchange
