// SPDX-License-Identifier: MIT
#include "workbench/backups.h"

#include <gtest/gtest.h>

#include <string>

#include "files/memory_file_system.h"

using workbench::Backups;

TEST(Backups, KeepsTheFirstStateOfEachDayAndPutsItBackByteForByte) {
  files::MemoryFileSystem system;
  const std::string bytes("a\0b\r\n\xFF", 6);
  system.Put("/p/Plant.ovs", bytes);
  system.Put("/p/CPump.cls", "one\r\n");
  Backups backups(system, "/state/Plant");
  backups.MakeDaily("2026-11-20", {"/p/Plant.ovs", "/p/CPump.cls", "/p/missing.cls"});
  system.Put("/p/Plant.ovs", "changed");
  backups.MakeDaily("2026-11-20", {"/p/Plant.ovs"});  // a second time that day: nothing
  system.Put("/p/CPump.cls", "two");

  auto list = backups.List();
  ASSERT_EQ(list.size(), 1u);
  backups.Restore(list[0]);
  EXPECT_EQ(system.Get("/p/Plant.ovs"), bytes);
  EXPECT_EQ(system.Get("/p/CPump.cls"), "one\r\n");
}

TEST(Backups, KeepsTheLastTen) {
  files::MemoryFileSystem system;
  system.Put("/p/a", "x");
  Backups backups(system, "/state/a");
  for (int day = 10; day < 30; ++day) backups.MakeDaily("2026-11-" + std::to_string(day), {"/p/a"});
  const auto list = backups.List();
  ASSERT_EQ(list.size(), Backups::kKept);
  EXPECT_EQ(list.front().date, "2026-11-29");
  EXPECT_EQ(list.back().date, "2026-11-20");
}
