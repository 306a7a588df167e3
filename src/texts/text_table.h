// SPDX-License-Identifier: MIT
// The bilingual text table: every text that a user sees, and the comment lines of the generated
// code, by number.
#pragma once

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "messages/message.h"

namespace platform {
class SettingsService;
}

namespace texts {

enum class Language { kGerman, kEnglish };

// Distance between the language slots of a text: slot n of a text is kept under number + n times
// this. German is slot 0, English slot 1.
inline constexpr std::int32_t kSlotDistance = 100000;

// The registry value that decides the language.
inline constexpr std::string_view kLanguageKey = "SOFTWARE\\Meridax GmbH\\Orvana\\4.0";
inline constexpr std::string_view kLanguageValue = "LCID";

// 1033 (English, United States) is English; every other number is German, on purpose also other
// kinds of English.
Language LanguageOfLcid(std::int32_t lcid);

// Language by the studio's language number.
Language ChooseLanguage(platform::SettingsService& settings);

// The texts in one language, which is chosen when the table is built and does not change.
class TextTable {
 public:
  // A placeholder, angle brackets included, and what stands in its place.
  using Replacement = std::pair<std::string_view, std::string_view>;

  explicit TextTable(Language language);

  Language GetLanguage() const { return language_; }

  // The text in the language of the table, or "Resource <number> not found".
  std::string Text(messages::TextNumber number) const;
  // The same with placeholders replaced in one pass: a value may hold what looks like one.
  std::string Text(messages::TextNumber number,
                   std::initializer_list<Replacement> replacements) const;

  // The sentence of a message. What the table lacks is said in the words of its layer.
  std::string Sentence(const messages::Message& message) const;
  // What an exception has to say.
  std::string Sentence(const std::exception& error) const;

 private:
  Language language_;
  std::unordered_map<messages::TextNumber, std::string_view>
      slots_;  // by number + slot * kSlotDistance
};

}  // namespace texts
