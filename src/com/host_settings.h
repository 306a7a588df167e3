// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/studio.h"
#include "project/file_settings_service.h"

namespace com {

// The studio's settings: the registry of the local machine, which is only read, and INI files. A
// studio of the other kind (32 or 64 bit) may have written the values: both views are looked at,
// our own first.
class HostSettings final : public platform::SettingsService {
 public:
  explicit HostSettings(files::FileSystem& system) : files_(system, "") {}

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

 private:
  project::FileSettingsService files_;
};

}  // namespace com
