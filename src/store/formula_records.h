// SPDX-License-Identifier: MIT
// Rows of the project database as values. An empty text is stored as one character of code 0;
// the values here hold the empty text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "messages/text_number.h"

namespace store {

// FormulaCallType: TvbfFormulas.Type.
enum FormulaCallType : std::int32_t {
  kBeforeInitialization = 0,
  kAfterInitialization = 1,
  kBeforeCycle = 2,
  kAfterCycle = 3,
  kBeforeEnding = 4,
  kAfterEnding = 5,
  kOnVariableChange = 6,  // no argument may be input and return value at once
  kAsynchronous = 7,      // the only one that uses the scan time
};
inline constexpr std::int32_t kCallTypes = 8;
// Number of the text that names call type 0; the others follow.
inline constexpr messages::TextNumber kFirstCallTypeText{320};

// Milliseconds that a text names, a whole number from 0 on; nothing when it names none.
std::optional<std::int32_t> ParseScanTime(std::string_view text);

// What the engineer gives of a formula.
struct FormulaValues {
  std::string name;
  std::string prog_id;  // project name, ".", class name
  std::int32_t type = kBeforeInitialization;
  std::int32_t scan_time = 0;  // milliseconds
  bool enabled = true;
  std::string comment = {};
  friend bool operator==(const FormulaValues&, const FormulaValues&) = default;
};

struct FormulaRecord : FormulaValues {
  std::int32_t id = 0;
  bool comment_is_null = false;
};

struct AliasValues {
  std::string item_id;   // item of the studio's variable catalogue
  std::string vb_alias;  // Visual Basic identifier
  friend bool operator==(const AliasValues&, const AliasValues&) = default;
};

struct AliasRecord : AliasValues {
  std::int32_t id = 0;
};

struct ArgumentValues {
  std::int32_t alias_id = 0;
  bool in = false;
  bool out = false;
  friend bool operator==(const ArgumentValues&, const ArgumentValues&) = default;
};

struct ArgumentRecord : ArgumentValues {
  std::int32_t id = 0;
  std::int32_t parent_id = 0;  // formula
  std::string vb_alias;        // of the alias, empty when its row is missing
  std::string item_id;
};

// A class that can hold formulas.
struct ClassEntry {
  std::string prog_id;
  std::string file;
};

struct Statistics {
  std::int32_t formulas = 0;
  std::int32_t arguments = 0;
  std::int32_t aliases = 0;

  friend bool operator==(const Statistics&, const Statistics&) = default;
};

}  // namespace store
