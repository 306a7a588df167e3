// SPDX-License-Identifier: MIT
#include "desktop/reading_options.h"

#include <algorithm>

#include "platform/variant.h"

namespace desktop {

namespace {

constexpr char kSeparator = '|';  // no part of a file's name on Windows, and hardly elsewhere

std::string Join(const std::vector<std::string>& paths) {
  std::string text;
  for (const std::string& path : paths) {
    if (!text.empty()) text += kSeparator;
    text += path;
  }
  return text;
}

std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> paths;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(kSeparator), text.size());
    if (end > 0) paths.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return paths;
}

}  // namespace

bool ReadingOptions::Empty() const {
  return vb_files.empty() && items_file.empty() && writable_folders.empty() && code_page == 0;
}

void ReadingOptions::ApplyTo(project::ProjectOptions& options) const {
  options.vb_files = vb_files;
  options.items_file = items_file;
  options.vb.writable_folders = writable_folders;
  if (code_page != 0) options.vb.code_page = code_page;
}

ReadingOptions ReadingOptions::Read(project::FileSettingsService& settings, std::string_view file,
                                    std::string_view section) {
  const auto entry = [&](std::string_view name) {
    return settings.ReadIni(file, section, name, "");
  };
  ReadingOptions options;
  options.vb_files = Split(entry("VisualBasic"));
  options.items_file = entry("Items");
  options.writable_folders = Split(entry("WritableFolders"));
  const std::string code_page = entry("CodePage");
  if (!code_page.empty()) options.code_page = platform::Variant(code_page).ToLong();
  return options;
}

bool ReadingOptions::Write(project::FileSettingsService& settings, std::string_view file,
                           std::string_view section) const {
  return settings.WriteIniSection(file, section,
                                  {{"VisualBasic", Join(vb_files)},
                                   {"Items", items_file},
                                   {"WritableFolders", Join(writable_folders)},
                                   {"CodePage", code_page == 0 ? "" : std::to_string(code_page)}});
}

}  // namespace desktop
