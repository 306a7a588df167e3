// SPDX-License-Identifier: MIT
// Every operation that changes something, and the project that it is tried on.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/project_state.h"

namespace store {

struct OperationCase {
  const char* name;
  bool edits_code;
  std::function<OperationResult(Operations&)> operation;
};

inline std::vector<OperationCase> OperationCases() {
  return {
      {"AddFormula", true,
       [](Operations& o) {
         return o.AddFormula({"Added", "PumpServer.CTank", 1, 2, true, "c"});
       }},
      {"RenameAndMove", true,
       [](Operations& o) {
         EditFormulaOptions options;
         options.with_code = true;
         return o.EditFormula(1, {"Renamed", "PumpServer.CTank", 3, 0, true, "c"}, options);
       }},
      {"DeleteFormulas", true,
       [](Operations& o) {
         return o.DeleteFormulas(std::vector<std::int32_t>{1, 2});
       }},
      {"AddArguments", true,
       [](Operations& o) {
         const ArgumentValues values[] = {{2, true, false}, {3, false, true}};
         return o.AddArguments(2, values);
       }},
      {"EditArgument", true,
       [](Operations& o) {
         return o.EditArgument(1, {3, false, true});
       }},
      {"DeleteArguments", true,
       [](Operations& o) {
         return o.DeleteArguments(std::vector<std::int32_t>{1, 2, 3});
       }},
      {"AddAliases", false,
       [](Operations& o) {
         const AliasValues values[] = {{"a", "Alpha"}, {"b", "Beta"}};
         return o.AddAliases(values);
       }},
      {"EditAlias", true,
       [](Operations& o) {
         return o.EditAlias(1, {"New.Item", "NewName"});
       }},
      {"EditAliasWithUses", true,
       [](Operations& o) {
         RenameOptions options;
         options.with_uses = true;
         return o.EditAlias(1, {"New.Item", "NewName"}, options);
       }},
      {"ReplaceInCode", true,
       [](Operations& o) {
         const codegen::FoundPlaces found = o.FindInCode("Level = 1", {});
         if (found.unread.empty()) return o.ReplaceInCode(found.places, "Flow = 2");
         return OperationResult{Outcome::kFileProblem, found.unread.front(), {}, {}, {}, {}};
       }},
      {"DeleteAliases", false,
       [](Operations& o) { return o.DeleteAliases(std::vector<std::int32_t>{3}); }},
  };
}

// Level (1), Pump (2), Flow (3); FillTank (1) with Level and Pump, DrainTank (2) in the other
// class with Level.
inline support::Files StartFiles() {
  files::MemoryFileSystem system;
  support::PutProject(system,
                      {{"CPump", "Option Explicit\r\nSub Own()\r\n  Level = 1\r\nEnd Sub\r\n"},
                       {"CTank", "' mine\r\nSub Own()\r\n  Level = 1\r\nEnd Sub\r\n"}});
  support::PutDatabase(system);
  {
    support::OpenProject project(system);
    Operations& operations = *project.operations;
    const AliasValues aliases[] = {{"T.Level", "Level"}, {"T.Pump", "Pump"}, {"T.Flow", "Flow"}};
    operations.AddAliases(aliases);
    operations.AddFormula({"FillTank", "PumpServer.CPump"});
    operations.AddFormula({"DrainTank", "PumpServer.CTank"});
    const ArgumentValues both[] = {{1, true, false}, {2, true, false}};
    operations.AddArguments(1, both);
    operations.AddArguments(2, {both, 1});
  }
  return system.Snapshot();
}

inline std::string StateOf(files::FileSystem& system) {
  return support::StateOf(system, {"CPump", "CTank"});
}

}  // namespace store
