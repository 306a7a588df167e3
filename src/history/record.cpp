// SPDX-License-Identifier: MIT
// Records as lines of text (docs/history.md).
#include "history/record.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace history {
namespace {

constexpr std::string_view kHex = "0123456789abcdef";
constexpr int kDeepest = 4;                           // messages in a title
constexpr std::size_t kPiece = std::size_t{1} << 15;  // of a line, in bytes

// --- Cells ---

std::string HexOf(std::span<const std::byte> bytes) {
  std::string text;
  for (const std::byte byte : bytes) {
    text += kHex[std::to_integer<std::size_t>(byte >> 4)];
    text += kHex[std::to_integer<std::size_t>(byte & std::byte{15})];
  }
  return text;
}

bool FromHex(std::string_view text, std::string& bytes) {
  bytes.clear();
  if (text.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const std::size_t high = kHex.find(text[i]), low = kHex.find(text[i + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return false;
    bytes += static_cast<char>(high * 16 + low);
  }
  return true;
}

template <typename Number>
std::string TextOf(Number number) {
  std::array<char, 40> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

template <typename Number>
std::optional<Number> NumberOf(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// --- Fields ---

void AppendEscaped(std::string_view text, std::string& line) {
  constexpr std::string_view kEscaped("\\\t\n\r\0", 5);
  if (text.find_first_of(kEscaped) == std::string_view::npos) {
    line += text;
    return;
  }
  for (const char c : text) {
    switch (c) {
      case '\\':
        line += "\\\\";
        break;
      case '\t':
        line += "\\t";
        break;
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      case '\0':
        line += "\\0";
        break;
      default:
        line += c;
    }
  }
}

bool Unescape(std::string_view field, std::string& text) {
  text.clear();
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (field[i] != '\\') {
      text += field[i];
      continue;
    }
    if (++i == field.size()) return false;
    constexpr std::string_view kLetters = "\\tnr0", kMeanings("\\\t\n\r\0", 5);
    const std::size_t which = kLetters.find(field[i]);
    if (which == std::string_view::npos) return false;
    text += kMeanings[which];
  }
  return true;
}

// Appends fields to a text.
class LineWriter {
 public:
  explicit LineWriter(std::string& text) : text_(text) {}

  void Text(std::string_view text) {
    if (!first_) text_ += '\t';
    first_ = false;
    AppendEscaped(text, text_);
  }
  template <typename T>
  void Number(T number) {
    Text(TextOf(number));
  }

 private:
  std::string& text_;
  bool first_ = true;
};

// Fields one after the other; what is missing or of another kind makes the line none.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : rest_(line) {}

  bool AtEnd() const { return !more_; }
  std::string Text() {
    std::string text;
    if (!more_ || !Unescape(rest_.substr(0, rest_.find('\t')), text)) ok_ = false;
    const std::size_t end = rest_.find('\t');
    more_ = more_ && end != std::string_view::npos;
    rest_ = more_ ? rest_.substr(end + 1) : std::string_view();
    return text;
  }
  template <typename Number>
  Number Take() {
    const auto number = NumberOf<Number>(Text());
    if (!number) ok_ = false;
    return number.value_or(Number{});
  }
  void Fail() { ok_ = false; }
  bool ok() const { return ok_; }

 private:
  std::string_view rest_;
  bool more_ = true;
  bool ok_ = true;
};

// --- Titles: number, how many values, each with its name and a text or a message ---

void Write(const messages::Message& message, LineWriter& out) {
  out.Number(ToInt(message.number()));
  if (message.number() == messages::kNoText) return out.Text(message.English());
  out.Number(message.values().size());
  for (const messages::Message::Value& value : message.values()) {
    out.Text(value.name);
    out.Text(value.message.empty() ? "t" : "m");
    if (value.message.empty()) {
      out.Text(value.text);
    } else {
      Write(value.message, out);
    }
  }
}

messages::Message ReadMessage(LineReader& in, int depth = 0) {
  const messages::TextNumber number{in.Take<std::int32_t>()};
  if (number == messages::kNoText) return messages::Message::Verbatim(in.Text());
  std::vector<messages::Message::Value> values;
  for (auto count = in.Take<std::size_t>(); count > 0 && in.ok(); --count) {
    const std::string name = in.Text();
    const std::string kind = in.Text();
    if (kind == "m" && depth < kDeepest) {
      values.emplace_back(name, ReadMessage(in, depth + 1));
    } else if (kind == "t") {
      values.emplace_back(name, in.Text());
    } else {
      in.Fail();
    }
  }
  return messages::Message::WithValues({number, {}}, std::move(values));
}

// --- Rows: "row", table, ID, then a sign, name and value for each column: "-" before, "+" after,
// "=" before and after ---

const Cell* CellOf(const Row& row, const std::string& name) {
  const auto found = std::ranges::find(row, name, &Row::value_type::first);
  return found == row.end() ? nullptr : &found->second;
}

void Write(const ChangedRow& row, LineWriter& out) {
  out.Text("row");
  out.Text(row.table);
  out.Number(row.id);
  const auto write = [&](const char* sign, const std::string& name, const Cell& cell) {
    out.Text(sign);
    out.Text(name);
    out.Text(cell);
  };
  for (const auto& [name, cell] : row.before.value_or(Row())) {
    const Cell* after = row.after ? CellOf(*row.after, name) : nullptr;
    write(after && *after == cell ? "=" : "-", name, cell);
    if (after && *after != cell) write("+", name, *after);
  }
  if (row.before) return;
  for (const auto& [name, cell] : row.after.value_or(Row())) write("+", name, cell);
}

void ReadCell(LineReader& in, const std::string& sign, ChangedRow& row) {
  const auto into = [](std::optional<Row>& image) -> Row& {
    if (!image) image.emplace();
    return *image;
  };
  const std::string name = in.Text();
  const Cell cell = in.Text();
  if (sign != "+") into(row.before).emplace_back(name, cell);
  if (sign != "-") into(row.after).emplace_back(name, cell);
}

// --- Files: "file", path, size and hash before and after (or "-" twice); then "lines" for each
// range ---

void Write(const std::optional<FileVersion>& version, LineWriter& out) {
  out.Text(version ? TextOf(version->size) : "-");
  out.Text(version ? TextOf(version->hash) : "-");
}

std::optional<FileVersion> ReadVersion(LineReader& in) {
  const std::string size = in.Text(), hash = in.Text();
  if (size == "-" && hash == "-") return std::nullopt;
  const auto bytes = NumberOf<std::uint64_t>(size), sum = NumberOf<std::uint64_t>(hash);
  if (!bytes || !sum) in.Fail();
  return FileVersion{bytes.value_or(0), sum.value_or(0)};
}

void Write(const ChangedFile& file, LineWriter& out) {
  out.Text("file");
  out.Text(file.path);
  Write(file.before, out);
  Write(file.after, out);
  for (const ChangedLines& range : file.ranges) {
    out.Text("lines");
    out.Number(range.line_before);
    out.Number(range.line_after);
    for (const std::string* text : {&range.before, &range.after, &range.above, &range.below}) {
      out.Text(*text);
    }
  }
}

ChangedLines ReadLines(LineReader& in) {
  ChangedLines range;
  range.line_before = in.Take<std::int64_t>();
  range.line_after = in.Take<std::int64_t>();
  for (std::string* text : {&range.before, &range.after, &range.above, &range.below}) {
    *text = in.Text();
  }
  return range;
}

void ReadItems(LineReader& in, Record& record) {
  bool in_row = false;
  while (in.ok() && !in.AtEnd()) {
    const std::string item = in.Text();
    if (item == "row") {
      ChangedRow& row = record.rows.emplace_back();
      row.table = in.Text();
      row.id = in.Take<std::int32_t>();
      in_row = true;
    } else if (in_row && (item == "-" || item == "+" || item == "=")) {
      ReadCell(in, item, record.rows.back());
    } else if (item == "file") {
      ChangedFile& file = record.files.emplace_back();
      file.path = in.Text();
      file.before = ReadVersion(in);
      file.after = ReadVersion(in);
      in_row = false;
    } else if (item == "lines" && !record.files.empty() && !in_row) {
      record.files.back().ranges.push_back(ReadLines(in));
    } else {
      in.Fail();
    }
  }
}

}  // namespace

Cell ToCell(const jet::Value& value) {
  using enum jet::ValueKind;
  switch (value.kind()) {
    case kNull:
      return "n";
    case kBoolean:
      return value.boolean() ? "b1" : "b0";
    case kInteger:
      return "i" + TextOf(value.integer());
    case kCurrency:
      return "c" + TextOf(value.integer());
    case kReal:
      return "r" + TextOf(value.real());
    case kDate:
      return "d" + TextOf(value.real());
    case kText:
      return "t" + std::string(value.text());
    case kBinary:
      return "x" + HexOf(value.bytes());
    case kGuid:
      return "g" + HexOf(value.bytes());
    case kDecimal:
      return "m" + HexOf(value.bytes());
  }
  return "n";
}

std::optional<jet::Value> FromCell(const Cell& cell, std::string& room) {
  using jet::Value;
  if (cell.empty()) return std::nullopt;
  const std::string_view text = std::string_view(cell).substr(1);
  const auto bytes = [&] { return std::as_bytes(std::span(std::as_const(room))); };
  switch (cell[0]) {
    case 'n':
      return text.empty() ? std::optional(Value()) : std::nullopt;
    case 'b':
      if (text != "0" && text != "1") return std::nullopt;
      return Value::Boolean(text == "1");
    case 'i':
      if (const auto number = NumberOf<std::int64_t>(text)) return Value::Integer(*number);
      return std::nullopt;
    case 'c':
      if (const auto number = NumberOf<std::int64_t>(text)) return Value::Currency(*number);
      return std::nullopt;
    case 'r':
      if (const auto number = NumberOf<double>(text)) return Value::Real(*number);
      return std::nullopt;
    case 'd':
      if (const auto number = NumberOf<double>(text)) return Value::Date(*number);
      return std::nullopt;
    case 't':
      return Value::Text(text);
    case 'x':
      if (!FromHex(text, room)) return std::nullopt;
      return Value::Binary(bytes());
    case 'g':
      if (!FromHex(text, room) || room.size() != 16) return std::nullopt;
      return Value::Guid(bytes().first<16>());
    case 'm':
      if (!FromHex(text, room) || room.size() != 17) return std::nullopt;
      return Value::Decimal(bytes().first<17>());
    default:
      return std::nullopt;
  }
}

std::string ToLine(const Record& record) {
  std::string line;
  WriteLine(record, ListedRows(record.rows), [&](std::string_view piece) { line += piece; });
  return line;
}

void WriteLine(const Record& record, const RowSource& rows,
               const std::function<void(std::string_view)>& sink) {
  std::string piece;
  LineWriter out(piece);
  const auto hand_over = [&](std::size_t least) {
    if (piece.size() < least) return;
    sink(piece);
    piece.clear();
  };
  out.Number(record.number);
  out.Number(record.time);
  out.Text(std::string(1, static_cast<char>(record.kind)));
  out.Number(record.target);
  out.Text(record.who);
  out.Text(record.program);
  Write(record.title, out);
  rows.ForEach([&](const ChangedRow& row) {
    Write(row, out);
    hand_over(kPiece);
  });
  for (const ChangedFile& file : record.files) {
    Write(file, out);
    hand_over(kPiece);
  }
  hand_over(1);
}

std::optional<Record> FromLine(std::string_view line, Detail detail) {
  LineReader in(line);
  Record record;
  record.number = in.Take<std::uint64_t>();
  record.time = in.Take<std::int64_t>();
  const std::string kind = in.Text();
  if (kind != "o" && kind != "u" && kind != "r") return std::nullopt;
  record.kind = static_cast<Kind>(kind[0]);
  record.target = in.Take<std::uint64_t>();
  record.who = in.Text();
  record.program = in.Text();
  record.title = ReadMessage(in);
  if (detail == Detail::kAll) ReadItems(in, record);
  if (!in.ok()) return std::nullopt;
  return record;
}

}  // namespace history
