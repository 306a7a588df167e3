// SPDX-License-Identifier: MIT
// The example project, written as the development environment writes it, in a copy in memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "vbfiles/environment.h"

namespace vbfiles {
namespace {

using platform::ProcKind;
using ::testing::ElementsAre;

void Copy(const std::string& from, const std::string& to, files::MemoryFileSystem& system) {
  files::FileSystem& real = files::RealFileSystem();
  for (const files::DirectoryEntry& entry : real.List(from)) {
    if (entry.is_directory) {
      Copy(from + "/" + entry.name, to + "/" + entry.name, system);
    } else {
      system.Put(to + "/" + entry.name, files::ReadFile(real, from + "/" + entry.name));
    }
  }
}

class ExampleProject : public ::testing::Test {
 protected:
  ExampleProject() {
    Copy(OV_SOURCE_DIR "/examples/plant", "/plant", system_);
    environment_.Open(FindProjectFiles(system_, "/plant"));
    project_ = environment_.FindProject("PumpServer");
  }

  files::MemoryFileSystem system_;
  Environment environment_{system_};
  std::shared_ptr<platform::VBProject> project_;
};

TEST_F(ExampleProject, IsListed) {
  EXPECT_TRUE(environment_.Problems().empty());
  ASSERT_EQ(environment_.VBProjects().size(), 1u);
  EXPECT_EQ(project_->Type(), platform::ProjectType::kActiveXDll);
  std::vector<std::string> components;
  for (const auto& component : project_->VBComponents()) {
    components.push_back(component->Name() + " " +
                         std::to_string(static_cast<int>(component->Type())) + " " +
                         std::to_string(static_cast<int>(component->GetInstancing())) + " " +
                         std::to_string(component->Module()->CountOfLines()));
  }
  EXPECT_THAT(components,
              ElementsAre("CPump 2 5 25", "CTank 2 5 54", "CReading 2 2 3", "CFilter 2 1 14",
                          "GUnits 2 6 3", "MMain 1 0 14", "frmPanel 5 0 7"));
}

TEST_F(ExampleProject, MembersOfATank) {
  platform::CodeModule& tank = *project_->FindComponent("CTank")->Module();
  std::vector<std::string> members;
  for (const platform::Member& member : tank.Members()) {
    members.push_back(member.name + " " + std::to_string(member.code_location));
  }
  EXPECT_THAT(members, ElementsAre("Overflow 8", "mPump 10", "mLimits 11", "mReadings 12",
                                   "Temperature 13", "Item 16", "NewEnum 20", "Mean 24",
                                   "SetLimits 34", "Add 38", "Class_Initialize 47"));
  EXPECT_EQ(tank.CountOfDeclarationLines(), 13);
  EXPECT_EQ(tank.Lines(13, 1), "Public Temperature As Double 'in °C");
  EXPECT_EQ(tank.ProcStartLine("Item", ProcKind::kGet), 14);
}

}  // namespace
}  // namespace vbfiles
