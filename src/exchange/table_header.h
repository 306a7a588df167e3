// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/delimited_text.h"

namespace exchange {

// What a column of a table holds.
enum class Member {
  kItem,
  kAlias,
  kFormula,
  kClass,
  kType,
  kScanTime,
  kEnabled,
  kComment,
  kArguments,
  kIn,
  kOut,
  kReason,  // why a line was refused the last time; nobody reads it
};
inline constexpr std::size_t kMembers = static_cast<std::size_t>(Member::kReason) + 1;

// What a line of a table is.
enum class TableKind {
  kAliases,   // an alias
  kFormulas,  // a formula with all its arguments
  kSignals,   // a signal as an alias, and as an argument of a formula
};

// The member that a column's name means, German or English, without regard to case, blanks and a
// unit in brackets. Nothing for any other name.
std::optional<Member> MemberOf(std::string_view column_name);

struct TableHeader {
  char separator = ',';
  TableKind kind = TableKind::kAliases;
  std::optional<std::size_t> column[kMembers];
  std::vector<std::string> names;    // of all columns
  std::vector<std::string> ignored;  // those that mean nothing in a table of this kind

  std::optional<std::size_t> Column(Member member) const {
    return column[static_cast<std::size_t>(member)];
  }
};

// What a header of these names says; nothing when it names neither an item, an alias nor a
// formula. Raises FormatError for a member that two columns claim, and for inputs and outputs of
// formulas without a column of what they are.
std::optional<TableHeader> ReadHeader(const Record& record, char separator);

// The separator by which the first line that is not blank names most members.
char FindSeparator(std::string_view text);

// Takes the text off lines that stand above a header, as spreadsheets have titles: each of fewer
// cells than the header. The lines themselves stay: those behind keep their numbers.
void TakeTitleLines(std::string& text);

}  // namespace exchange
