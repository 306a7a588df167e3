// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "jet/database.h"
#include "tests/jet/samples.h"

namespace jet {
namespace {

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
                    << finding.place.row << ": " << finding.text;
    }
    entries += result.entries;
  }
  EXPECT_GT(entries, 2300u);
}

}  // namespace
}  // namespace jet
