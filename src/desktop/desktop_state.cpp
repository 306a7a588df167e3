// SPDX-License-Identifier: MIT
#include "desktop/desktop_state.h"

#include "platform/variant.h"
#include "project/state_files.h"

namespace desktop {

namespace {

constexpr std::string_view kSection = "Desktop";

// The project's path, without what ends the name of a section.
std::string SectionOf(const std::string& path) {
  std::string section;
  for (const char c : path) {
    if (c == ']') {
      section += "%5D";
    } else if (c == '%') {
      section += "%25";
    } else {
      section += c;
    }
  }
  return section;
}

}  // namespace

DesktopState::DesktopState(project::FileSettingsService& settings, files::FileSystem& files,
                           const std::string& folder)
    : settings_(settings),
      files_(files),
      folder_(folder),
      file_(folder.empty() ? "" : files.Join(folder, "desktop.ini")) {
  window.left = Number("Left", window.left);
  window.top = Number("Top", window.top);
  window.width = Number("Width", window.width);
  window.height = Number("Height", window.height);
  window.maximised = Number("Maximised", 0) != 0;
  window.tree_width = Number("TreeWidth", window.tree_width);
  window.code_height = Number("CodeHeight", window.code_height);
  window.code_width = Number("CodeWidth", window.code_width);
  window.tree_shown = Number("TreeShown", 1) != 0;
  window.code_shown = Number("CodeShown", 1) != 0;
  window.code_beside = Number("CodeBeside", 0) != 0;
  save_when_leaving = Number("SaveWhenLeaving", 0) != 0;
  window.tree_grouping = Number("TreeGrouping", 0);
  window.tree_order = Number("TreeOrder", 0);
  const int kept_look = Number("Look", 0);
  look = kept_look == 1 || kept_look == 2 ? kept_look : 0;
  with_backups = Number("Backups", 1) != 0;
  table_font = settings.ReadIni(file_, kSection, "TableFont", "");
  code_font = settings.ReadIni(file_, kSection, "CodeFont", "");
  project = settings.ReadIni(file_, kSection, "Project", "");
  node = settings.ReadIni(file_, kSection, "Node", "");
  told_crash_log = settings.ReadIni(file_, kSection, "ToldCrashLog", "");
  std::string paths;
  for (std::size_t i = 0; i < project::RecentProjects::kMaxCount; ++i) {
    paths += settings.ReadIni(file_, kSection, "Recent" + std::to_string(i), "") + "\n";
  }
  recent = project::RecentProjects(paths);
}

int DesktopState::Number(std::string_view entry, int fallback) {
  const std::string text = settings_.ReadIni(file_, kSection, entry, "");
  return text.empty() ? fallback : platform::Variant(text).ToLong();
}

ReadingOptions DesktopState::OptionsOf(const std::string& path) const {
  return file_.empty() ? ReadingOptions() : ReadingOptions::Read(settings_, file_, SectionOf(path));
}

void DesktopState::KeepOptions(const std::string& path, const ReadingOptions& options) {
  if (!file_.empty()) options.Write(settings_, file_, SectionOf(path));
}

bool DesktopState::Save() {
  if (file_.empty()) return false;
  std::vector<platform::SettingsService::IniEntry> entries = {
      {"Left", std::to_string(window.left)},
      {"Top", std::to_string(window.top)},
      {"Width", std::to_string(window.width)},
      {"Height", std::to_string(window.height)},
      {"Maximised", window.maximised ? "1" : "0"},
      {"TreeWidth", std::to_string(window.tree_width)},
      {"CodeHeight", std::to_string(window.code_height)},
      {"CodeWidth", std::to_string(window.code_width)},
      {"TreeShown", window.tree_shown ? "1" : "0"},
      {"CodeShown", window.code_shown ? "1" : "0"},
      {"CodeBeside", window.code_beside ? "1" : "0"},
      {"SaveWhenLeaving", save_when_leaving ? "1" : "0"},
      {"TreeGrouping", std::to_string(window.tree_grouping)},
      {"TreeOrder", std::to_string(window.tree_order)},
      {"Look", std::to_string(look)},
      {"Backups", with_backups ? "1" : "0"},
      {"TableFont", table_font},
      {"CodeFont", code_font},
      {"Project", project},
      {"Node", node},
      {"ToldCrashLog", told_crash_log},
  };
  const auto& paths = recent.Paths();
  for (std::size_t i = 0; i < project::RecentProjects::kMaxCount; ++i) {
    entries.push_back({"Recent" + std::to_string(i), i < paths.size() ? paths[i] : ""});
  }
  return settings_.WriteIniSection(file_, kSection, entries);
}

std::string DesktopState::FolderOf(const char* kind, const std::string& path) const {
  return project::ProjectStateFolder(files_, folder_, kind, path);
}

}  // namespace desktop
