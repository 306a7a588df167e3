// SPDX-License-Identifier: MIT
#include "desktop/crash_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>

#include "files/real_file_system.h"
#include "files/replace_file.h"

namespace desktop {
namespace {

using testing::HasSubstr;
using testing::Not;

class CrashLog : public testing::Test {
 protected:
  CrashLog() {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // The same in the process that dies.
    folder_ = testing::TempDir() + "crash-log-" +
              testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::create_directories(folder_);
  }
  ~CrashLog() override { std::filesystem::remove_all(folder_); }

  // "" when there is none.
  std::string Log() {
    files::FileSystem& files = files::RealFileSystem();
    const std::string path = NewestCrashLog(files, folder_);
    return path.empty() ? path : files::ReadFile(files, path);
  }

  std::string folder_;
};

int Overflow(int depth) {
  volatile char block[4096];
  block[0] = static_cast<char>(depth);
  return depth < 0 ? 0 : Overflow(depth + 1) + block[0];
}

TEST_F(CrashLog, IsNotThereWithoutAFault) {
  EXPECT_EXIT(
      {
        InstallCrashLog(folder_, "1");
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
  EXPECT_EQ(Log(), "");
}

TEST_F(CrashLog, IsWrittenWhenASignalEndsTheProgram) {
  EXPECT_EXIT(
      {
        InstallCrashLog(folder_, "1.2.3");
        RememberStep("node FORF");
        std::raise(SIGSEGV);
      },
      testing::KilledBySignal(SIGSEGV), "");
  const std::string log = Log();
  EXPECT_THAT(log, HasSubstr("ovformula-desktop 1.2.3\nfault: SIGSEGV\n"));
  EXPECT_THAT(log, HasSubstr("\n  node FORF\nplaces:\n"));
  EXPECT_THAT(log, HasSubstr("desktop_tests"));
}

TEST_F(CrashLog, IsWrittenWhenTheStackRunsOver) {
  EXPECT_EXIT(
      {
        InstallCrashLog(folder_, "1");
        Overflow(0);
      },
      testing::KilledBySignal(SIGSEGV), "");
  EXPECT_THAT(Log(), HasSubstr("fault: SIGSEGV"));
}

TEST_F(CrashLog, NamesTheKindOfAnExceptionButNotItsText) {
  EXPECT_EXIT(
      {
        InstallCrashLog(folder_, "1");
        std::thread([] { throw std::runtime_error("/plant/Secret.ovs"); }).join();
      },
      testing::KilledBySignal(SIGABRT), "");
  EXPECT_THAT(Log(), HasSubstr("runtime_error"));
  EXPECT_THAT(Log(), Not(HasSubstr("Secret")));
}

TEST_F(CrashLog, KeepsTheLastStepsAndCutsLongOnes) {
  EXPECT_EXIT(
      {
        InstallCrashLog(folder_, "1");
        for (int i = 0; i < 200; ++i) RememberStep("step " + std::to_string(i));
        RememberStep(std::string(5000, 'x'));
        std::abort();
      },
      testing::KilledBySignal(SIGABRT), "");
  const std::string log = Log();
  EXPECT_THAT(log, HasSubstr("  step 199\n"));
  EXPECT_THAT(log, Not(HasSubstr("  step 100\n")));
  EXPECT_THAT(log, Not(HasSubstr(std::string(100, 'x'))));
}

}  // namespace
}  // namespace desktop
