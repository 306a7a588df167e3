// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <unordered_set>
#include <vector>

#include "messages/message.h"

namespace codegen {

// The names with commas between them; of a long list the first ones and the number of all.
std::string NamesInShort(const std::vector<std::string>& names);

// The warnings of an operation, each once: steps that were left out, and what else the engineer
// should know.
class Report {
 public:
  using Values = std::initializer_list<messages::Message::Value>;

  // Keeps a text of the table as a warning, unless it is kept already.
  void Warn(messages::TextNumber text, Values values);
  // Raises it as Refused: what was asked for cannot be done.
  [[noreturn]] static void Refuse(messages::TextNumber text, Values values);

  // Hands out what is kept and forgets it.
  std::vector<messages::Message> TakeWarnings();

 private:
  std::vector<messages::Message> warnings_;
  std::unordered_set<std::string> known_;  // their numbers and values
};

}  // namespace codegen
