// SPDX-License-Identifier: MIT
// What a procedure reads and writes: itself, and through what it calls.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "vbcode/program.h"

namespace vbcode {

// One variable, property or procedure outside of procedures that a procedure touches.
struct Touched {
  std::int32_t declaration = kNone;  // numbered through all modules; kNone for a name that nobody
                                     // declares
  NameId name = kNoName;
  Effect effect = 0;          // kReads, kWrites, kCalls, kUndecided
  bool direct = false;        // in the procedure itself
  bool other_object = false;  // only of other objects than the one the procedure runs in
  Use first;                  // where, first of all
};

struct Effects {
  std::vector<Touched> touched;  // in the order of their first places
  // More may be done than is seen: Me is handed out, a member is called by a computed name.
  bool open = false;
};

// What is done with a variable of a module's own, or with a name that nobody declares there.
struct OwnVariable {
  Effect effect = 0;     // kReads, kWrites, kUndecided
  bool is_sure = false;  // false: only something that may be it
  Use first;             // for sure, first of all
};
// Of the effects, by name, those on variables of the module that the procedure belongs to.
std::unordered_map<NameId, OwnVariable> OwnVariables(const Program& program, std::int32_t module,
                                                     const Effects& effects);

// Looks for the effects of one procedure after the other. The program must outlive it, unchanged.
class EffectFinder {
 public:
  explicit EffectFinder(const Program& program);

  // Of the module's procedure. Follows calls into all modules of the program; each procedure once,
  // so that cycles end.
  Effects Find(std::int32_t module, std::int32_t procedure) const;

 private:
  friend class EffectWalk;

  // A variable that takes the events of its object.
  struct Listener {
    std::int32_t module = 0;
    NameId variable = kNoName;
  };

  const Program& program_;
  // By the name of the class.
  std::unordered_map<NameId, std::vector<std::int32_t>> classes_;
  std::unordered_map<NameId, std::vector<std::int32_t>> implementers_;
  std::unordered_map<NameId, std::vector<Listener>> listeners_;
};

}  // namespace vbcode
