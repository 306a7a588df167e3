// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "messages/message.h"
#include "texts/text_table.h"

namespace support {

// What a user with an English system reads.
inline std::string Sentence(const messages::Message& message) {
  static const texts::TextTable table(texts::Language::kEnglish);
  return table.Sentence(message);
}

}  // namespace support
