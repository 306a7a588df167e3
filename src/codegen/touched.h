// SPDX-License-Identifier: MIT
// What an operation changed in the rows, as far as code follows them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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

  std::vector<Formula> formulas;
  std::vector<Argument> arguments;
  std::vector<Alias> aliases;
};

}  // namespace codegen
