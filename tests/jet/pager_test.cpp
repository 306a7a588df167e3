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

}  // namespace
}  // namespace jet
