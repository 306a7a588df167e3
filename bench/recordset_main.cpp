// SPDX-License-Identifier: MIT
// Recordsets over a project database beside SQLite with the same rows and indexes, and beside the
// engine's own scan. All figures come from one run, so their ratios mean something on a noisy
// machine; smaller is better. A recordset is made anew for every query, as a statement of SQLite
// is; the lines "prepared" set it beside a statement that SQLite has ready.
//
//   bench_recordset [queries|reading|deleted|opening]...
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/folder.h"
#include "bench/make_project.h"
#include "bench/report.h"
#include "bench/sqlite.h"
#include "recordset/jet_connection.h"
#include "store/ado_fro.h"

namespace bench {
namespace {

constexpr const char* kHeader =
    "SELECT TvbfFormulas.Name, TvbfFormulas.ProgID, TvbfAlias.VBAlias "
    "FROM (TvbfParams INNER JOIN TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID) "
    "INNER JOIN TvbfFormulas ON TvbfParams.ParentID = TvbfFormulas.ID "
    "WHERE (Name = ?) AND (ProgID = ?)";
constexpr const char* kUses =
    "SELECT TvbfAlias.VBAlias, TvbfFormulas.Name, TvbfFormulas.ProgID FROM (TvbfParams INNER JOIN "
    "TvbfAlias ON TvbfParams.AliasID = TvbfAlias.ID) INNER JOIN TvbfFormulas ON "
    "TvbfParams.ParentID = TvbfFormulas.ID WHERE TvbfAlias.ID = ";
constexpr const char* kByName = "SELECT ID FROM TvbfAlias WHERE VBAlias = ?";

void Expect(bool fine, const char* what) {
  if (fine) return;
  std::fprintf(stderr, "not as expected: %s\n", what);
  std::exit(1);
}

// A project database and the same in SQLite.
struct Databases {
  Folder folder;
  ProjectSize size;
  std::string path = folder.File("plant.ovs");
  recordset::JetConnection jet{files::RealFileSystem()};
  std::unique_ptr<Sqlite> sqlite;

  explicit Databases(std::size_t aliases) {
    size = {aliases / 10, aliases, aliases};
    MakeLargeDatabase(files::RealFileSystem(), path, size);
    jet.Open(store::ProjectConnectionString(path));
    FillSqlite();
  }

  std::shared_ptr<platform::Recordset> Make(std::string_view source, platform::CommandType type) {
    auto rows = jet.CreateRecordset();
    rows->SetSource(source);
    rows->SetCommandType(type);
    return rows;
  }

 private:
  // Names are compared without regard to case there too.
  void FillSqlite() {
    sqlite = std::make_unique<Sqlite>(folder.File("plant.db"));
    sqlite->Run(
        "CREATE TABLE TvbfFormulas(ID INTEGER PRIMARY KEY, Name TEXT COLLATE NOCASE,"
        " ProgID TEXT COLLATE NOCASE, Type INTEGER, ScanTime INTEGER, Enabled INTEGER,"
        " Comment TEXT);"
        "CREATE TABLE TvbfAlias(ID INTEGER PRIMARY KEY, ItemID TEXT, VBAlias TEXT COLLATE NOCASE);"
        "CREATE TABLE TvbfParams(ID INTEGER PRIMARY KEY, ParentID INTEGER, AliasID INTEGER,"
        " \"In\" INTEGER, Out INTEGER);"
        "CREATE INDEX ProgID ON TvbfFormulas(ProgID, Name);"
        "CREATE UNIQUE INDEX VBAlias ON TvbfAlias(VBAlias);"
        "CREATE INDEX AliasID ON TvbfParams(AliasID);"
        "CREATE UNIQUE INDEX \"Unique\" ON TvbfParams(ParentID, AliasID);"
        "BEGIN");
    SqliteStatement alias(*sqlite, "INSERT INTO TvbfAlias(ItemID, VBAlias) VALUES(?1, ?2)");
    for (std::size_t i = 0; i < size.aliases; ++i) {
      const std::string item = ItemName(i), name = AliasName(i);
      alias.Bind(1, item);
      alias.Bind(2, name);
      alias.Step();
      alias.Reset();
    }
    SqliteStatement formula(*sqlite,
                            "INSERT INTO TvbfFormulas(Name, ProgID, Type, ScanTime, Enabled, "
                            "Comment) VALUES(?1, ?2, 0, 0, 1, 'Balance of section 1')");
    SqliteStatement argument(
        *sqlite, "INSERT INTO TvbfParams(ParentID, AliasID, \"In\", Out) VALUES(?1, ?2, 1, 0)");
    for (std::size_t i = 0; i < size.formulas; ++i) {
      const std::string name = FormulaName(i), prog_id = ProgIdOf(i, size);
      formula.Bind(1, name);
      formula.Bind(2, prog_id);
      formula.Step();
      formula.Reset();
      for (std::size_t n = 0; n < ArgumentsOf(i, size); ++n) {
        argument.Bind(1, static_cast<std::int64_t>(i + 1));
        argument.Bind(2, static_cast<std::int64_t>(AliasOfArgument(i, n, size) + 1));
        argument.Step();
        argument.Reset();
      }
    }
    sqlite->Run("COMMIT; ANALYZE");
  }
};

// One question to the database, asked for many different objects.
struct Question {
  const char* what;
  // Each answers for one object with the number of rows.
  std::function<std::size_t(std::size_t i)> ours, other, prepared;
};

std::size_t RowsOf(SqliteStatement& statement) {
  std::size_t rows = 0;
  while (statement.Step()) {
    ++rows;
    Expect(!statement.Text(0).empty(), "a value");
  }
  statement.Reset();
  return rows;
}

std::vector<Question> Questions(Databases& data) {
  const auto names = [&data](SqliteStatement& statement, std::size_t i) {
    const std::string name = FormulaName(i % data.size.formulas);
    const std::string prog_id = ProgIdOf(i % data.size.formulas, data.size);
    statement.Bind(1, std::string_view(name));
    statement.Bind(2, std::string_view(prog_id));
    return RowsOf(statement);
  };
  const auto by_name = [&data](SqliteStatement& statement, std::size_t i) {
    const std::string name = AliasName(i % data.size.aliases);
    statement.Bind(1, std::string_view(name));
    return RowsOf(statement);
  };
  const auto uses = [&data](std::size_t i) {
    return kUses + std::to_string(i % data.size.aliases + 1);
  };
  const auto header = std::make_shared<SqliteStatement>(*data.sqlite, kHeader);
  const auto used = std::make_shared<SqliteStatement>(*data.sqlite, std::string(kUses) + "?1");
  const auto seek = std::make_shared<SqliteStatement>(*data.sqlite, kByName);
  return {
      {"header query of a formula",
       [&data](std::size_t i) {
         const std::size_t formula = i % data.size.formulas;
         auto rows = data.Make(kHeader, platform::CommandType::kText);
         rows->SetParameters({FormulaName(formula), ProgIdOf(formula, data.size)});
         rows->Open();
         return rows->GetRows(-1, {}).RowCount();
       },
       [&data, names](std::size_t i) {
         SqliteStatement statement(*data.sqlite, kHeader);
         return names(statement, i);
       },
       [header, names](std::size_t i) { return names(*header, i); }},
      {"AliasInUse",
       [&data, uses](std::size_t i) -> std::size_t {
         auto rows = data.Make(uses(i), platform::CommandType::kText);
         rows->Open();
         return rows->EOF_() ? 0 : 1;
       },
       [&data, uses](std::size_t i) -> std::size_t {
         SqliteStatement statement(*data.sqlite, uses(i));
         return statement.Step() ? 1 : 0;
       },
       [&data, used](std::size_t i) -> std::size_t {
         used->Bind(1, static_cast<std::int64_t>(i % data.size.aliases + 1));
         const bool found = used->Step();
         used->Reset();
         return found ? 1 : 0;
       }},
      {"Seek of an alias",
       [&data](std::size_t i) -> std::size_t {
         auto rows = data.Make("TvbfAlias", platform::CommandType::kTableDirect);
         rows->SetIndex("VBAlias");
         rows->Open();
         rows->Seek({AliasName(i % data.size.aliases)});
         return rows->Fields("ID").Value().ToLong() > 0 ? 1 : 0;
       },
       [&data, by_name](std::size_t i) {
         SqliteStatement statement(*data.sqlite, kByName);
         return by_name(statement, i);
       },
       [seek, by_name](std::size_t i) { return by_name(*seek, i); }},
  };
}

// Microseconds for one question.
double TimeOf(const std::function<std::size_t(std::size_t)>& ask, std::size_t step,
              std::size_t& rows) {
  constexpr std::size_t kAsked = 2000;
  const Stopwatch watch;
  for (std::size_t i = 0; i < kAsked; ++i) rows += ask(i * step);
  return 1e6 * watch.Seconds() / kAsked;
}

// The median times of ours.
std::vector<double> CompareQuestions(Databases& data) {
  constexpr int kRounds = 9;
  const std::string at = " of " + std::to_string(data.size.aliases);
  std::vector<double> times;
  for (const Question& question : Questions(data)) {
    std::vector<double> ours, other, prepared;
    std::size_t our_rows = 0, other_rows = 0, prepared_rows = 0;
    for (int round = 0; round < kRounds; ++round) {
      ours.push_back(TimeOf(question.ours, 7919, our_rows));
      other.push_back(TimeOf(question.other, 7919, other_rows));
      prepared.push_back(TimeOf(question.prepared, 7919, prepared_rows));
    }
    Expect(our_rows > 0 && our_rows == other_rows && our_rows == prepared_rows, question.what);
    times.push_back(Median(ours));
    PrintRatio(question.what + at, Median(ours), Median(other), "us", 1.5);
    PrintRatio("  SQLite prepared", Median(ours), Median(prepared), "us", 0);
  }
  return times;
}

// What reading all aliases yields: each way has to deliver every value.
struct Totals {
  std::size_t rows = 0;
  std::int64_t ids = 0;
  std::size_t size = 0;  // of the texts

  void Add(std::int64_t id, std::string_view item, std::string_view name) {
    ++rows;
    ids += id;
    size += item.size() + name.size();
  }
  void Check(const ProjectSize& project) const {
    const auto count = static_cast<std::int64_t>(project.aliases);
    Expect(rows == project.aliases && ids == count * (count + 1) / 2 && size > 8 * rows,
           "the rows");
  }
};

double ScanAliases(Databases& data) {
  jet::Table& table = data.jet.database().OpenTable("TvbfAlias");
  const Stopwatch watch;
  jet::Scan scan = table.OpenScan();
  jet::RowBuffer row;
  Totals totals;
  while (scan.Next(row)) totals.Add(row[0].integer(), row[1].text(), row[2].text());
  const double seconds = watch.Seconds();
  totals.Check(data.size);
  return seconds;
}

double ReadBlock(Databases& data, std::string_view source, platform::CommandType type) {
  const Stopwatch watch;
  auto aliases = data.Make(source, type);
  aliases->Open();
  const platform::RowBlock rows = aliases->GetRows(-1, {});
  Totals totals;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    totals.Add(rows.At(0, row).ToLong(), rows.At(1, row).Text(), rows.At(2, row).Text());
  }
  const double seconds = watch.Seconds();
  totals.Check(data.size);
  return seconds;
}

double WalkRows(Databases& data) {
  const Stopwatch watch;
  auto aliases = data.Make("TvbfAlias", platform::CommandType::kTable);
  aliases->Open();
  platform::Field& id = aliases->Fields("ID");
  platform::Field& item = aliases->Fields("ItemID");
  platform::Field& name = aliases->Fields("VBAlias");
  Totals totals;
  for (; !aliases->EOF_(); aliases->MoveNext()) {
    totals.Add(id.Value().ToLong(), item.Value().ToText(), name.Value().ToText());
  }
  const double seconds = watch.Seconds();
  totals.Check(data.size);
  return seconds;
}

void CompareReading(Databases& data, double limit) {
  constexpr int kRounds = 9;
  std::vector<double> scan, block, ordered, walk;
  for (int round = 0; round < kRounds; ++round) {
    scan.push_back(1e3 * ScanAliases(data));
    block.push_back(1e3 * ReadBlock(data, "TvbfAlias", platform::CommandType::kTable));
    ordered.push_back(
        1e3 * ReadBlock(data, "SELECT * FROM TvbfAlias ORDER BY ID", platform::CommandType::kText));
    walk.push_back(1e3 * WalkRows(data));
  }
  const std::string of = " of " + std::to_string(data.size.aliases) + " aliases";
  PrintRatio("GetRows" + of, Median(block), Median(scan), "ms", limit);
  // By an index, whose order here is that of the rows.
  PrintRatio("GetRows, ORDER BY" + of, Median(ordered), Median(scan), "ms", 0);
  // Each row is looked up when it becomes current.
  PrintRatio("MoveNext" + of, Median(walk), Median(scan), "ms", 0);
}

// Walks over all aliases while every second one was deleted since the rows were found.
double WalkGoneRowsOnce(Databases& data) {
  data.jet.BeginTrans();
  auto rows = data.Make("TvbfAlias", platform::CommandType::kTable);
  rows->Open();
  rows->MoveLast();
  jet::Table& table = data.jet.database().OpenTable("TvbfAlias");
  std::vector<jet::RowId> ids;
  jet::RowBuffer row;
  for (jet::Scan scan = table.OpenScan({}); scan.Next(row);) ids.push_back(row.id());
  for (std::size_t i = 0; i < ids.size(); i += 2) table.Delete(ids[i]);
  const Stopwatch watch;
  std::size_t left = 0;
  for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) ++left;
  const double seconds = watch.Seconds();
  Expect(left == ids.size() / 2, "the rows that are left");
  rows->Close();
  data.jet.RollbackTrans();
  return seconds;
}

double WalkGoneRows(Databases& data) {
  std::vector<double> times;
  times.reserve(7);
  for (int round = 0; round < 7; ++round) times.push_back(WalkGoneRowsOnce(data));
  return Median(times);
}

// Opens the data environment and counts the three tables.
double OpenAndCount(Databases& data) {
  constexpr int kRounds = 41;
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    const Stopwatch watch;
    store::ADOFRO& environment = store::ADOFRO::Instance();
    environment.cnnFormulas()->Open(store::ProjectConnectionString(data.path));
    std::size_t rows = 0;
    for (const char* table : {"TvbfFormulas", "TvbfAlias", "TvbfParams"}) {
      rows += static_cast<std::size_t>(environment.cnnFormulas()->TableRowCount(table));
    }
    store::ADOFRO::Drop();
    times.push_back(1e6 * watch.Seconds());
    Expect(rows == data.size.formulas + 2 * data.size.aliases, "the counts");
  }
  return Median(times);
}

void CompareAll(const std::function<bool(const char*)>& wanted) {
  store::ADOFRO::SetConnectionFactory(
      [] { return std::make_shared<recordset::JetConnection>(files::RealFileSystem()); });
  Databases few(10000), many(100000);
  if (wanted("queries")) {
    PrintHeading("recordset", "SQLite");
    const std::vector<double> of_many = CompareQuestions(many);
    const std::vector<double> of_few = CompareQuestions(few);
    PrintHeading("100,000", "10,000");
    const std::vector<Question> questions = Questions(few);
    for (std::size_t i = 0; i < questions.size(); ++i) {
      PrintRatio(questions[i].what, of_many[i], of_few[i], "us", 0);
    }
  }
  if (wanted("reading")) {
    PrintHeading("recordset", "scan");
    CompareReading(many, 1.5);
    CompareReading(few, 0);
  }
  if (wanted("deleted")) {
    PrintHeading("100,000", "10,000");
    PrintRatio("MoveNext over rows that others deleted", 1e3 * WalkGoneRows(many),
               1e3 * WalkGoneRows(few), "ms", 20);
  }
  if (wanted("opening")) {
    PrintHeading("100,000", "10,000");
    PrintRatio("open ADOFRO, count three tables, close", OpenAndCount(many), OpenAndCount(few),
               "us", 1.1);
  }
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  bench::CompareAll([&](const char* name) {
    return arguments.empty() || std::ranges::count(arguments, name) > 0;
  });
}
