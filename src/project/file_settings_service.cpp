// SPDX-License-Identifier: MIT
#include "project/file_settings_service.h"

#include <charconv>

#include "files/error.h"
#include "files/replace_file.h"

namespace project {

namespace {

constexpr std::uint64_t kMaxFile = 4 << 20;

}  // namespace

FileSettingsService::FileSettingsService(files::FileSystem& system,
                                         const std::string& config_folder)
    : system_(system),
      registry_file_(config_folder.empty() ? "" : system.Join(config_folder, "registry.ini")) {}

FileSettingsService::~FileSettingsService() = default;

bool FileSettingsService::MayUse(const std::string& path) {
  return !path.empty() && (path == registry_file_ || !system_.IsLink(path));
}

IniDocument* FileSettingsService::Read(const std::string& path) {
  if (!MayUse(path)) return nullptr;
  Cached& cached = cache_[path];
  try {
    const auto stamp = system_.Stamp(path);
    if (cached.document && stamp == cached.stamp) return cached.document.get();
    cached.document.reset();
    const std::string bytes = stamp ? files::ReadFile(system_, path, kMaxFile) : std::string();
    cached.document = std::make_unique<IniDocument>(bytes);
    cached.stamp = stamp;
    return cached.document.get();
  } catch (const files::Error&) {
    return nullptr;
  }
}

std::string FileSettingsService::ReadIni(std::string_view file, std::string_view section,
                                         std::string_view entry, std::string_view fallback) {
  const IniDocument* document = Read(std::string(file));
  const auto value = document ? document->Get(section, entry) : std::nullopt;
  return value.value_or(std::string(fallback));
}

bool FileSettingsService::WriteIni(std::string_view file, std::string_view section,
                                   std::string_view entry, std::string_view value) {
  return WriteIniSection(file, section, {{std::string(entry), std::string(value)}});
}

bool FileSettingsService::WriteIniSection(std::string_view file, std::string_view section,
                                          const std::vector<IniEntry>& entries) {
  const std::string path(file);
  if (!MayUse(path)) return false;
  // What other windows write meanwhile stays.
  cache_.erase(path);
  try {
    if (const std::string folder = system_.Folder(path); !folder.empty())
      system_.CreateDirectories(folder);
    files::UpdateFile(system_, path, [&](const std::string& before) {
      IniDocument document(before);
      for (const IniEntry& entry : entries) document.Set(section, entry.entry, entry.value);
      return document.Bytes();
    });
    return true;
  } catch (const files::Error&) {
    return false;
  }
}

std::string FileSettingsService::RegistryText(std::string_view key, std::string_view value,
                                              std::string_view fallback) {
  const auto found = overrides_.find({std::string(key), std::string(value)});
  if (found != overrides_.end()) return found->second;
  return ReadIni(registry_file_, key, value, fallback);
}

std::int32_t FileSettingsService::RegistryNumber(std::string_view key, std::string_view value,
                                                 std::int32_t fallback) {
  const std::string text = RegistryText(key, value, "");
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : fallback;
}

void FileSettingsService::Override(std::string_view key, std::string_view value,
                                   std::string_view text) {
  overrides_.insert_or_assign({std::string(key), std::string(value)}, std::string(text));
}

bool FileSettingsService::WriteRegistry(std::string_view key, std::string_view value,
                                        std::string_view text) {
  return WriteIni(registry_file_, key, value, text);
}

}  // namespace project
