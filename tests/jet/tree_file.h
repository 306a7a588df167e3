// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "files/memory_file_system.h"
#include "jet/data_page.h"
#include "jet/header_page.h"
#include "jet/index_check.h"
#include "jet/index_page_edit.h"
#include "jet/index_tree.h"
#include "jet/pager.h"
#include "jet/usage_map.h"

namespace jet {

// A file in memory that holds nothing but one empty index tree, in an open transaction.
class TreeFile {
 public:
  static constexpr PageNumber kTable = 2;  // owns the index pages; holds the usage map's row
  static constexpr const char* kPath = "/tree.mdb";

  explicit TreeFile(std::size_t capacity = kIndexCapacity) {
    std::string image(3 * kPageSize, '\0');
    const auto bytes = std::as_writable_bytes(std::span(image));
    Store32(bytes.data() + kHeaderFreeMapOffset, RowId{1, 0}.Reference());
    MaskHeader(bytes.first(kPageSize));
    std::vector<std::byte> map(69);
    InitDataPage(&bytes[2 * kPageSize], 0);
    AddRow(&bytes[2 * kPageSize], map, kSlotLive);
    for (std::size_t i = 5; i < map.size(); ++i) map[i] = std::byte{0xFF};
    map[5] = std::byte{0xF8};
    InitDataPage(&bytes[kPageSize], 1);
    AddRow(&bytes[kPageSize], map, kSlotLive);
    system_.Put(kPath, image);
    file_ = system_.Open(kPath, files::OpenMode::kReadWrite);
    pager_ = std::make_unique<Pager>(*file_, 64);
    pager_->Begin();
    const PageEdit root = pager_->Allocate();
    InitIndexPage(root.data(), PageType::kIndexLeaf, kTable, 0);
    location_ = {kTable, root.number(), RowId{kTable, 0}};
    UsageMap(*pager_, location_.usage_map).Add(root.number());
    tree_ = std::make_unique<IndexTree>(*pager_, location_, capacity);
  }

  Pager& pager() { return *pager_; }
  IndexTree& tree() { return *tree_; }
  const IndexTree::Location& location() const { return location_; }

  std::size_t Depth() const {
    IndexPath path;
    tree_->Descend({}, Bound::kFirst, path);
    return path.depth;
  }

  std::vector<PageNumber> Pages() {
    std::vector<PageNumber> pages;
    IndexChecker checker(*pager_, location_, false, 1, [](PageNumber, const messages::Message&) {});
    checker.Walk([&](PageNumber page) { pages.push_back(page); });
    return pages;
  }

  // What the check of the tree finds, a line each.
  std::string Faults(bool unique = false) {
    std::string text;
    IndexChecker checker(*pager_, location_, unique, 1,
                         [&](PageNumber page, const messages::Message& t) {
                           text += std::to_string(page) + ": " + t.English() + "\n";
                         });
    checker.Walk([](PageNumber) {});
    return text;
  }

 private:
  files::MemoryFileSystem system_;
  std::unique_ptr<files::RandomAccessFile> file_;
  std::unique_ptr<Pager> pager_;
  IndexTree::Location location_;
  std::unique_ptr<IndexTree> tree_;
};

}  // namespace jet
