// SPDX-License-Identifier: MIT
// What an operation changed in the rows, as far as code follows them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "codegen/code_places.h"

namespace codegen {

struct FormulaName {
  std::string prog_id;
  std::string name;
};

// Operations append to it while they change rows; the code is brought into step at their end.
struct Touched {
  // A formula that was added, deleted, renamed or moved to another class.
  struct Formula {
    std::optional<FormulaName> before;     // nothing: added
    std::optional<FormulaName> now;        // nothing: deleted
    bool with_code = false;                // a move takes the old procedure's text along
    std::vector<std::string> arguments{};  // of a deleted one: the aliases that its header lists
    std::string code{};  // of an added one: its procedure; empty: one without statements
  };
  // An argument that a class's formula gained or lost.
  struct Argument {
    FormulaName formula;  // without a name: its header is brought into step already
    std::int32_t alias_id = 0;
    std::string alias;
    std::string item;
    bool gained = false;
    std::string moved_from = {};  // class whose declaration tells the type of an unknown item
  };
  // An alias whose name or item changed.
  struct Alias {
    std::int32_t id = 0;
    std::string old_name;
    std::string old_item;
    std::string name;
  };
  // The declaration of an alias in one class, whatever else of it the class declares.
  struct Declaration {
    std::string prog_id;
    std::string alias;
    std::string item;      // empty: no formula of the class uses the alias
    std::string old_item;  // a declaration that names it is ours
  };

  // A name whose uses in procedures follow, before anything else of the code does.
  struct Uses {
    std::vector<std::string> prog_ids;  // classes that declare it
    std::string old_name;
    std::string name;
    std::string procedure = {};  // of the first class, where alone it follows; empty: everywhere
    bool in_comments = false;    // also as a word in comments of the classes
    bool in_literals = false;    // the same in their literals
  };

  // Another text at places of the code, which are sorted.
  struct Replacement {
    std::vector<CodePlace> places;
    std::string text;
  };

  std::vector<Replacement> replacements;
  std::vector<Uses> uses;
  std::vector<Formula> formulas;
  std::vector<Argument> arguments;
  std::vector<Alias> aliases;
  std::vector<Declaration> declarations;
  std::vector<FormulaName> headers;  // of formulas of which nothing else changed
};

}  // namespace codegen
