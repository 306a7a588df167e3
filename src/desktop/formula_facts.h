// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "desktop/name_index.h"
#include "files/file_system.h"
#include "store/operations.h"

namespace desktop {

// What formulas are beyond their names. It is held, so that a tree can be drawn and ordered without
// a look at the database; what cannot be read is not known.
class FormulaFacts {
 public:
  struct Dependencies {
    std::function<store::Operations*()> operations;          // null when there are none now
    std::function<std::optional<files::FileStamp>()> stamp;  // of the database
  };

  explicit FormulaFacts(Dependencies own) : own_(std::move(own)) {}

  void ReadAll();
  void Read(std::int32_t id);
  // Null when nothing is known of it.
  const store::FormulaRecord* Of(std::int32_t id) const;
  // Those that have every word of the text, in any letter case, in their name, their comment, or
  // the names and items of their arguments.
  std::unordered_set<std::int32_t> Find(std::string_view text);

 private:
  void CollectWords(store::Operations& operations);

  const Dependencies own_;
  std::unordered_map<std::int32_t, store::FormulaRecord> records_;
  NameIndex words_;
  std::optional<files::FileStamp> collected_;  // of the database whose words they are
};

}  // namespace desktop
