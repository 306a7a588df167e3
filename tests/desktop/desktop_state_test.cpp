// SPDX-License-Identifier: MIT
#include "desktop/desktop_state.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/memory_file_system.h"

namespace desktop {
namespace {

TEST(DesktopState, KeepsHowEachProjectIsRead) {
  files::MemoryFileSystem files;
  files.CreateDirectories("/state");
  project::FileSettingsService settings(files, "/config");
  ReadingOptions russian;
  russian.code_page = 1251;
  ReadingOptions chosen;
  chosen.vb_files = {"/a/One [1].vbp", "/a/Two.vbg"};
  chosen.items_file = "/a/my items.csv";
  chosen.writable_folders = {"/shared"};
  {
    DesktopState state(settings, files, "/state");
    state.project = "/a/One.ovs";
    state.KeepOptions("/a/[One]=;.ovs", russian);
    state.KeepOptions("/b/One.ovs", chosen);
    state.KeepOptions("/a/Three.ovs", chosen);
    state.KeepOptions("/a/Three.ovs", russian);
    EXPECT_TRUE(state.Save());
  }
  project::FileSettingsService again(files, "/config");
  const DesktopState state(again, files, "/state");
  EXPECT_EQ(state.project, "/a/One.ovs");
  EXPECT_EQ(state.OptionsOf("/a/[One]=;.ovs").code_page, 1251);
  EXPECT_TRUE(state.OptionsOf("/a/[One]=;.ovs").vb_files.empty());
  EXPECT_EQ(state.OptionsOf("/b/One.ovs").vb_files, chosen.vb_files);
  EXPECT_EQ(state.OptionsOf("/b/One.ovs").items_file, chosen.items_file);
  EXPECT_EQ(state.OptionsOf("/b/One.ovs").writable_folders, chosen.writable_folders);
  EXPECT_EQ(state.OptionsOf("/b/One.ovs").code_page, 0);
  EXPECT_TRUE(state.OptionsOf("/a/Three.ovs").vb_files.empty()) << "the older options";
  EXPECT_TRUE(state.OptionsOf("/c/One.ovs").Empty());
}

TEST(DesktopState, WithoutAFolderNothingIsKept) {
  files::MemoryFileSystem files;
  project::FileSettingsService settings(files, "/config");
  DesktopState state(settings, files, "");
  ReadingOptions options;
  options.code_page = 1251;
  state.KeepOptions("/a/One.ovs", options);
  EXPECT_TRUE(state.OptionsOf("/a/One.ovs").Empty());
  EXPECT_FALSE(state.Save());
}

}  // namespace
}  // namespace desktop
