// SPDX-License-Identifier: MIT
#include "jet/index_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <set>
#include <vector>

#include "jet/index_entries.h"
#include "jet/index_page_edit.h"
#include "tests/support/hex.h"

namespace jet {
namespace {

using testing_support::FromHex;
using Entry = std::vector<std::byte>;
using Page = std::array<std::byte, kPageSize>;

std::vector<Entry> EntriesOf(const Page& page) {
  const IndexPage view(page.data());
  std::vector<Entry> entries;
  for (std::size_t at = 0; at < view.Used(); at = view.After(at)) {
    view.Read(at, entries.emplace_back());
  }
  return entries;
}

// The prefix that the format asks for: none while whole entries fit.
std::size_t ExpectedPrefix(const std::set<Entry>& entries, std::size_t capacity) {
  std::size_t whole = 0;
  for (const Entry& entry : entries) whole += entry.size();
  return whole > capacity ? CommonPrefix(*entries.begin(), *entries.rbegin()) : 0;
}

// Bytes that the entries take with that prefix, which only the first entry spells out.
std::size_t ExpectedSize(const std::set<Entry>& entries, std::size_t capacity) {
  const std::size_t prefix = ExpectedPrefix(entries, capacity);
  std::size_t size = prefix;
  for (const Entry& entry : entries) size += entry.size() - prefix;
  return size;
}

// The page that the format asks for, written entry by entry.
Page Expected(const std::set<Entry>& entries, std::size_t capacity) {
  Page page;
  InitIndexPage(page.data(), PageType::kIndexLeaf, 7, 0);
  if (entries.empty()) return page;
  const std::size_t prefix = ExpectedPrefix(entries, capacity);
  std::size_t used = 0;
  for (const Entry& entry : entries) {
    for (std::size_t i = used == 0 ? 0 : prefix; i < entry.size(); ++i) {
      page[kIndexDataOffset + used++] = entry[i];
    }
    page[kIndexMaskOffset + used / 8] |= std::byte{1} << used % 8;
  }
  Store16(&page[2], static_cast<std::uint16_t>(kIndexCapacity - used));
  Store16(&page[24], static_cast<std::uint16_t>(prefix));
  return page;
}

Entry RandomEntry(std::mt19937& random) {
  Entry entry = FromHex("7F4A4A4A4A4A");
  entry.resize(2 + random() % 5);
  for (std::size_t n = random() % 12 + 1; n > 0; --n) {
    entry.push_back(static_cast<std::byte>(random() % 3 + 2));
  }
  entry.push_back(std::byte{1});
  entry.push_back(std::byte{0});
  AppendRow({static_cast<PageNumber>(random() % 3), static_cast<std::uint8_t>(random() % 4)},
            entry);
  return entry;
}

TEST(IndexPage, StaysInTheFormOfTheFormat) {
  for (const std::size_t capacity : {std::size_t{100}, std::size_t{700}, kIndexCapacity}) {
    std::mt19937 random(static_cast<unsigned>(capacity));
    Page page;
    InitIndexPage(page.data(), PageType::kIndexLeaf, 7, 0);
    std::set<Entry> model;
    std::size_t refused = 0, with_prefix = 0;
    for (int step = 0; step < 6000; ++step) {
      const IndexPage view(page.data());
      // Growing and shrinking phases, so that pages get full and empty.
      const bool insert = random() % 8 < (step / 500 % 2 == 0 ? 6u : 2u);
      if (insert) {
        const Entry entry = RandomEntry(random);
        if (model.contains(entry)) continue;
        const Page before = page;
        if (InsertEntry(page.data(), view.Find(entry, Bound::kFirst), entry, capacity)) {
          model.insert(entry);
        } else {
          ++refused;
          ASSERT_EQ(page, before);
          model.insert(entry);
          ASSERT_GT(ExpectedSize(model, capacity), capacity);
          model.erase(entry);
        }
      } else if (!model.empty()) {
        const auto victim = std::next(model.begin(), static_cast<int>(random() % model.size()));
        EraseEntry(page.data(), view.Find(*victim, Bound::kFirst), capacity);
        model.erase(victim);
      }
      ASSERT_EQ(IndexPage::Fault(page.data()), nullptr);
      ASSERT_EQ(page, Expected(model, capacity)) << "step " << step;
      with_prefix += IndexPage(page.data()).Prefix() > 0;
    }
    EXPECT_GT(refused, 0u);
    EXPECT_GT(with_prefix, 0u);
  }
}

// Entries that are equal, as damage makes them, would leave a prefix that is one of them whole, and
// nothing of it to erase.
TEST(IndexPage, RefusesAPrefixThatIsAnEntry) {
  Page page;
  InitIndexPage(page.data(), PageType::kIndexLeaf, 7, 0);
  const Entry entry = FromHex("7F4A4B01000000000100");
  Entry longer = entry;
  longer.push_back(std::byte{1});
  ASSERT_TRUE(InsertEntry(page.data(), 0, entry));
  ASSERT_TRUE(InsertEntry(page.data(), entry.size(), longer));
  ASSERT_EQ(IndexPage::Fault(page.data()), nullptr);
  Store16(&page[24], static_cast<std::uint16_t>(entry.size()));
  EXPECT_NE(IndexPage::Fault(page.data()), nullptr);
}

TEST(IndexPage, FindsAsAListDoes) {
  std::mt19937 random(1);
  for (int round = 0; round < 60; ++round) {
    Page page;
    InitIndexPage(page.data(), PageType::kIndexLeaf, 7, 0);
    const std::size_t capacity = round % 2 == 0 ? kIndexCapacity : 300;
    for (int i = 0; i < 200; ++i) {
      const Entry entry = RandomEntry(random);
      const std::size_t at = IndexPage(page.data()).Find(entry, Bound::kFirst);
      if (!InsertEntry(page.data(), at, entry, capacity)) break;
    }
    const std::vector<Entry> entries = EntriesOf(page);
    ASSERT_TRUE(std::is_sorted(entries.begin(), entries.end()));
    ASSERT_EQ(IndexPage(page.data()).Count(), entries.size());
    for (int i = 0; i < 200; ++i) {
      Entry target = RandomEntry(random);
      target.resize(random() % (target.size() + 1));
      const auto begins = [&](const Entry& e) {
        return e.size() >= target.size() && std::equal(target.begin(), target.end(), e.begin());
      };
      const IndexPage view(page.data());
      const auto first = std::lower_bound(entries.begin(), entries.end(), target);
      const auto past =
          std::find_if(first, entries.end(), [&](const Entry& e) { return !begins(e); });
      const IndexEntries list(view);
      EXPECT_EQ(list.IndexOf(view, view.Find(target, Bound::kFirst)),
                static_cast<std::size_t>(first - entries.begin()));
      EXPECT_EQ(list.IndexOf(view, view.Find(target, Bound::kPast)),
                static_cast<std::size_t>(past - entries.begin()));
    }
  }
}

TEST(IndexPage, RowMayReachIntoThePrefix) {
  Page page;
  InitIndexPage(page.data(), PageType::kIndexLeaf, 7, 0);
  Entry entry;
  for (std::uint8_t slot = 0; slot < 20; ++slot) {
    entry = FromHex("7F4A0100");
    AppendRow({0x123456, slot}, entry);
    const std::size_t at = IndexPage(page.data()).Used();
    ASSERT_TRUE(InsertEntry(page.data(), at, entry, 40));
  }
  const IndexPage view(page.data());
  ASSERT_EQ(view.Prefix(), 7u);
  std::uint8_t slot = 0;
  for (std::size_t at = 0; at < view.Used(); at = view.After(at)) {
    EXPECT_EQ(view.Row(at), (RowId{0x123456, slot++}));
  }
}

// Whatever stands on a page: it is refused, or every access stays within it and comes to an end.
TEST(IndexPage, DamagedPagesAreSafe) {
  std::mt19937 random(3);
  Page sound;
  InitIndexPage(sound.data(), PageType::kIndexLeaf, 7, 0);
  for (int i = 0; i < 400; ++i) {
    const Entry entry = RandomEntry(random);
    const std::size_t at = IndexPage(sound.data()).Find(entry, Bound::kFirst);
    (void)InsertEntry(sound.data(), at, entry, 900);
  }
  ASSERT_GT(IndexPage(sound.data()).Prefix(), 0u);
  int readable = 0;
  for (int round = 0; round < 3000; ++round) {
    Page page = sound;
    for (std::size_t n = random() % 8 + 1; n > 0; --n) {
      const std::size_t end = random() % 4 == 0 ? 28 : kPageSize;
      page[random() % end] = static_cast<std::byte>(random());
    }
    if (IndexPage::Fault(page.data()) != nullptr) continue;
    ++readable;
    const Entry target = RandomEntry(random);
    const std::size_t at = IndexPage(page.data()).Find(target, Bound::kFirst);
    ASSERT_LE(at, IndexPage(page.data()).Used());
    for (const Entry& entry : EntriesOf(page)) ASSERT_LE(entry.size(), kIndexCapacity);
    (void)InsertEntry(page.data(), at, target);
    while (IndexPage(page.data()).Used() > 0) {
      EraseEntry(page.data(), 0);
      if (IndexPage::Fault(page.data()) != nullptr) break;
    }
  }
  EXPECT_GT(readable, 1000);
}

// compIndexTestV2000.mdb, the root of a descending index of 512 entries.
TEST(IndexPage, ReadsNodesOfAccess) {
  Page page;
  InitIndexPage(page.data(), PageType::kIndexNode, 14, 1);
  SetTail(page.data(), 33);
  ASSERT_TRUE(InsertEntry(page.data(), 0, FromHex("807FFFFFEC 00001100 00000020")));
  const IndexPage node(page.data());
  EXPECT_EQ(node.Child(0), 32u);
  EXPECT_EQ(node.Find(FromHex("807FFFFFEB"), Bound::kFirst), 0u);
  EXPECT_EQ(node.Find(FromHex("807FFFFFEC 00001100"), Bound::kFirst), 0u);
  EXPECT_EQ(node.Find(FromHex("807FFFFFEC 00001101"), Bound::kFirst), node.Used());
}

}  // namespace
}  // namespace jet
