// SPDX-License-Identifier: MIT
#include "cli/row_writer.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/visible_text.h"
#include "project/change_text.h"

namespace cli {

namespace {

const std::string kNulText(1, '\0');

// Columns that a text takes on a terminal, counting code points.
std::size_t Width(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

std::string PlainText(const Cell& cell) {
  if (const auto* flag = std::get_if<bool>(&cell)) return *flag ? "true" : "false";
  if (const auto* number = std::get_if<std::int64_t>(&cell)) return std::to_string(*number);
  const auto* text = std::get_if<std::string>(&cell);
  return text ? project::OneLine(*text) : std::string();
}

std::string JsonString(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string JsonText(const Cell& cell) {
  if (std::holds_alternative<std::monostate>(cell)) return "null";
  const auto* text = std::get_if<std::string>(&cell);
  if (!text) return PlainText(cell);
  return JsonString(*text == kNulText ? std::string_view() : std::string_view(*text));
}

std::string JsonObject(const std::vector<std::pair<std::string, std::string>>& members) {
  std::string text = "{";
  for (const auto& [name, value] : members) {
    if (text.size() > 1) text += ", ";
    text += JsonString(name) + ": " + value;
  }
  return text + "}";
}

RowWriter::RowWriter(std::ostream& out, RowFormat format, std::vector<std::string> columns)
    : out_(out), format_(format), columns_(std::move(columns)) {}

void RowWriter::Write(const std::vector<Cell>& row) {
  if (format_ == RowFormat::kJson) {
    std::vector<std::pair<std::string, std::string>> members;
    for (std::size_t i = 0; i < row.size(); ++i)
      members.emplace_back(columns_[i], JsonText(row[i]));
    out_ << (rows_ == 0 ? "[\n " : ",\n ") << JsonObject(members);
  } else if (format_ == RowFormat::kPlain) {
    for (std::size_t i = 0; i < row.size(); ++i) out_ << (i ? "\t" : "") << PlainText(row[i]);
    out_ << '\n';
  } else {
    std::vector<std::string> texts;
    std::transform(row.begin(), row.end(), std::back_inserter(texts),
                   [](const Cell& cell) { return VisibleText(PlainText(cell)); });
    held_.push_back(std::move(texts));
  }
  ++rows_;
}

void RowWriter::Finish() {
  if (format_ == RowFormat::kJson) out_ << (rows_ == 0 ? "[]\n" : "\n]\n");
  if (format_ == RowFormat::kTerminal && rows_ > 0) WriteAligned();
}

void RowWriter::WriteAligned() {
  held_.insert(held_.begin(), columns_);
  std::vector<std::size_t> widths(columns_.size());
  for (const auto& row : held_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  for (const auto& row : held_) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      out_ << row[i];
      if (i + 1 < row.size()) out_ << std::string(widths[i] - Width(row[i]) + 2, ' ');
    }
    out_ << '\n';
  }
}

}  // namespace cli
