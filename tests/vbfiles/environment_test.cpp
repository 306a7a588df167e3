// SPDX-License-Identifier: MIT
#include "vbfiles/environment.h"

#include <gtest/gtest.h>

#include <string>

#include "files/memory_file_system.h"

namespace vbfiles {
namespace {

std::string ClassFile(const std::string& name, const std::string& code) {
  return "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\nAttribute VB_Name = \"" +
         name +
         "\"\r\nAttribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = True\r\n"
         "Attribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = True\r\n" +
         code;
}

TEST(Environment, EditsAreWrittenByTheUnitOfWork) {
  files::MemoryFileSystem system;
  system.Put("/plant/Pump.vbp",
             "Type=OleDll\r\nClass=CPump; classes\\cpump.CLS\r\nName=\"PumpServer\"\r\n");
  const std::string code = "Option Explicit\r\n\r\nPrivate mCount As Long\r\n";
  system.Put("/plant/Classes/CPump.cls", ClassFile("CPump", code));
  Environment environment(system);
  environment.Open("/plant/Pump.vbp");

  const auto project = environment.FindProject("pumpserver");
  ASSERT_NE(project, nullptr);
  EXPECT_EQ(project->Type(), platform::ProjectType::kActiveXDll);
  const auto component = project->FindComponent("CPUMP");
  ASSERT_NE(component, nullptr);
  EXPECT_EQ(component->GetInstancing(), platform::Instancing::kMultiUse);
  platform::CodeModule& module = *component->Module();

  environment.Save();
  EXPECT_EQ(module.Lines(1, 99), "Option Explicit\r\n\r\nPrivate mCount As Long");
  module.InsertLines(4, "Public Level as Double 'Tank1.Level");
  module.AddFromString("Public Sub Fill()\r\n\r\nEnd Sub");
  EXPECT_EQ(module.ProcBodyLine("fill", platform::ProcKind::kProc), 5);
  files::ChangeSet changes;
  environment.Collect(changes);
  ASSERT_EQ(changes.files.size(), 1u);
  EXPECT_EQ(changes.files[0].path, "/plant/Classes/CPump.cls");
  EXPECT_EQ(changes.files[0].before, ClassFile("CPump", code));
  EXPECT_EQ(changes.files[0].after,
            ClassFile("CPump", code + "Public Level as Double 'Tank1.Level\r\n"
                                      "Public Sub Fill()\r\n\r\nEnd Sub\r\n"));
}

}  // namespace
}  // namespace vbfiles
