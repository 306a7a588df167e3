// SPDX-License-Identifier: MIT
// Compares a class with what the rows want of it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "codegen/declaration.h"
#include "codegen/templates.h"
#include "platform/vbide.h"

namespace codegen {

// What the rows want of one class, as far as somebody asks.
struct WantedClass {
  struct Declaration {
    std::string alias;
    std::string item;
    std::string type;
    bool type_kept = false;  // the type is an older declaration's, for nobody knows the item's
  };
  struct Gone {
    std::string alias;
    std::vector<std::string> items;  // a declaration that names one of them is ours
    bool only_ours = false;          // the name is still used: an engineer's own may stay
  };
  struct Formula {
    std::string name;
    std::vector<std::string> aliases;  // of its arguments, as its header lists them
  };

  std::string prog_id;
  std::vector<Gone> gone;  // aliases that no formula of the class uses any more
  std::vector<Declaration> declared;
  std::vector<Formula> formulas;
};

// One place where the class is not as wanted. It is as wanted once `now`, the lines from `line`
// on, are replaced by `wanted`.
struct Difference {
  enum class Kind {
    kLooseDeclaration,    // our declaration of an alias that is gone
    kForeignDeclaration,  // an engineer's own: commented out instead of deleted
    kKeptDeclaration,     // an engineer's own of a name that is still used
    kLeftDeclaration,     // one that cannot go alone and stays
    kNoDeclaration,       // all aliases that are declared nowhere in the class
    kNoSub,               // a formula without its procedure; nothing to replace
    kHeader,              // of a formula
  };
  Kind kind = Kind::kHeader;
  std::vector<std::string> names;  // of aliases, or of the formula
  std::int32_t line = 0;
  std::vector<std::string> now = {};
  std::vector<std::string> wanted = {};
};

// Whether the line declares the alias with that type for that item, whatever blanks and letter
// case it is written with.
bool Says(const VariableLine& line, const WantedClass::Declaration& declaration);

// Visits each difference. Nothing changes unless the visitor mends what it is shown; the
// differences that follow are then those of the changed module.
void Compare(platform::CodeModule& module, const WantedClass& wanted, const Templates& templates,
             const std::function<void(const Difference&)>& visit);

}  // namespace codegen
