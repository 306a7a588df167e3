// SPDX-License-Identifier: MIT
#include "project/file_settings_service.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "files/real_file_system.h"
#include "files/replace_file.h"
#include "tests/files/temporary_folder.h"
#include "tests/support/child_process.h"

namespace project {
namespace {

constexpr const char* kFile = "/plant/OVEditors.ini";

// Writes so many entries, each under its name.
const support::Work write_settings("write-settings", [](const support::Arguments& arguments) {
  FileSettingsService settings(files::RealFileSystem(), "");
  for (int i = 0; i < std::stoi(arguments[2]); ++i) {
    if (!settings.WriteIni(arguments[0], "Form", arguments[1] + std::to_string(i), "1")) return 1;
  }
  return 0;
});

TEST(FileSettingsService, TwoWindowsKeepEachOthersSettings) {
  const TemporaryFolder folder;
  const std::string file = folder / "OVEditors.ini";
  constexpr int kEntries = 40;
  std::vector<support::ChildProcess> windows;
  for (const char* name : {"one", "two"}) {
    windows.emplace_back("write-settings",
                         support::Arguments{file, name, std::to_string(kEntries)});
  }
  for (support::ChildProcess& window : windows) EXPECT_EQ(window.Wait(), 0);
  FileSettingsService settings(files::RealFileSystem(), "");
  for (const std::string name : {"one", "two"}) {
    for (int i = 0; i < kEntries; ++i) {
      const std::string entry = name + std::to_string(i);
      EXPECT_EQ(settings.ReadIni(file, "Form", entry, "lost"), "1") << entry;
    }
  }
}

// The file in a project's folder may come from anybody; the user's own may be a link of his.
TEST(FileSettingsService, OnlyTheUsersOwnFileMayBeALink) {
  files::MemoryFileSystem system;
  system.Put("/victim", "[Form]\r\nWidth=7\r\n");
  system.CreateDirectories("/plant");
  system.CreateDirectories("/config");
  system.MakeLink("/victim", kFile);
  system.MakeLink("/victim", "/config/registry.ini");
  FileSettingsService settings(system, "/config");
  EXPECT_EQ(settings.ReadIni(kFile, "Form", "Width", "none"), "none");
  EXPECT_FALSE(settings.WriteIni(kFile, "Form", "Width", "8"));
  EXPECT_EQ(settings.RegistryText("Form", "Width", ""), "7");
  EXPECT_TRUE(settings.WriteRegistry("Form", "Width", "9"));
  EXPECT_TRUE(system.IsLink("/config/registry.ini"));
  EXPECT_EQ(files::ReadFile(system, "/victim"), "[Form]\r\nWidth=9\r\n");
  system.Remove(kFile);
  system.MakeLink("/none", kFile);
  EXPECT_FALSE(settings.WriteIni(kFile, "Form", "Width", "8"));
  EXPECT_FALSE(system.Exists("/none"));
}

}  // namespace
}  // namespace project
