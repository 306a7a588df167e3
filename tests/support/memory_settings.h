// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/studio.h"
#include "platform/text.h"

namespace support {

// Registry values and INI files in memory. Names compare without regard to case.
class MemorySettings : public platform::SettingsService {
 public:
  bool writable = true;
  int ini_replacements = 0;

  void SetRegistry(std::string_view key, std::string_view value, std::string_view text) {
    registry_[Key({key, value})] = text;
  }
  void SetIni(std::string_view file, std::string_view section, std::string_view entry,
              std::string_view value) {
    ini_[Key({file, section, entry})] = value;
  }
  std::string Ini(std::string_view file, std::string_view section, std::string_view entry) {
    return ReadIni(file, section, entry, "(missing)");
  }

  std::string RegistryText(std::string_view key, std::string_view value,
                           std::string_view fallback) override {
    return Find(registry_, Key({key, value}), fallback);
  }
  std::int32_t RegistryNumber(std::string_view key, std::string_view value,
                              std::int32_t fallback) override {
    std::string text = Find(registry_, Key({key, value}), std::to_string(fallback));
    return platform::Variant(text).ToLong();
  }
  std::string ReadIni(std::string_view file, std::string_view section, std::string_view entry,
                      std::string_view fallback) override {
    return Find(ini_, Key({file, section, entry}), fallback);
  }
  bool WriteIni(std::string_view file, std::string_view section, std::string_view entry,
                std::string_view value) override {
    return WriteIniSection(file, section, {{std::string(entry), std::string(value)}});
  }
  bool WriteIniSection(std::string_view file, std::string_view section,
                       const std::vector<IniEntry>& entries) override {
    if (!writable) return false;
    ++ini_replacements;
    for (const IniEntry& entry : entries) SetIni(file, section, entry.entry, entry.value);
    return true;
  }

 private:
  using Map = std::map<std::string, std::string>;
  static std::string Key(std::initializer_list<std::string_view> parts) {
    std::string key;
    for (std::string_view part : parts) key += platform::FoldCase(part) + '\n';
    return key;
  }
  static std::string Find(const Map& map, const std::string& key, std::string_view fallback) {
    auto found = map.find(key);
    return found == map.end() ? std::string(fallback) : found->second;
  }

  Map registry_;
  Map ini_;
};

}  // namespace support
