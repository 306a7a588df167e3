// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
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
  std::string formula;           // its name
  std::int32_t argument_id = 0;  // of the first of several
  std::string alias;
  std::string item;
  std::string old_item;              // that an older declaration names
  std::vector<std::string> aliases;  // that a header lists
};

// A large project has many of them: what only a repair needs is apart.
struct Finding {
  Finding(const Rule& broken, Where place, std::initializer_list<messages::Message::Value> values)
      : rule(&broken), where(std::move(place)), message({broken.text, {}}, values) {}

  messages::Message Remedy() const { return messages::Message({rule->text + 1, {}}); }
  bool IsRepairable() const { return subject != nullptr; }
  void MakeRepairable(Subject concerned) {
    subject = std::make_shared<const Subject>(std::move(concerned));
  }

  const Rule* rule;
  Where where;
  messages::Message message;               // what is wrong
  std::shared_ptr<const Subject> subject;  // null: it cannot be mended by itself
};

}  // namespace check
