// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "codegen/vb_formula_code.h"
#include "platform/error.h"
#include "texts/text_table.h"

namespace codegen {

// The names with commas between them; of a long list the first ones and the number of all.
std::string NamesInShort(const std::vector<std::string>& names);

// What the steps of operations leave behind: warnings, each once, and the first failure.
class Report {
 public:
  explicit Report(const texts::TextTable& texts) : texts_(texts) {}

  const texts::TextTable& texts() const { return texts_; }

  using Replacements = std::initializer_list<texts::TextTable::Replacement>;

  // Keeps a text of the table as a warning, unless it is kept already.
  void Warn(std::int32_t text, Replacements values);
  // Keeps it as the failure: what was asked for cannot be done.
  void Refuse(std::int32_t text, Replacements values);

  // Runs one step. A step that fails is skipped; the failure is kept.
  template <class F>
  void Step(F&& step) {
    try {
      step();
    } catch (const platform::Error& error) {
      Fail(error);
    } catch (const std::exception& error) {
      Fail(platform::Error(platform::ErrorKind::kInternal, 0, error.what()));
    }
  }

  // Hand out what is kept and forget it.
  std::vector<Warning> TakeWarnings();
  std::optional<platform::Error> TakeFailure();

 private:
  void Fail(const platform::Error& error);

  const texts::TextTable& texts_;
  std::vector<Warning> warnings_;
  std::unordered_set<std::string> messages_;  // of the warnings
  std::optional<platform::Error> failure_;
};

}  // namespace codegen
