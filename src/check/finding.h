// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "check/rule.h"
#include "messages/message.h"

namespace check {

// A member of a row, or a line of a file; what does not apply is empty or 0.
struct Where {
  std::string table;
  std::int32_t id = 0;
  std::string member;
  std::string file;  // path
  std::int32_t line = 0;
};

inline Where Row(std::string_view table, std::int32_t id, std::string_view member) {
  return {std::string(table), id, std::string(member), {}, 0};
}
inline Where Line(std::string_view file, std::int32_t line) {
  return {{}, 0, {}, std::string(file), line};
}

// What is concerned, as far as a repair has to know.
struct Subject {
  std::string prog_id;
  std::string formula;  // its name
  std::int32_t formula_id = 0;
  std::int32_t argument_id = 0;  // of the first of several
  std::string alias;
  std::int32_t alias_id = 0;
  std::string item;
  std::string old_item;              // that an older declaration names
  std::vector<std::string> aliases;  // that a header lists
};

struct Finding {
  Finding(const Rule& broken, Where place, std::initializer_list<messages::Message::Value> values,
          Subject concerned = {})
      : rule(&broken),
        where(std::move(place)),
        message({broken.text, {}}, values),
        remedy({broken.text + 1, {}}, values),
        repairable(broken.repairable),
        subject(std::move(concerned)) {}

  const Rule* rule;
  Where where;
  messages::Message message;  // what is wrong
  messages::Message remedy;
  bool repairable;
  Subject subject;
};

}  // namespace check
