// SPDX-License-Identifier: MIT
#include "exchange/pasted_rows.h"

#include <optional>
#include <utility>
#include <vector>

#include "exchange/cell_values.h"
#include "exchange/decoded_text.h"
#include "exchange/delimited_text.h"
#include "exchange/json_reader.h"
#include "exchange/table_reader.h"

namespace exchange {
namespace {

// The first record, when it is a header.
std::optional<TableHeader> HeaderOf(const std::string& text, char separator) {
  std::string first_line =
      text.substr(0, text.find_first_of("\r\n", text.find_first_not_of("\r\n")));
  Record record;
  if (!DelimitedText(first_line, separator).Next(record)) return std::nullopt;
  return ReadHeader(record, separator);
}

// The columns of arguments that come without a header: as our own table copies them, or with the
// item second.
std::vector<std::string> ColumnsOf(const Record& record) {
  const bool has_item =
      record.cells.size() > 1 && !record.cells[1].text.empty() && !ParseTruth(record.cells[1].text);
  if (has_item) return {"Alias", "Item", "In", "Out"};
  return {"Alias", "In", "Out", "Item"};
}

// Reads lines as signals of one formula, whose name and class are two columns more.
class ArgumentLines {
 public:
  ArgumentLines(Contents& contents, std::string_view formula, std::string_view prog_id)
      : contents_(contents), formula_(formula), prog_id_(prog_id) {}

  void Read(std::string& text, char separator, bool has_header) {
    DelimitedText table(text, separator);
    Record record;
    if (!table.Next(record)) throw FormatError({}, {{kTextEmptyFile}});
    const std::vector<std::string> names =
        has_header ? std::vector<std::string>() : ColumnsOf(record);
    Record header = has_header ? record : Record();
    for (const std::string& name : names) header.cells.push_back({name});
    header.cells.push_back({"Formula"});
    header.cells.push_back({"Class"});
    contents_.header = ReadHeader(header, separator);
    contents_.ignored = contents_.header->ignored;
    TableReader reader(*contents_.header, contents_);
    if (!has_header) ReadLine(record, reader);
    while (table.Next(record)) ReadLine(record, reader);
  }

 private:
  void ReadLine(Record& record, TableReader& reader) {
    const std::size_t own = contents_.header->names.size() - 2;
    for (std::size_t i = own; i < record.cells.size(); ++i) {
      if (record.cells[i].text.empty()) continue;
      const Place place = {record.line, static_cast<std::uint32_t>(i + 1)};
      return contents_.problems.push_back({place, {{kTextSurplusCells}, {{"<Count>", own}}}});
    }
    record.cells.resize(own);
    record.cells.push_back({formula_});
    record.cells.push_back({prog_id_});
    reader.Read(record);
  }

  Contents& contents_;
  std::string_view formula_;
  std::string_view prog_id_;
};

// The arguments of all formulas as those of one.
void Gather(Contents& contents, std::string_view formula, std::string_view prog_id) {
  FormulaRow row;
  row.name = formula;
  row.prog_id = prog_id;
  for (FormulaRow& other : contents.formulas) {
    if (row.arguments.empty()) row.place = other.place;
    row.arguments.insert(row.arguments.end(), other.arguments.begin(), other.arguments.end());
  }
  contents.formulas.clear();
  contents.aliases.clear();
  if (!row.arguments.empty()) contents.formulas.push_back(std::move(row));
}

}  // namespace

Contents ReadPastedAliases(std::string text) {
  if (IsJson(text) || HeaderOf(text, FindSeparator(text))) return ReadList(std::move(text));
  return ReadAliases(std::move(text));
}

Contents ReadPastedArguments(std::string pasted, std::string_view formula,
                             std::string_view prog_id) {
  const char separator = FindSeparator(pasted);
  const bool is_json = IsJson(pasted);
  const auto header = is_json ? std::nullopt : HeaderOf(pasted, separator);
  if (header && header->Column(Member::kFormula)) return ReadList(std::move(pasted));
  Contents contents;
  std::string& text = contents.SetText(Decode(std::move(pasted)).text);
  formula = contents.Keep(std::string(formula));
  prog_id = contents.Keep(std::string(prog_id));
  if (is_json) {
    ReadJson(text, contents);
    Gather(contents, formula, prog_id);
  } else {
    ArgumentLines(contents, formula, prog_id)
        .Read(text, header ? separator : '\t', header.has_value());
  }
  return contents;
}

}  // namespace exchange
