// SPDX-License-Identifier: MIT
#include "jet/index_check.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "jet/usage_map.h"
#include "tests/jet/tree_file.h"
#include "tests/support/hex.h"

namespace jet {
namespace {

using testing_support::FromHex;
using Bytes = std::vector<std::byte>;

Bytes Key(int number) {
  Bytes key = FromHex("7F80000000");
  StoreBig32(&key[1], 0x80000000u + static_cast<std::uint32_t>(number));
  return key;
}

RowId Row(int number) { return {static_cast<PageNumber>(number + 10), 3}; }

constexpr int kRowCount = 300;

void Fill(TreeFile& file) {
  for (int i = 0; i < kRowCount; ++i) file.tree().Insert(Key(i), Row(i));
}

// Each fault that a tree can have is found, and named.
TEST(IndexCheck, NamesFaultsOfTheTree) {
  const auto leaf = [](TreeFile& file, int number) {
    IndexPath path;
    file.tree().Descend(Key(number), Bound::kFirst, path);
    return file.pager().Modify(path.leaf().page);
  };
  const auto root = [](TreeFile& file) { return file.pager().Modify(file.location().root); };
  const struct {
    const char* expected;
    std::function<void(TreeFile&)> damage;
  } kRows[] = {
      {"out of order",
       [&](TreeFile& f) { leaf(f, 100).data()[kIndexDataOffset + 4] ^= std::byte{0xFF}; }},
      {"is not the last entry of page",
       [&](TreeFile& f) { root(f).data()[kIndexDataOffset + 4] ^= std::byte{1}; }},
      {"does not name its next", [&](TreeFile& f) { SetNext(leaf(f, 100).data(), 2); }},
      {"does not name its previous", [&](TreeFile& f) { SetPrevious(leaf(f, 100).data(), 0); }},
      {"reached twice",
       [&](TreeFile& f) { SetTail(root(f).data(), IndexPage(root(f).data()).Child(0)); }},
      {"usage map of the index lacks",
       [&](TreeFile& f) {
         UsageMap(f.pager(), f.location().usage_map).Remove(leaf(f, 9).number());
       }},
      {"names a page that it lacks",
       [&](TreeFile& f) { UsageMap(f.pager(), f.location().usage_map).Add(400); }},
      {"goes on behind the entries",
       [&](TreeFile& f) {
         leaf(f, 9).data()[kIndexMaskOffset + kIndexMaskSize - 2] = std::byte{1};
       }},
      {"not an index page", [&](TreeFile& f) { leaf(f, 9).data()[0] = std::byte{1}; }},
      {"another table", [&](TreeFile& f) { leaf(f, 9).data()[4] = std::byte{9}; }},
      {"the prefix is not shorter", [&](TreeFile& f) { Store16(leaf(f, 9).data() + 24, 50); }},
      {"does not end with the entries", [&](TreeFile& f) { Store16(leaf(f, 9).data() + 2, 9); }},
      {"holds the key", [&](TreeFile& f) { f.tree().Insert(Key(7), Row(900)); }},
  };
  for (const auto& row : kRows) {
    TreeFile file(150);
    Fill(file);
    ASSERT_EQ(file.Faults(true), "");
    row.damage(file);
    EXPECT_NE(file.Faults(true).find(row.expected), std::string::npos)
        << row.expected << " is missing in:\n"
        << file.Faults(true);
  }
}

// A unique index may hold rows without any value, but no other key twice.
TEST(IndexCheck, NullsMayRepeat) {
  TreeFile file;
  file.tree().Insert(FromHex("00"), Row(1));
  file.tree().Insert(FromHex("00"), Row(2));
  EXPECT_EQ(file.Faults(true), "");
}

TEST(IndexCheck, ComparesEntriesWithRows) {
  const struct {
    const char* name;
    std::function<void(IndexTree&)> change;
    const char* expected;
  } kCases[] = {
      {"sound", [](IndexTree&) {}, ""},
      {"missing", [](IndexTree& t) { t.Erase(Key(5), Row(5)); },
       "The index lacks the entry of row 3 of page 15.\n"},
      {"extra", [](IndexTree& t) { t.Insert(Key(5), Row(500)); },
       "The index holds an entry that is not that of row 3 of page 510.\n"},
      {"wrong key",
       [](IndexTree& t) {
         t.Erase(Key(5), Row(5));
         t.Insert(Key(9999), Row(5));
       },
       "The index lacks the entry of row 3 of page 15.\n"
       "The index holds an entry that is not that of row 3 of page 15.\n"},
  };
  for (const auto& row : kCases) {
    TreeFile file(150);
    Fill(file);
    row.change(file.tree());
    std::string text;
    IndexChecker checker(
        file.pager(), file.location(), false, 1,
        [&](PageNumber, const messages::Message& fault) { text += fault.English() + "\n"; });
    checker.Walk([](PageNumber) {});
    for (int i = 0; i < kRowCount; ++i) checker.ExpectEntry(Key(i), Row(i));
    checker.Finish([](RowId id) -> std::optional<Bytes> {
      const int number = static_cast<int>(id.page) - 10;
      if (number >= kRowCount) return std::nullopt;
      return Key(number);
    });
    EXPECT_EQ(text, row.expected) << row.name;
  }
}

}  // namespace
}  // namespace jet
