// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace exchange {

struct Cell {
  std::string_view text;  // without quotation marks, and without blanks around unquoted text
  bool quoted = false;
};

// The lines that belong together as one row of a table.
struct Record {
  std::uint32_t line = 0;  // where it begins, from 1
  std::vector<Cell> cells;
  bool IsBlank() const;
};

// Reads a table whose cells are parted by one character and may be quoted, as RFC 4180 and
// spreadsheets have it. Quotation marks are taken out where they stand: the text is changed and
// must outlive the cells.
class DelimitedText {
 public:
  static constexpr std::size_t kMaxColumns = 1000;
  static constexpr std::size_t kMaxCell = std::size_t{1} << 20;  // bytes

  DelimitedText(std::string& text, char separator) : text_(text), separator_(separator) {}

  // The next record that is not blank; false when there is none. Raises FormatError for a quotation
  // mark that is never closed or is followed by more, and for more than a table can hold.
  bool Next(Record& record);

 private:
  bool ReadRecord(Record& record);
  Cell ReadCell(const Record& record);
  Cell ReadQuoted(const Record& record);

  std::string& text_;
  char separator_;
  std::size_t at_ = 0;
  std::uint32_t line_ = 1;
};

// Takes a line "sep=;" off the beginning; the separator that it names, or 0.
char TakeSeparatorLine(std::string& text);

// Appends a cell that reads back as it is: quoted where it holds the separator, quotation marks,
// line breaks or blanks at its ends, and when it is empty.
void AppendCell(std::string& line, std::string_view text, char separator);

}  // namespace exchange
