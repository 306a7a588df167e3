// SPDX-License-Identifier: MIT
// Where a procedure's code and the arguments that are kept for it disagree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "vbcode/program.h"

namespace vbcode {

// A procedure that is run with values under public names of its class.
struct FormulaCode {
  struct Argument {
    std::string alias;
    bool in = false;   // is brought up to date before
    bool out = false;  // is handed on behind
  };
  std::int32_t module = 0;
  std::string procedure;
  std::vector<Argument> arguments;
};

enum class FindingKind {
  kAliasNotArgument,  // the code uses an alias that is no argument
  kArgumentUnused,    // an argument that the code never uses
  kInOnlyWritten,     // In, and never read
  kOutNeverWritten,   // Out, and only read
};

struct BodyFinding {
  FindingKind kind = FindingKind::kAliasNotArgument;
  std::size_t formula = 0;  // index
  std::string alias;        // as the caller spelled it
  Effect effect = 0;        // what the code does with it: kReads, kWrites, kUndecided
  // The first place that uses it, perhaps in a procedure that is called; the formula's declaration
  // where there is none.
  Use place;
};

// Of formulas whose procedures exist. What the code may do beyond what is seen, by a member of
// unknown name or by somebody who was given the object, is no ground for a finding.
std::vector<BodyFinding> FindBodyFindings(const Program& program,
                                          const std::vector<FormulaCode>& formulas,
                                          const std::vector<std::string>& aliases);

}  // namespace vbcode
