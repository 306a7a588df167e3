// SPDX-License-Identifier: MIT
// ovformula db: any Jet 4.0 file.
#include <deque>
#include <functional>
#include <memory>
#include <span>

#include "cli/commands.h"
#include "cli/database_schema.h"
#include "cli/export_format.h"
#include "cli/invocation.h"
#include "cli/progress.h"
#include "cli/suggest.h"
#include "exchange/cell_values.h"
#include "jet/database.h"

namespace cli {

namespace {

constexpr std::size_t kBufferSize = 1 << 16;  // written to standard output at once
constexpr std::size_t kCachePages = 64;       // what is read once need not be kept

std::unique_ptr<jet::Database> OpenReadOnly(Invocation& invocation) {
  jet::OpenOptions options;
  options.read_only = true;
  options.cache_pages = kCachePages;
  return jet::Database::Open(invocation.console().files, invocation.Argument("FILE"), options);
}

std::string DateText(double days) {
  std::string text;
  AppendCsv(text, jet::Value::Date(days), jet::Column());
  return text;
}

int RunInfo(Invocation& invocation) {
  auto database = OpenReadOnly(invocation);
  const jet::HeaderInfo header = database->Header();
  const std::vector<std::pair<std::string, Cell>> members = {
      {"File", database->path()},
      {"Format", "Jet 4.0"},
      {"Pages", std::int64_t{header.page_count}},
      {"Bytes", std::int64_t{header.page_count} * 4096},
      {"Created", DateText(header.created)},
      {"Build", std::int64_t{header.build}},
      {"CodePage", std::int64_t{header.code_page}},
      {"LCID", std::int64_t{header.lcid}},
      {"Tables", static_cast<std::int64_t>(database->Tables().size())},
      {"OpenBy", database->ForeignUser().English()},
  };
  std::ostream& out = invocation.console().out;
  if (invocation.Has("--json")) {
    std::vector<std::pair<std::string, std::string>> json;
    json.reserve(members.size());
    for (const auto& [name, value] : members) json.emplace_back(name, JsonText(value));
    out << JsonObject(json) << '\n';
    return kDone;
  }
  for (const auto& [name, value] : members) out << name << '\t' << PlainText(value) << '\n';
  return kDone;
}

int RunTables(Invocation& invocation) {
  auto database = OpenReadOnly(invocation);
  RowWriter writer(invocation.console().out,
                   invocation.Has("--json") ? RowFormat::kJson : RowFormat::kPlain, {"Name"});
  for (const jet::TableInfo& table : database->Tables()) writer.Write({table.name});
  writer.Finish();
  return kDone;
}

int RunSchema(Invocation& invocation) {
  auto database = OpenReadOnly(invocation);
  std::ostream& out = invocation.console().out;
  out << (invocation.Has("--json") ? SchemaAsJson(*database) : SchemaAsText(*database));
  return kDone;
}

jet::Table& FindTable(Invocation& invocation, jet::Database& database) {
  const std::string name = invocation.Argument("TABLE");
  if (database.HasTable(name)) return database.OpenTable(name);
  std::vector<std::string> names;
  for (const jet::TableInfo& table : database.Tables()) names.push_back(table.name);
  const std::string near = Nearest(name, names);
  throw CommandError(
      kRefused, invocation.Text(near.empty() ? kTextUnknownTable : kTextUnknownTableNear,
                                {{"<File>", database.path()}, {"<Name>", name}, {"<Near>", near}}));
}

using AppendRow =
    std::function<void(std::string&, std::span<const jet::Value>, std::span<const jet::Column>)>;

// Rows of CSV. Texts that a spreadsheet would run are counted, and made harmless when that is
// wanted.
class CsvRows {
 public:
  explicit CsvRows(bool safe) : safe_(safe) {}

  std::string Head(std::span<const jet::Column> columns) {
    std::string head;
    for (const jet::Column& column : columns) {
      if (!head.empty()) head += ',';
      AppendCsvText(head, Treat(column.name) ? "'" + column.name : column.name);
    }
    return head + "\r\n";
  }

  void Append(std::string& text, std::span<const jet::Value> row,
              std::span<const jet::Column> columns) {
    values_.assign(row.begin(), row.end());
    texts_.clear();
    for (jet::Value& value : values_) {
      if (value.kind() != jet::ValueKind::kText || !Treat(value.text())) continue;
      value = jet::Value::Text(texts_.emplace_back("'" + std::string(value.text())));
    }
    AppendCsvRow(text, values_, columns);
  }

  // Cells left as they are.
  std::size_t unsafe() const { return unsafe_; }

 private:
  // Whether an apostrophe goes before the text.
  bool Treat(std::string_view text) {
    if (!exchange::IsUnsafeCell(text)) return false;
    if (!safe_) ++unsafe_;
    return safe_;
  }

  bool safe_;
  std::size_t unsafe_ = 0;
  std::vector<jet::Value> values_;  // of the row at hand
  std::deque<std::string> texts_;   // what its values with an apostrophe refer to
};

void AppendJsonRow(std::string& text, std::span<const jet::Value> row,
                   std::span<const jet::Column> columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    text += i > 0 ? ", " : "{";
    text += JsonString(columns[i].name) + ": ";
    AppendJson(text, row[i], columns[i]);
  }
  text += "}\n";
}

// Writes all rows that can be read; returns what was wrong with the others.
std::vector<messages::Message> WriteRows(Invocation& invocation, jet::Table& table,
                                         std::string text, const AppendRow& append) {
  std::ostream& out = invocation.console().out;
  std::vector<messages::Message> gaps;
  jet::Scan scan = table.OpenScan();
  const std::span<const jet::Column> columns = table.columns();
  jet::RowBuffer row;
  for (bool more = true; more;) {
    try {
      more = scan.Next(row);
    } catch (const jet::Error& error) {
      if (error.kind() != jet::ErrorKind::kDamaged || gaps.size() == 100) throw;
      gaps.push_back(error.message());
      continue;
    }
    if (more) append(text, row.values(), columns);
    if (text.size() >= kBufferSize || !more) {
      out << text;
      text.clear();
      if (invocation.Interrupted()) throw InterruptedError();
      if (!out) break;  // what is missing is said at the end
    }
  }
  out.flush();
  if (messages::Message shortfall = scan.Shortfall(); gaps.empty() && !shortfall.empty()) {
    gaps.push_back(std::move(shortfall));
  }
  return gaps;
}

int RunExport(Invocation& invocation) {
  const std::string format = invocation.Option("--format").value_or("csv");
  if (format != "csv" && format != "jsonl") {
    throw UsageError(invocation.Text(
        kTextBadChoice,
        {{"<Option>", "--format"}, {"<Word>", format}, {"<Choices>", "csv, jsonl"}}));
  }
  const bool csv = format == "csv";
  if (!csv && invocation.Has("--safe-cells")) {
    throw UsageError(invocation.Text(
        kTextContradiction, {{"<First>", "--safe-cells"}, {"<Second>", "--format jsonl"}}));
  }
  auto database = OpenReadOnly(invocation);
  jet::Table& table = FindTable(invocation, *database);
  CsvRows rows(invocation.Has("--safe-cells"));
  const auto gaps = csv ? WriteRows(invocation, table, rows.Head(table.columns()),
                                    std::bind_front(&CsvRows::Append, &rows))
                        : WriteRows(invocation, table, "", AppendJsonRow);
  if (rows.unsafe() > 0 && invocation.console().err_is_terminal) {
    invocation.Warn(
        invocation.Text(kTextUnsafeCells, {{"<Count>", std::to_string(rows.unsafe())}}));
  }
  for (const messages::Message& gap : gaps) {
    invocation.Warn(invocation.Text(
        kTextExportGap, {{"<Name>", table.name()}, {"<Text>", invocation.texts().Sentence(gap)}}));
  }
  return gaps.empty() ? kDone : kFile;
}

int RunVerify(Invocation& invocation) {
  auto database = OpenReadOnly(invocation);
  Progress progress(invocation);
  const jet::VerifyResult result = database->Verify([&](std::uint64_t done, std::uint64_t total) {
    progress.Show(done, total);
    if (invocation.Interrupted()) throw InterruptedError();
  });
  progress.End();
  std::ostream& out = invocation.console().out;
  if (!result.ok()) {
    for (const jet::Finding& finding : result.findings)
      out << invocation.texts().Sentence(jet::Describe(finding)) << '\n';
    throw CommandError(kRefused,
                       invocation.Text(kTextVerifyFindings,
                                       {{"<Count>", std::to_string(result.findings.size())}}));
  }
  out << invocation.Text(kTextVerifyOk, {{"<Pages>", std::to_string(result.pages)},
                                         {"<Tables>", std::to_string(result.tables)},
                                         {"<Rows>", std::to_string(result.rows)},
                                         {"<Indexes>", std::to_string(result.indexes)},
                                         {"<Entries>", std::to_string(result.entries)}})
      << '\n';
  return kDone;
}

}  // namespace

std::vector<CommandSpec> DatabaseCommands() {
  const ArgumentSpec file{"FILE", kTextArgDatabase};
  return {
      {"db info",
       kTextCommandDbInfo,
       {file},
       {kJsonOption},
       {"ovformula db info Plant.ovs"},
       RunInfo},
      {"db tables",
       kTextCommandDbTables,
       {file},
       {kJsonOption},
       {"ovformula db tables Plant.ovs"},
       RunTables},
      {"db schema",
       kTextCommandDbSchema,
       {file},
       {kJsonOption},
       {"ovformula db schema Plant.ovs"},
       RunSchema},
      {"db export",
       kTextCommandDbExport,
       {file, {"TABLE", kTextArgTable}},
       {{"--format", "FORMAT", kTextOptFormat}, {"--safe-cells", "", kTextOptSafeCells}},
       {"ovformula db export Plant.ovs TvbfAlias > aliases.csv",
        "ovformula db export Plant.ovs TvbfAlias --format jsonl"},
       RunExport},
      {"db verify", kTextCommandDbVerify, {file}, {}, {"ovformula db verify Plant.ovs"}, RunVerify},
  };
}

}  // namespace cli
