// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "jet/data_page.h"
#include "jet/database.h"
#include "jet/header_page.h"
#include "jet/pager.h"
#include "jet/row_codec.h"
#include "jet/table_definition.h"
#include "jet/usage_map.h"
#include "jet/usage_map_record.h"
#include "tests/jet/plant_tables.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

constexpr const char* kPath = "/plant.ovs";

// No real file has a fault: every page is reached once, and every index entry is what the rows
// say, byte for byte.
TEST(Verify, FindsNothingInRealFiles) {
  OV_NEED_SAMPLES();
  std::uint64_t entries = 0;
  for (const std::string& name : samples::Names()) {
    SCOPED_TRACE(name);
    OpenOptions options;
    options.read_only = true;
    const auto database = Database::Open(files::RealFileSystem(), samples::Path(name), options);
    const VerifyResult result = database->Verify();
    for (const Finding& finding : result.findings) {
      ADD_FAILURE() << finding.table << ", page " << finding.place.page << ", row "
                    << finding.place.row << ": " << finding.text.English();
    }
    entries += result.entries;
  }
  EXPECT_GT(entries, 2300u);
}

// The bytes of a sound database with moved and deleted rows, long values on one page and over
// several, and where its parts lie.
class Parts {
 public:
  Parts() {
    files::MemoryFileSystem system;
    {
      const auto database = Database::Create(system, kPath);
      Table& table = database->CreateTable(ItemsSpec());
      Transaction transaction(*database);
      for (int i = 0; i < 60; ++i) {
        const std::size_t length = i % 10 == 0 ? 9000 : i % 3 == 0 ? 3000 : 20;
        const RowId row = AddItem(table, "Pump" + std::to_string(i), std::string(length, 'n')).id;
        const std::string longer = std::string(250, 'a') + std::to_string(i);
        const ColumnValue values[] = {{1, Value::Text(longer)}};
        if (i % 7 == 3) table.Delete(row);
        if (i % 7 != 3 && i % 2 == 0) table.Update(row, values);
      }
      transaction.Commit();
      EXPECT_EQ(Faults(*database), "");
      definition_page_ = table.definition_page();
    }
    bytes_ = system.Get(kPath);
    const auto file = system.Open(kPath, files::OpenMode::kRead);
    Pager pager(*file, 100);
    items = ReadTableDefinition(pager, definition_page_);
    const UsageMap owned(pager, items.owned_map);
    for (auto page = owned.Next(0); page; page = owned.Next(*page + 1)) data.push_back(*page);
    const UsageMap own_values(pager, items.long_values.front().owned);
    for (auto page = own_values.Next(0); page; page = own_values.Next(*page + 1)) {
      long_values.push_back(*page);
    }
  }

  std::byte* Page(PageNumber page) {
    return std::as_writable_bytes(std::span(bytes_)).data() + page * kPageSize;
  }
  std::byte* Definition() { return Page(definition_page_); }
  const std::string& bytes() const { return bytes_; }

  // The n-th slot in that state of the pages, and what its row holds.
  RowId Find(const std::vector<PageNumber>& pages, std::uint16_t state, int n = 0) {
    for (const PageNumber page : pages) {
      for (std::size_t i = 0; i < SlotCount(Page(page)); ++i) {
        if (GetSlot(Page(page), i).state == state && n-- == 0) {
          return {page, static_cast<std::uint8_t>(i)};
        }
      }
    }
    ADD_FAILURE() << "no such slot";
    return {data.front(), 0};
  }
  std::byte* Row(RowId id) { return Page(id.page) + GetSlot(Page(id.page), id.slot).begin; }

  // The head of the n-th long value that is kept outside its row.
  std::byte* LongValue(int n) {
    const Column& note = items.columns[items.long_values.front().column];
    for (const PageNumber page : data) {
      for (std::size_t i = 0; i < SlotCount(Page(page)); ++i) {
        const Slot slot = GetSlot(Page(page), i);
        RowView view;
        if (slot.state != kSlotLive) continue;
        view.Parse({Page(page) + slot.begin, std::size_t{slot.end} - slot.begin});
        const auto stored = *view.Bytes(note);
        const bool is_inline = (Load32(stored.data()) & kInlineFlag) != 0;
        if (!is_inline && n-- == 0) return Page(page) + (stored.data() - Page(page));
      }
    }
    ADD_FAILURE() << "no such long value";
    return Definition();
  }

  // Puts a page into the map or takes it out. The map is a bitmap in its record.
  void FlipMember(RowId map, PageNumber page) {
    std::byte* record = Row(map);
    const std::size_t bit = page - Load32(record + 1);
    record[kMapHead + bit / 8] ^= std::byte{1} << (bit % 8);
  }
  // Takes all pages but the root out of an index's map.
  void ForgetPages(const PhysicalIndex& index) {
    std::byte* record = Row(index.usage_map);
    std::fill_n(record + kMapHead, kNewMapSize - kMapHead, std::byte{0});
    FlipMember(index.usage_map, index.root);
  }
  // Changes the first letter of a row's item.
  void ChangeItem() {
    const RowId id = Find(data, kSlotLive);
    const Slot slot = GetSlot(Page(id.page), id.slot);
    RowView view;
    view.Parse({Row(id), std::size_t{slot.end} - slot.begin});
    Row(id)[view.Bytes(items.columns[1])->data() - Row(id) + 2] = std::byte{'z'};
  }

  TableDefinition items;
  std::vector<PageNumber> data;         // pages of its rows
  std::vector<PageNumber> long_values;  // pages of its long values

 private:
  static constexpr std::uint32_t kInlineFlag = 0x80000000;
  PageNumber definition_page_ = 0;
  std::string bytes_;
};

void Copy(const std::byte* from, std::byte* to, std::size_t size) { std::copy_n(from, size, to); }

// Each fault outside the trees of indexes is found and named.
TEST(Verify, NamesWhatIsDamaged) {
  const struct {
    const char* says;
    std::function<void(Parts&)> damage;
  } kCases[] = {
      {"The definition counts 52 rows, but there are 51.",
       [](Parts& p) { Store32(p.Definition() + kDefinitionRowsOffset, 52); }},
      {"The last AutoNumber is 1, but a row has 59.",
       [](Parts& p) { Store32(p.Definition() + kDefinitionAutoNumberOffset, 1); }},
      {"The usage map is used twice.",
       [](Parts& p) {
         Copy(p.Definition() + kDefinitionOwnedMapOffset, p.Definition() + kDefinitionFreeMapOffset,
              4);
       }},
      {"states a wrong number of free bytes",
       [](Parts& p) { Store16(p.Page(p.data[0]) + kDataFreeOffset, 7); }},
      {"belongs to another owner",
       [](Parts& p) { Store32(p.Page(p.data[1]) + kDataOwnerOffset, 3); }},
      {"its type byte says otherwise", [](Parts& p) { Store8(p.Page(p.data[1]), 4); }},
      {"more rows than it can hold",
       [](Parts& p) { Store16(p.Page(p.data[0]) + kDataSlotCountOffset, 3000); }},
      {"rows of the data page overlap",
       [](Parts& p) { Store16(p.Page(p.data[0]) + kDataSlotsOffset + 2, 0x0FFF); }},
      {"too short for its columns",
       [](Parts& p) { Store16(p.Row(p.Find(p.data, kSlotLive)), 0xFFFF); }},
      {"Two rows moved to",
       [](Parts& p) {
         Copy(p.Row(p.Find(p.data, kSlotMoved)), p.Row(p.Find(p.data, kSlotMoved, 1)), 4);
       }},
      {"The data of a moved row, which no row refers to.",
       [](Parts& p) {
         const RowId row = p.Find(p.data, kSlotMoved);
         SetSlotState(p.Page(row.page), row.slot, kSlotDeleted);
       }},
      {"The index holds an entry that is not that of row",
       [](Parts& p) {
         const RowId row = p.Find(p.data, kSlotLive);
         SetSlotState(p.Page(row.page), row.slot, kSlotDeleted);
       }},
      {"The index lacks the entry of row",
       [](Parts& p) {
         // The first column is the number that the primary key holds.
         std::byte* number = p.Row(p.Find(p.data, kSlotLive)) + 2;
         Store32(number, Load32(number) + 1000);
       }},
      {"is used twice: for Items, index 0 and for Items, rows",
       [](Parts& p) { p.FlipMember(p.items.owned_map, p.items.physical[0].root); }},
      {"The map of pages with free space names a page the table does not own.",
       [](Parts& p) { p.FlipMember(p.items.free_map, p.long_values[0]); }},
      {"is marked free, but used for Items, rows",
       [](Parts& p) { p.FlipMember(HeaderFreeMap(p.Page(0)), p.data[0]); }},
      {"An index uses a page that its map does not name.",
       [](Parts& p) { p.ForgetPages(p.items.physical[1]); }},
      {"there are",  // fewer rows than counted
       [](Parts& p) { p.FlipMember(p.items.owned_map, p.data[1]); }},
      {"which another value uses too", [](Parts& p) { Copy(p.LongValue(0), p.LongValue(1), 8); }},
      {"which the column does not own",
       [](Parts& p) {
         const RowId value = RowId::FromReference(Load32(p.LongValue(0) + 4));
         p.FlipMember(p.items.long_values.front().owned, value.page);
       }},
      {"refers to a deleted record",
       [](Parts& p) {
         const RowId value = RowId::FromReference(Load32(p.LongValue(0) + 4));
         SetSlotState(p.Page(value.page), value.slot, kSlotDeleted);
       }},
      {"than its row says", [](Parts& p) { Store32(p.LongValue(0), Load32(p.LongValue(0)) - 1); }},
      {"A long value is longer than the file.",
       [](Parts& p) { Store32(p.LongValue(0), Load32(p.LongValue(0)) | 0x3FFFFFFF); }},
      {"the page lacks it", [](Parts& p) { Store8(p.LongValue(0) + 4, 250); }},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.says);
    Parts parts;
    c.damage(parts);
    files::MemoryFileSystem system;
    system.Put(kPath, parts.bytes());
    const std::string faults = Faults(*Database::Open(system, kPath));
    EXPECT_NE(faults.find(c.says), std::string::npos) << faults;
    EXPECT_EQ(faults.find("MSys"), std::string::npos) << faults;
  }
}

// What rows, indexes and maps disagree about is not changed: nothing is written.
TEST(Damaged, IsNotWrittenInto) {
  const struct {
    const char* says;
    std::function<void(Parts&)> damage;
  } kCases[] = {
      {"has no entry of this row", [](Parts& p) { p.ChangeItem(); }},
      {"its table or column does not own",
       [](Parts& p) {
         const RowId value = RowId::FromReference(Load32(p.LongValue(0) + 4));
         p.FlipMember(p.items.long_values.front().owned, value.page);
       }},
      {"its map does not name", [](Parts& p) { p.ForgetPages(p.items.physical[1]); }},
      {"The usage map is used twice.",
       [](Parts& p) {
         Copy(p.Definition() + kDefinitionOwnedMapOffset, p.Definition() + kDefinitionFreeMapOffset,
              4);
       }},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.says);
    Parts parts;
    c.damage(parts);
    files::MemoryFileSystem system;
    system.Put(kPath, parts.bytes());
    const auto database = Database::Open(system, kPath);
    EXPECT_NE(Faults(*database), "");
    try {
      Transaction transaction(*database);
      Table& table = database->OpenTable("Items");
      AddItem(table, "new", "");
      std::vector<RowId> rows;
      RowBuffer row;
      for (Scan scan = table.OpenScan(); scan.Next(row);) rows.push_back(row.id());
      for (const RowId id : rows) {
        const std::string other = "other" + std::to_string(id.Reference());
        const ColumnValue values[] = {{1, Value::Text(other)}};
        table.Update(id, values);
      }
      for (const RowId id : rows) table.Delete(id);
      transaction.Commit();
      ADD_FAILURE() << "written";
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::kDamaged);
      EXPECT_NE(std::string(error.what()).find(c.says), std::string::npos) << error.what();
    }
    EXPECT_EQ(system.Get(kPath), parts.bytes());
  }
}

}  // namespace
}  // namespace jet
