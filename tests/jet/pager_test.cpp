// SPDX-License-Identifier: MIT
#include "jet/pager.h"

#include <gtest/gtest.h>

#include "files/error.h"
#include "files/memory_file_system.h"
#include "tests/support/failing_file_system.h"

namespace jet {
namespace {

// A file that is larger than the cache does not end up in memory: a page that was not asked for
// lately is read again, one that is held is not.
TEST(Pager, ForgetsUnchangedPages) {
  constexpr PageNumber kPages = 256;
  files::MemoryFileSystem system;
  system.Put("/plant.ovs", std::string(kPages * kPageSize, '\0'));
  files::FailingFileSystem failing(system);
  const auto file = failing.Open("/plant.ovs", files::OpenMode::kReadWrite);
  Pager pager(*file, 16);
  const PageRef held = pager.Read(1);
  for (PageNumber page = 0; page < kPages; ++page) pager.Read(page);
  files::Fault any_read;
  any_read.kinds = {files::Operation::kRead};
  any_read.length = files::Fault::Length::kLasting;
  failing.Arm(any_read);
  EXPECT_THROW(pager.Read(0), files::Error);
  EXPECT_EQ(pager.Read(1).data(), held.data());
}

// Pages that a transaction had no room for are read as it left them, or not at all; after its
// rollback nobody sees them, nor does the next transaction carry them into the file.
TEST(Pager, ForgetsStoredPagesWithTheirTransaction) {
  constexpr PageNumber kPages = 64;
  files::MemoryFileSystem system;
  system.Put("/plant.ovs", std::string(kPages * kPageSize, '\0'));
  files::FailingFileSystem failing(system);
  const auto file = failing.Open("/plant.ovs", files::OpenMode::kReadWrite);
  Pager pager(*file, 16, 2,
              [&] { return failing.Open("/plant.ovs.tmp", files::OpenMode::kScratch); });
  const auto expect_all = [&](std::byte wanted) {
    for (PageNumber page = 0; page < kPages; ++page) {
      EXPECT_EQ(pager.Read(page).data()[0], wanted) << page;
    }
  };
  files::Fault one_read;
  one_read.kinds = {files::Operation::kRead};
  for (const std::byte mark : {std::byte{1}, std::byte{2}}) {
    pager.Begin();
    for (PageNumber page = 0; page < kPages; ++page) pager.Modify(page).data()[0] = mark;
    failing.Arm(one_read);
    EXPECT_THROW(expect_all(mark), files::Error);
    expect_all(mark);
    pager.Rollback();
    expect_all(std::byte{0});
  }
  pager.Begin();
  pager.Modify(7).data()[0] = std::byte{3};
  std::vector<std::uint64_t> offsets;
  pager.ForEachRange([&](const auto& range) { offsets.push_back(range.offset); });
  EXPECT_EQ(offsets, std::vector<std::uint64_t>{7 * kPageSize});
  pager.Rollback();
}

}  // namespace
}  // namespace jet
