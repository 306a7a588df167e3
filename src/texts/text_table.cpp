// SPDX-License-Identifier: MIT
#include "texts/text_table.h"

#include <array>

#include "messages/error.h"
#include "platform/studio.h"
#include "texts/rows.h"

namespace texts {

namespace {

using messages::TextNumber;

std::string NotFound(TextNumber number) {
  return "Resource " + std::to_string(ToInt(number)) + " not found";
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
      {"shared", TextNumber{10}, TextNumber{999}, SharedRows()},
      {"store", TextNumber{1000}, TextNumber{1099}, StoreRows()},
      {"codegen", TextNumber{1100}, TextNumber{1199}, CodegenRows()},
      {"cli", TextNumber{1200}, TextNumber{1399}, CliRows()},
      {"workbench", TextNumber{1400}, TextNumber{1499}, WorkbenchRows()},
      {"desktop", TextNumber{1500}, TextNumber{1599}, DesktopRows()},
      {"dialogs", TextNumber{1600}, TextNumber{1699}, DialogRows()},
      {"help", TextNumber{1700}, TextNumber{1799}, HelpRows()},
      {"engine", TextNumber{1800}, TextNumber{1899}, EngineRows()},
      {"check", TextNumber{3000}, TextNumber{3299}, CheckRows()},
      {"messages of files", TextNumber{2000}, TextNumber{2199}, FileMessageRows()},
      {"messages of databases", TextNumber{2200}, TextNumber{2599}, DatabaseMessageRows()},
      {"messages of recordsets", TextNumber{2600}, TextNumber{2799}, RecordsetMessageRows()},
      {"messages of sources", TextNumber{2800}, TextNumber{2899}, SourceMessageRows()},
      {"history", TextNumber{3300}, TextNumber{3399}, HistoryRows()},
      {"exchange", TextNumber{3400}, TextNumber{3599}, ExchangeRows()},
      {"code", TextNumber{3600}, TextNumber{3799}, CodeRows()},
      {"window", TextNumber{3800}, TextNumber{3899}, WindowRows()},
      {"search", TextNumber{3900}, TextNumber{3999}, SearchRows()},
      {"com", TextNumber{4000}, TextNumber{4099}, ComRows()},
      {"lists", TextNumber{4100}, TextNumber{4199}, ListRows()},
      {"panes", TextNumber{4200}, TextNumber{4299}, PaneRows()},
      {"plant", TextNumber{4300}, TextNumber{4399}, PlantRows()},
      {"conflict", TextNumber{4400}, TextNumber{4449}, ConflictRows()},
      {"messages of the provider", TextNumber{4450}, TextNumber{4474}, ProviderRows()},
      {"studio", TextNumber{4475}, TextNumber{4499}, StudioRows()},
      {"coding", TextNumber{4650}, TextNumber{4749}, CodingRows()},
      {"notice", TextNumber{4850}, TextNumber{4899}, NoticeRows()},
      {"many", TextNumber{4750}, TextNumber{4849}, ManyRows()},
      {"frame", TextNumber{4500}, TextNumber{4649}, FrameRows()},
      {"look", TextNumber{4930}, TextNumber{4989}, LookRows()},
  });
  return kAreas;
}

TextTable::TextTable(Language language) : language_(language) {
  auto add = [this](TextNumber key, const char* text) {
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

std::string TextTable::Text(TextNumber number) const {
  // Numbers come from tags, so that any number must do.
  const std::int64_t key =
      std::int64_t{ToInt(number)} + (language_ == Language::kEnglish ? kSlotDistance : 0);
  if (key != static_cast<std::int32_t>(key)) return NotFound(number);
  auto found = slots_.find(TextNumber{static_cast<std::int32_t>(key)});
  return found == slots_.end() ? NotFound(number) : std::string(found->second);
}

std::string TextTable::Sentence(const messages::Message& message) const {
  return message.Sentence([this](const messages::Pattern& pattern) {
    const bool is_ours = pattern.english.empty();
    const bool stays =
        !is_ours && (pattern.number == messages::kNoText || language_ == Language::kEnglish);
    if (stays || (!is_ours && !slots_.contains(pattern.number)))
      return std::string(pattern.english);
    return Text(pattern.number);
  });
}

std::string TextTable::Sentence(const std::exception& error) const {
  return Sentence(messages::MessageOf(error));
}

std::string TextTable::Text(TextNumber number,
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
