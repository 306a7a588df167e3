// SPDX-License-Identifier: MIT
#include "jet/index_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "jet/error.h"
#include "jet/index_cursor.h"
#include "jet/key_encoder.h"
#include "tests/jet/tree_file.h"
#include "tests/support/hex.h"

namespace jet {
namespace {

using Bytes = std::vector<std::byte>;
using Item = std::pair<Bytes, RowId>;
using Model = std::set<Item>;

int Steps(int few) { return std::getenv("OV_LONG") ? 50 * few : few; }

Bytes TextKey(const std::string& text) {
  Bytes key;
  EXPECT_FALSE(AppendKeyPart(ColumnType::kText, SortOrder::kAscending, Value::Text(text), key));
  return key;
}

Bytes LongKey(std::int64_t number) {
  Bytes key;
  EXPECT_FALSE(
      AppendKeyPart(ColumnType::kLong, SortOrder::kAscending, Value::Integer(number), key));
  return key;
}

// Texts of a plant: long common beginnings, some equal.
Bytes RandomKey(std::mt19937& random, std::size_t names) {
  static const char* const kAreas[] = {"Tank", "Tank-Level ", "Ventil ", "Überlauf "};
  const std::size_t number = random() % names;
  return TextKey(kAreas[number % 4] + std::to_string(number * 7919 % names));
}

RowId RandomRow(std::mt19937& random) {
  return {static_cast<PageNumber>(random() % 5000 + 10), static_cast<std::uint8_t>(random() % 40)};
}

Model Contents(const IndexTree& tree, bool forward) {
  Model items;
  EntryCursor cursor(tree);
  if (!forward) cursor.ToEnd();
  while (forward ? cursor.Next() : cursor.Previous()) {
    const ByteView key = cursor.key();
    items.emplace(Bytes(key.begin(), key.end()), cursor.row());
  }
  return items;
}

bool HasKey(const Model& model, const Bytes& key) {
  const auto at = model.lower_bound({key, RowId{}});
  return at != model.end() && at->first == key;
}

// Random growing and shrinking in step with a set; the tree is checked all the time.
class TreeModel : public testing::TestWithParam<std::size_t> {};

TEST_P(TreeModel, HoldsWhatASetHolds) {
  const std::size_t capacity = GetParam();
  TreeFile file(capacity);
  std::mt19937 random(static_cast<unsigned>(capacity));
  Model model;
  std::size_t deepest = 0;
  const int steps = Steps(4000);
  for (int step = 0; step < steps; ++step) {
    const bool grow = step / (steps / 4) % 2 == 0;
    if (random() % 10 < (grow ? 9u : 1u) || model.empty()) {
      const Item item(RandomKey(random, 3000), RandomRow(random));
      if (model.contains(item)) continue;
      const bool is_new = !HasKey(model, item.first);
      ASSERT_EQ(file.tree().Contains(item.first), !is_new);
      ASSERT_EQ(file.tree().Insert(item.first, item.second), is_new);
      model.insert(item);
    } else {
      const auto victim = model.lower_bound({RandomKey(random, 3000), RowId{}});
      const Item item = victim == model.end() ? *model.rbegin() : *victim;
      ASSERT_TRUE(file.tree().Erase(item.first, item.second));
      ASSERT_FALSE(file.tree().Erase(item.first, item.second));
      model.erase(item);
    }
    if (step % 50 == 0) {
      ASSERT_EQ(file.Faults(), "") << "step " << step;
      // The root keeps its page, and has no neighbours.
      const IndexPage root(file.tree().Read(file.location().root).data());
      ASSERT_EQ(root.Level(), file.Depth() - 1);
      ASSERT_EQ(root.Previous() + root.Next(), 0u);
    }
    if (step % 500 == 0) {
      ASSERT_EQ(Contents(file.tree(), true), model);
      ASSERT_EQ(Contents(file.tree(), false), model);
      std::vector<RowId> rows;
      for (const Item& item : model) rows.push_back(item.second);
      ASSERT_EQ(file.tree().Rows(), rows);
    }
    deepest = std::max(deepest, file.Depth());
  }
  for (const Item& item : model) ASSERT_TRUE(file.tree().Erase(item.first, item.second));
  EXPECT_EQ(file.Faults(), "");
  EXPECT_EQ(file.Depth(), 1u);
  EXPECT_EQ(file.Pages(), std::vector<PageNumber>{file.location().root});
  EXPECT_GE(deepest, capacity < 200 ? 4u : 2u);
}

INSTANTIATE_TEST_SUITE_P(PageFills, TreeModel, testing::Values(90, 130, 300, 1000, kIndexCapacity));

TEST(IndexTree, AscendingRowsFillPages) {
  TreeFile file;
  for (int i = 1; i <= 100000; ++i) {
    file.tree().Insert(LongKey(i),
                       {static_cast<PageNumber>(i / 50 + 10), static_cast<std::uint8_t>(i % 50)});
  }
  EXPECT_EQ(file.Faults(true), "");
  EXPECT_EQ(file.Depth(), 2u);
  // A leaf takes about 600 such entries.
  EXPECT_LT(file.Pages().size(), 100000u / 550);
  EXPECT_EQ(file.tree().Find(LongKey(77777)), (RowId{77777 / 50 + 10, 77777 % 50}));
  EXPECT_EQ(file.tree().Find(LongKey(100001)), std::nullopt);
}

TEST(IndexTree, FindsByLeadingColumns) {
  TreeFile file(200);
  const auto key = [](int group, int number) {
    Bytes bytes = LongKey(group);
    const Bytes more = LongKey(number);
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
  };
  for (int i = 0; i < 900; ++i) {
    file.tree().Insert(key(i % 30 * 2, i / 30), {static_cast<PageNumber>(i + 10), 0});
  }
  EntryCursor cursor(file.tree());
  for (int group = 0; group < 60; ++group) {
    EXPECT_EQ(file.tree().Find(LongKey(group)).has_value(), group % 2 == 0);
    int count = 0;
    for (bool on = cursor.Seek(LongKey(group), Bound::kFirst);
         on && cursor.KeyStartsWith(LongKey(group)); on = cursor.Next()) {
      ++count;
    }
    EXPECT_EQ(count, group % 2 == 0 ? 30 : 0);
    cursor.Seek(LongKey(group), Bound::kPast);
    ASSERT_TRUE(cursor.Previous());
    EXPECT_TRUE(cursor.KeyStartsWith(key(group / 2 * 2, 29)));
  }
  EXPECT_FALSE(cursor.Seek(LongKey(58), Bound::kPast));
  EXPECT_TRUE(cursor.Previous());
  EXPECT_TRUE(cursor.Seek(LongKey(0), Bound::kFirst));
  EXPECT_FALSE(cursor.Previous());
  EXPECT_TRUE(cursor.Next());
}

TEST(IndexTree, CursorSurvivesChanges) {
  TreeFile file(150);
  std::mt19937 random(5);
  Model model;
  EntryCursor cursor(file.tree());
  std::optional<Item> here;  // where the cursor stands
  for (int step = 0; step < Steps(6000); ++step) {
    const Item item(RandomKey(random, 400), RandomRow(random));
    switch (random() % 6) {
      case 0:
      case 1:
        if (model.insert(item).second) file.tree().Insert(item.first, item.second);
        break;
      case 2:
        if (here && model.erase(*here) > 0) file.tree().Erase(here->first, here->second);
        break;
      case 3: {
        const auto at = model.lower_bound({item.first, RowId{}});
        ASSERT_EQ(cursor.Seek(item.first, Bound::kFirst), at != model.end());
        here = at == model.end() ? std::nullopt : std::optional(*at);
        break;
      }
      default: {
        if (!here) break;
        const bool forward = random() % 3 != 0;
        const auto after = model.upper_bound(*here);
        const auto from = model.lower_bound(*here);
        const bool moves = forward ? after != model.end() : from != model.begin();
        ASSERT_EQ(forward ? cursor.Next() : cursor.Previous(), moves) << step;
        here = !moves ? std::nullopt : std::optional(forward ? *after : *std::prev(from));
      }
    }
    if (here) {
      ASSERT_TRUE(cursor.OnEntry());
      ASSERT_TRUE(std::ranges::equal(cursor.key(), here->first));
      ASSERT_EQ(cursor.row(), here->second);
    }
  }
}

TEST(IndexTree, RefusesWhatItCannotHold) {
  TreeFile file;
  const Bytes longest(kMaxIndexKey, std::byte{5});
  EXPECT_TRUE(file.tree().Insert(longest, {10, 1}));
  try {
    file.tree().Insert(Bytes(kMaxIndexKey + 1, std::byte{5}), {10, 2});
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::kInvalid);
  }
  EXPECT_THROW(file.tree().Insert(longest, {10, 1}), Error);
  EXPECT_FALSE(file.tree().Erase(longest, {10, 2}));
  for (std::uint8_t slot = 2; slot < 40; ++slot) file.tree().Insert(longest, {10, slot});
  EXPECT_EQ(file.Faults(), "");
}

// Whatever the pages hold, each call returns or raises an Error of the engine.
TEST(IndexTree, DamagedPagesAreReported) {
  int raised = 0;
  for (int round = 0; round < Steps(60); ++round) {
    std::mt19937 random(static_cast<unsigned>(round));
    TreeFile file(140);
    for (int i = 0; i < 500; ++i) {
      file.tree().Insert(RandomKey(random, 700), {static_cast<PageNumber>(i + 10), 1});
    }
    const std::vector<PageNumber> pages = file.Pages();
    for (std::size_t n = random() % 6 + 1; n > 0; --n) {
      const PageEdit page = file.pager().Modify(pages[random() % pages.size()]);
      const std::size_t end = random() % 2 == 0 ? 27 : kIndexDataOffset + 140;
      page.data()[random() % end] =
          static_cast<std::byte>(random() % 4 == 0 ? random() % 9 : random());
    }
    const auto attempt = [&](const auto& call) {
      try {
        call();
      } catch (const Error& error) {
        ++raised;
        EXPECT_EQ(error.kind(), ErrorKind::kDamaged) << error.what();
      }
    };
    file.Faults();
    for (int i = 0; i < 200; ++i) {
      const Item item(RandomKey(random, 700), {static_cast<PageNumber>(random() % 600), 1});
      attempt([&] { file.tree().Find(item.first); });
      attempt([&] { file.tree().Insert(item.first, item.second); });
      attempt([&] { file.tree().Erase(item.first, item.second); });
    }
    attempt([&] { Contents(file.tree(), true); });
    attempt([&] { Contents(file.tree(), false); });
    attempt([&] { EXPECT_LE(file.tree().Rows().size(), 4000u); });
  }
  EXPECT_GT(raised, 100);
}

}  // namespace
}  // namespace jet
