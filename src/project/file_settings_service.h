// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "files/file_system.h"
#include "platform/studio.h"
#include "project/ini_document.h"

namespace project {

// The studio's settings service without a studio: INI files where they are named, and registry
// values in a file "registry.ini" of the user's configuration folder, a section for each key. A
// file is read again when it changed. Files of more than 4 MiB are taken for foreign: reading
// gives the defaults, writing fails.
class FileSettingsService final : public platform::SettingsService {
 public:
  FileSettingsService(files::FileSystem& system, const std::string& config_folder);
  ~FileSettingsService() override;

  std::string RegistryText(std::string_view key, std::string_view value,
                           std::string_view fallback) override;
  std::int32_t RegistryNumber(std::string_view key, std::string_view value,
                              std::int32_t fallback) override;
  std::string ReadIni(std::string_view file, std::string_view section, std::string_view entry,
                      std::string_view fallback) override;
  bool WriteIni(std::string_view file, std::string_view section, std::string_view entry,
                std::string_view value) override;
  bool WriteIniSection(std::string_view file, std::string_view section,
                       const std::vector<IniEntry>& entries) override;

  // Sets a registry value (the studio's installation does that where there is one).
  bool WriteRegistry(std::string_view key, std::string_view value, std::string_view text);

  // Hides a registry value for as long as this service lives (an option of the call).
  void Override(std::string_view key, std::string_view value, std::string_view text);

  const std::string& registry_file() const { return registry_file_; }

 private:
  struct Cached {
    std::optional<files::FileStamp> stamp;
    std::unique_ptr<IniDocument> document;
  };

  // The user's own file may be a link; what stands in a project's folder may come from anybody.
  bool MayUse(const std::string& path);
  // The document as the file is now; null when it cannot be read.
  IniDocument* Read(const std::string& path);

  files::FileSystem& system_;
  std::string registry_file_;  // "" without a configuration folder
  std::unordered_map<std::string, Cached> cache_;
  std::map<std::pair<std::string, std::string>, std::string> overrides_;
};

}  // namespace project
