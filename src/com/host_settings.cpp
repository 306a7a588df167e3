// SPDX-License-Identifier: MIT
#include "com/host_settings.h"

#include <optional>

#include "com/registry_key.h"
#include "com/value.h"

namespace com {

namespace {

constexpr REGSAM kViews[] = {0, KEY_WOW64_32KEY, KEY_WOW64_64KEY};

// The value where it is found first, as text.
std::optional<std::string> Find(std::string_view key, std::string_view value) {
  for (const REGSAM view : kViews) {
    const RegistryKey opened = RegistryKey::Open(HKEY_LOCAL_MACHINE, Wide(key), view);
    if (const auto text = opened.Text(Wide(value))) return Utf8(*text);
    if (const auto number = opened.Number(Wide(value))) return std::to_string(*number);
  }
  return std::nullopt;
}

}  // namespace

std::string HostSettings::RegistryText(std::string_view key, std::string_view value,
                                       std::string_view fallback) {
  return Find(key, value).value_or(std::string(fallback));
}

std::int32_t HostSettings::RegistryNumber(std::string_view key, std::string_view value,
                                          std::int32_t fallback) {
  const std::optional<std::string> found = Find(key, value);
  return found ? platform::Variant(*found).ToLong() : fallback;
}

std::string HostSettings::ReadIni(std::string_view file, std::string_view section,
                                  std::string_view entry, std::string_view fallback) {
  return files_.ReadIni(file, section, entry, fallback);
}

bool HostSettings::WriteIni(std::string_view file, std::string_view section, std::string_view entry,
                            std::string_view value) {
  return files_.WriteIni(file, section, entry, value);
}

bool HostSettings::WriteIniSection(std::string_view file, std::string_view section,
                                   const std::vector<IniEntry>& entries) {
  return files_.WriteIniSection(file, section, entries);
}

}  // namespace com
