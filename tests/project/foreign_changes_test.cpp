// SPDX-License-Identifier: MIT
#include "project/foreign_changes.h"

#include <gtest/gtest.h>

#include "tests/support/sample_plant.h"

namespace {

using support::kPlantDatabase;

// One step after the other on the same project; `seen` is what the look after it says.
TEST(ForeignChanges, OwnChangesAreNone) {
  support::SamplePlant plant;
  project::ForeignChanges changes(plant.system, kPlantDatabase);
  plant.unit.Enlist(changes);
  plant.connection->Open(store::ProjectConnectionString(kPlantDatabase));
  const auto add = [](recordset::JetConnection& connection, const std::string& alias) {
    support::MemoryDatabase::Open(connection, "TvbfAlias")
        ->AddNew({"ItemID", "VBAlias"}, {"Item", alias});
  };
  const auto own = [&](const std::string& alias) {
    platform::UnitOfWorkScope scope(plant.unit);
    add(*plant.connection, alias);
    scope.Commit();
  };
  const auto foreign = [&](const std::string& alias) {
    recordset::JetConnection other(plant.system);
    other.Open(store::ProjectConnectionString(kPlantDatabase));
    add(other, alias);
  };
  EXPECT_FALSE(changes.Look()) << "opening is no change";
  own("First");
  EXPECT_FALSE(changes.Look());
  foreign("Second");
  EXPECT_TRUE(changes.Look());
  EXPECT_TRUE(changes.Look()) << "until it is accepted";
  changes.Accept();
  EXPECT_FALSE(changes.Look());
  foreign("Third");
  own("Fourth");
  EXPECT_TRUE(changes.Look()) << "an own change does not hide it";
  changes.Accept();
  { const platform::UnitOfWorkScope given_up(plant.unit); }
  EXPECT_FALSE(changes.Look());
  EXPECT_EQ(plant.Rows("TvbfAlias", {"VBAlias"}).size(), 4u);
}

}  // namespace
