// SPDX-License-Identifier: MIT
// Fuzz target: any texts, written as fields of CSV, are what a reader of RFC 4180 gets back. The
// input is the texts, each ended by a byte 0.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "cli/export_format.h"

namespace {

// The fields of one record with its line end.
std::vector<std::string> ReadRecord(std::string_view text) {
  std::vector<std::string> fields(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"' && fields.back().empty()) {
      for (++i; i < text.size() && (text[i] != '"' || (i + 1 < text.size() && text[i + 1] == '"'));
           ++i) {
        if (text[i] == '"') ++i;
        fields.back() += text[i];
      }
      if (i >= text.size()) std::abort();  // the closing quote is missing
    } else if (text[i] == ',') {
      fields.emplace_back();
    } else if (text.substr(i) == "\r\n") {
      return fields;
    } else if (text[i] == '\r' || text[i] == '\n' || text[i] == '"') {
      std::abort();
    } else {
      fields.back() += text[i];
    }
  }
  std::abort();  // the line end is missing
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> texts(1);
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == 0) {
      texts.emplace_back();
    } else {
      texts.back() += static_cast<char>(data[i]);
    }
  }
  std::vector<jet::Column> columns(texts.size());
  std::vector<jet::Value> row;
  std::string by_field;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    columns[i].type = jet::ColumnType::kText;
    row.push_back(jet::Value::Text(texts[i]));
    if (i > 0) by_field += ',';
    cli::AppendCsv(by_field, row[i], columns[i]);
  }
  std::string line;
  cli::AppendCsvRow(line, row, columns);
  if (line != by_field + "\r\n" || ReadRecord(line) != texts) std::abort();
  return 0;
}
