// SPDX-License-Identifier: MIT
#include "project/seen_files.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/sample_plant.h"

namespace {

using support::ClassPath;
using support::kPlantDatabase;
using Paths = std::vector<std::string>;

constexpr const char* kState = "/home/seen/files.txt";

// A program that looks after the project's files until it ends.
class Program {
 public:
  explicit Program(support::SamplePlant& plant)
      : plant_(plant), seen_(plant.system, kState, [&plant] {
          Paths paths = {kPlantDatabase, ClassPath("CPump")};
          if (plant.system.Exists(ClassPath("CNew"))) paths.push_back(ClassPath("CNew"));
          return paths;
        }) {
    plant_.unit.Enlist(seen_);
  }

  // What several looks one after the other tell.
  Paths Look() {
    Paths news;
    for (int i = 0; i < 4; ++i) {
      const auto found = seen_.TakeNews();
      if (found) news.insert(news.end(), found->begin(), found->end());
    }
    return news;
  }
  void Write(const std::string& line) {
    platform::UnitOfWorkScope scope(plant_.unit);
    platform::CodeModule& module =
        *plant_.environment->FindProject("PumpServer")->FindComponent("CPump")->Module();
    module.InsertLines(module.CountOfLines() + 1, line);
    scope.Commit();
  }
  project::SeenFiles& seen() { return seen_; }

 private:
  support::SamplePlant& plant_;
  project::SeenFiles seen_;
};

void WriteElsewhere(support::SamplePlant& plant, const char* name) {
  const std::string path = ClassPath(name);
  plant.system.Put(path, plant.system.Get(ClassPath("CPump")) + "' edited\r\n");
}

// Each program works on a plant of its own that has the files of the one before.
TEST(SeenFiles, TellsWhatOthersChangedAlsoBetweenTwoStarts) {
  support::SamplePlant first;
  Program program(first);
  EXPECT_EQ(program.Look(), Paths()) << "the first time all is known";
  program.Write("' own");
  EXPECT_EQ(program.Look(), Paths());
  program.seen().Keep();

  support::SamplePlant second;
  for (const auto& path : {std::string(kPlantDatabase), ClassPath("CPump"), std::string(kState)}) {
    second.system.Put(path, first.system.Get(path));
  }
  WriteElsewhere(second, "CPump");
  WriteElsewhere(second, "CNew");
  Program later(second);
  const Paths news = later.Look();
  EXPECT_NE(std::ranges::find(news, ClassPath("CPump")), news.end());
  EXPECT_NE(std::ranges::find(news, ClassPath("CNew")), news.end()) << "one that came";
  EXPECT_EQ(later.Look(), Paths()) << "told once";
}

TEST(SeenFiles, TellsUntilItIsAcceptedWhateverElseHappens) {
  support::SamplePlant plant;
  Program program(plant);
  program.Look();
  WriteElsewhere(plant, "CPump");
  EXPECT_EQ(program.seen().TakeNews(), std::nullopt) << "somebody may still be writing";
  EXPECT_EQ(program.seen().TakeNews(), Paths{ClassPath("CPump")});
  program.Write("' own");
  EXPECT_EQ(program.Look(), Paths()) << "an own change is no news";
  WriteElsewhere(plant, "CNew");
  EXPECT_EQ(program.Look(), (Paths{ClassPath("CNew"), ClassPath("CPump")}))
      << "but it does not hide what was not accepted";
  program.seen().Accept();
  plant.system.Remove(ClassPath("CNew"));
  EXPECT_EQ(program.Look(), Paths{ClassPath("CNew")}) << "one that went";
  program.seen().Accept();
  WriteElsewhere(plant, "CPump");
  program.Write("' own, over what nobody was told of");
  EXPECT_EQ(program.Look(), Paths{ClassPath("CPump")});
}

TEST(SeenFiles, KnowsNothingWhereItsFileIsDamaged) {
  support::SamplePlant plant;
  plant.system.Put(kState, "12\tx\t/a\n\x01");
  Program program(plant);
  EXPECT_EQ(program.Look(), Paths());
  program.Write("' own");
  program.seen().Keep();
  EXPECT_NE(plant.system.Get(kState).find(ClassPath("CPump") + "\n"), std::string::npos);
}

}  // namespace
