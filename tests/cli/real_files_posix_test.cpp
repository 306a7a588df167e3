// SPDX-License-Identifier: MIT
// What "db" says of real Access files.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/transcript.h"

namespace {

// Prints what goes wrong: a command that fails, a table of which more or fewer rows are exported
// than its definition counts.
constexpr const char* kUseAllCommands = R"sh(
for command in info tables schema verify; do
  ovformula db $command "$F" > $command || echo "$command: $?"
done
grep -q '^ok: ' verify || cat verify
while IFS= read -r table; do
  exported=$(ovformula db export "$F" "$table" --format jsonl | wc -l)
  grep -qF "$table ($exported rows)" schema || echo "$table: $exported rows exported"
done < tables
)sh";

TEST(RealFiles, EveryDatabaseCommandWorks) {
  if (!std::filesystem::exists(OV_SAMPLES)) GTEST_SKIP() << "no Access files in " OV_SAMPLES;
  const transcript::Room room;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(OV_SAMPLES)) {
    const std::string extension = entry.path().extension();
    if (extension != ".mdb" && extension != ".ovs") continue;
    const std::string path = std::filesystem::canonical(entry.path());
    EXPECT_EQ(room.Run("F='" + path + "'" + kUseAllCommands), "") << path;
    ++files;
  }
  EXPECT_GT(files, 5);
}

}  // namespace
