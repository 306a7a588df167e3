// SPDX-License-Identifier: MIT
#include "texts/text_table.h"

#include <array>

#include "messages/error.h"
#include "platform/studio.h"
#include "texts/rows.h"

namespace texts {

namespace {

std::string NotFound(std::int32_t number) {
  return "Resource " + std::to_string(number) + " not found";
}

}  // namespace

Language LanguageOfLcid(std::int32_t lcid) {
  return lcid == 1033 ? Language::kEnglish : Language::kGerman;
}

Language ChooseLanguage(platform::SettingsService& settings) {
  return LanguageOfLcid(settings.RegistryNumber(kLanguageKey, kLanguageValue, 0));
}

std::span<const Area> Areas() {
  static const auto kAreas = std::to_array<Area>({
      {"shared", 10, 999, SharedRows()},
      {"store", 1000, 1099, StoreRows()},
      {"codegen", 1100, 1199, CodegenRows()},
      {"cli", 1200, 1399, CliRows()},
      {"workbench", 1400, 1499, WorkbenchRows()},
      {"desktop", 1500, 1599, DesktopRows()},
      {"dialogs", 1600, 1699, DialogRows()},
      {"help", 1700, 1799, HelpRows()},
      {"engine", 1800, 1899, EngineRows()},
      {"check", 3000, 3299, CheckRows()},
      {"messages of files", 2000, 2199, FileMessageRows()},
      {"messages of databases", 2200, 2599, DatabaseMessageRows()},
      {"messages of recordsets", 2600, 2799, RecordsetMessageRows()},
      {"messages of sources", 2800, 2899, SourceMessageRows()},
      {"history", 3300, 3399, HistoryRows()},
      {"exchange", 3400, 3599, ExchangeRows()},
      {"code", 3600, 3799, CodeRows()},
      {"window", 3800, 3899, WindowRows()},
      {"search", 3900, 3999, SearchRows()},
      {"com", 4000, 4099, ComRows()},
      {"lists", 4100, 4199, ListRows()},
      {"panes", 4200, 4299, PaneRows()},
      {"plant", 4300, 4399, PlantRows()},
      {"conflict", 4400, 4449, ConflictRows()},
      {"messages of the provider", 4450, 4474, ProviderRows()},
      {"studio", 4475, 4499, StudioRows()},
      {"coding", 4650, 4749, CodingRows()},
      {"notice", 4850, 4899, NoticeRows()},
      {"many", 4750, 4849, ManyRows()},
      {"frame", 4500, 4649, FrameRows()},
  });
  return kAreas;
}

TextTable::TextTable(Language language) : language_(language) {
  auto add = [this](std::int32_t key, const char* text) {
    slots_.emplace(key, text == kOmitted ? std::string_view() : std::string_view(text));
  };
  for (const Area& area : Areas()) {
    for (const Row& row : area.rows) {
      add(row.number, row.german);
      add(row.number + kSlotDistance, row.english);
      if (row.third) add(row.number + 2 * kSlotDistance, row.third);
    }
  }
}

std::string TextTable::Text(std::int32_t number) const {
  // Numbers come from tags, so that any number must do.
  std::int64_t key = std::int64_t{number} + (language_ == Language::kEnglish ? kSlotDistance : 0);
  if (key != static_cast<std::int32_t>(key)) return NotFound(number);
  auto found = slots_.find(static_cast<std::int32_t>(key));
  return found == slots_.end() ? NotFound(number) : std::string(found->second);
}

std::string TextTable::Sentence(const messages::Message& message) const {
  return message.Sentence([this](const messages::Pattern& pattern) {
    const bool is_ours = pattern.english.empty();
    const bool stays = !is_ours && (pattern.number == 0 || language_ == Language::kEnglish);
    if (stays || (!is_ours && !slots_.contains(pattern.number)))
      return std::string(pattern.english);
    return Text(pattern.number);
  });
}

std::string TextTable::Sentence(const std::exception& error) const {
  return Sentence(messages::MessageOf(error));
}

std::string TextTable::Text(std::int32_t number,
                            std::initializer_list<Replacement> replacements) const {
  std::string pattern = Text(number);
  std::string_view rest = pattern;
  std::string out;
  while (!rest.empty()) {
    const Replacement* match = nullptr;
    for (const Replacement& replacement : replacements) {
      if (!replacement.first.empty() && rest.starts_with(replacement.first)) match = &replacement;
    }
    out += match ? match->second : rest.substr(0, 1);
    rest.remove_prefix(match ? match->first.size() : 1);
  }
  return out;
}

}  // namespace texts
