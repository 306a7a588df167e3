// SPDX-License-Identifier: MIT
// Records as text, and the file that holds them.
#include "history/record.h"

#include <array>

#include "tests/history/plant.h"

namespace history {
namespace {

TEST(Cells, KeepEveryKindOfValue) {
  const std::array<std::byte, 17> bytes = {std::byte{0}, std::byte{255}, std::byte{16}};
  const std::span<const std::byte> all(bytes);
  const std::pair<jet::Value, Cell> cases[] = {
      {jet::Value(), "n"},
      {jet::Value::Boolean(true), "b1"},
      {jet::Value::Integer(-7), "i-7"},
      {jet::Value::Currency(12345), "c12345"},
      {jet::Value::Real(0.1), "r0.1"},
      {jet::Value::Date(-1.25), "d-1.25"},
      {jet::Value::Text("Füllstand\t"), "tFüllstand\t"},
      {jet::Value::Binary(all.first(3)), "x00ff10"},
      {jet::Value::Guid(all.first<16>()), "g00ff10" + std::string(26, '0')},
      {jet::Value::Decimal(all.first<17>()), "m00ff10" + std::string(28, '0')},
  };
  for (const auto& [value, cell] : cases) {
    EXPECT_EQ(ToCell(value), cell);
    std::string room;
    const auto back = FromCell(cell, room);
    ASSERT_TRUE(back) << cell;
    EXPECT_EQ(*back, value) << cell;
  }
  std::string room;
  for (const char* wrong : {"", "z", "i", "i1x", "b2", "nn", "x0", "xzz", "g00", "r"}) {
    EXPECT_FALSE(FromCell(wrong, room)) << wrong;
  }
}

Record Sample(std::uint64_t number = 0) {
  Record record;
  record.number = number;
  record.time = 1795336255;
  record.who = "me@\there\\";
  record.program = "ovformula";
  record.title = {
      {messages::TextNumber{3322}},
      {{"<Title>", messages::Message({messages::TextNumber{3301}}, {{"<Name>", "a\nb"}})}}};
  record.rows = {{"T", 1, Row{{"ID", "i1"}, {"Name", "ta"}}, Row{{"ID", "i1"}, {"Name", "tb"}}},
                 {"T", 2, {}, Row{{"ID", "i2"}, {"Note", Cell("t\0", 2)}}},
                 {"T", 3, Row{{"ID", "i3"}}, {}}};
  record.files = {{"a.cls",
                   FileVersion{1, 2},
                   FileVersion{3, 4},
                   {{1, 2, "x\r\n", "\xE4\n", "above\n", ""}, {9, 9, "", "y\n", "", "below"}}},
                  {"/new.cls", {}, FileVersion{5, 6}, {{1, 1, "", "all\n", "", ""}}}};
  return record;
}

TEST(Records, AreOneLineAndReadBack) {
  const Record record = Sample(7);
  const std::string line = ToLine(record);
  EXPECT_EQ(line.find_first_of(std::string_view("\n\r\0", 3)), std::string::npos);
  const auto back = FromLine(line);
  ASSERT_TRUE(back);
  EXPECT_EQ(back->number, 7u);
  EXPECT_EQ(back->who, record.who);
  EXPECT_EQ(back->rows, record.rows);
  EXPECT_EQ(back->files, record.files);
  EXPECT_EQ(ToLine(*back), line);
  EXPECT_EQ(back->title, record.title);
  const texts::TextTable german(texts::Language::kGerman), english(texts::Language::kEnglish);
  EXPECT_EQ(german.Sentence(back->title), "Rückgängig: Alias a b anlegen");
  EXPECT_EQ(english.Sentence(back->title), "Undo: Add alias a b");
  // Cut anywhere, it is a shorter record or none, but nothing else happens.
  for (std::size_t length = 0; length < line.size(); ++length) {
    const auto cut = FromLine(line.substr(0, length));
    if (cut) {
      EXPECT_LE(cut->rows.size() + cut->files.size(), 5u);
    }
  }
}

TEST(HistoryFile, GoesBackInItsRecordsAndStaysBounded) {
  files::MemoryFileSystem system;
  system.CreateDirectories("/plant");
  HistoryFile file(system, kHistory);
  const auto append = [&] {
    const auto ends = file.ReadEnds();
    ASSERT_TRUE(ends);
    file.Shorten(*ends);
    const Ends now = file.ReadEnds().value();
    Record record = Sample();
    record.number = now.last_number + 1;
    std::string bytes;
    HistoryFile::Write(now, record, ListedRows(record.rows),
                       [&](std::string_view piece) { bytes += piece; });
    system.Open(kHistory, files::OpenMode::kCreateOrOpen)
        ->WriteAt(now.size, std::as_bytes(std::span(bytes)));
  };
  const auto numbers = [&] {
    std::vector<std::uint64_t> found;
    EXPECT_TRUE(file.ForEach([&](const Record& record) {
      found.push_back(record.number);
      return true;
    }));
    return found;
  };
  EXPECT_TRUE(numbers().empty());
  for (std::uint64_t i = 0; i < 2 * kMostRecords; ++i) append();
  EXPECT_EQ(numbers().size(), 2 * kMostRecords);
  append();
  const std::vector<std::uint64_t> left = numbers();
  EXPECT_EQ(left.size(), kMostRecords + 1);
  EXPECT_EQ(left.front(), 2 * kMostRecords + 1);
  EXPECT_EQ(left.back(), kMostRecords + 1);
}

}  // namespace
}  // namespace history
