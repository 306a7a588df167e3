// SPDX-License-Identifier: MIT
#include "codegen/code_places.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/project_files.h"
#include "vbfiles/environment.h"

namespace codegen {
namespace {

std::string List(const std::vector<CodePlace>& places) {
  std::string list;
  for (const CodePlace& place : places) {
    list += (list.empty() ? "" : ", ") + place.module.substr(place.module.find('.') + 1) + ' ' +
            std::to_string(place.line) + ':' + std::to_string(place.column);
  }
  return list;
}

// What stands at a place: "name; declared; uses".
TEST(LookUpNameTest, FindsDeclarationsAndUsesOfWhatStandsThere) {
  files::MemoryFileSystem system;
  support::PutProject(system, {{"CA",
                                "Public Level As Long\r\n"
                                "Private Sub Own(ByVal Level As Long)\r\n"
                                "  Dim n\xE4he: Level = n\xE4he\r\n"
                                "End Sub\r\n"
                                "Public Property Get P()\r\n"
                                "  P = Level + Nobody\r\n"
                                "End Property\r\n"
                                "Public Property Let P(x)\r\n"
                                "End Property\r\n"},
                               {"CB",
                                "Sub Use(a As CA)\r\n"
                                "  a.Level = a.P: Level = 1 'a.Level\r\n"
                                "End Sub\r\n"}});
  vbfiles::Environment environment(system);
  environment.Open(support::kProjectPath);
  const struct {
    const char* where;
    const char* prog_id;
    std::int32_t line, column;
    const char* expected;
  } kCases[] = {
      {"a member, used", "PumpServer.CA", 6, 8, "Level; CA 1:8; CA 6:7, CB 2:5"},
      {"a member, declared", "PumpServer.CA", 1, 8, "Level; CA 1:8; CA 6:7, CB 2:5"},
      {"a member, from outside", "PumpServer.CB", 2, 10, "Level; CA 1:8; CA 6:7, CB 2:5"},
      {"a parameter that hides it", "PumpServer.CA", 3, 14, "Level; CA 2:23; CA 3:13"},
      {"its declaration", "PumpServer.CA", 2, 23, "Level; CA 2:23; CA 3:13"},
      {"a local variable", "PumpServer.CA", 3, 22, "n\xC3\xA4he; CA 3:7; CA 3:21"},
      {"a property", "PumpServer.CB", 2, 15, "P; CA 5:21, CA 8:21; CA 6:3, CB 2:15"},
      {"a name of nobody", "PumpServer.CA", 6, 15, "Nobody; ; CA 6:15"},
      {"a name of nobody's like another's", "PumpServer.CB", 2, 19, "Level; ; CB 2:18"},
      {"a comment", "PumpServer.CB", 2, 32, "; ; "},
      {"no such line", "PumpServer.CA", 99, 1, "; ; "},
      {"no such class", "PumpServer.CX", 1, 1, "; ; "},
  };
  for (const auto& test : kCases) {
    const NameInCode found = LookUpName(environment, test.prog_id, test.line, test.column);
    EXPECT_EQ(found.name + "; " + List(found.declared) + "; " + List(found.uses), test.expected)
        << test.where;
  }
}

}  // namespace
}  // namespace codegen
