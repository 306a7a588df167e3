// SPDX-License-Identifier: MIT
// The operations over ADO's objects and an environment that is driven by name: they come to the
// same as over our own engine and files, and where a call fails everything is as before or as
// after.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "com/host_database.h"
#include "com/module.h"
#include "com/vbe_object.h"
#include "tests/com/partner_windows.h"
#include "tests/store/operation_cases.h"

namespace com_tests {
namespace {

using store::OperationCase;

// The system as the add-in has it, over files in memory.
class Studio {
 public:
  explicit Studio(files::MemoryFileSystem& system)
      : partner_(std::make_shared<Partner>([&system] {
          return std::make_shared<recordset::JetConnection>(system, support::AnyFileOptions());
        })),
        session_(std::make_shared<com::VbSession>(system)),
        vbe_(std::make_shared<com::HostVbe>(
            com::LateBound(com::Reference<IDispatch>::Take(new com::VbeObject(session_))))),
        database_({.files = &system,
                   .path = support::kDatabasePath,
                   .connection_string = store::ProjectConnectionString(support::kDatabasePath),
                   .provider = project::Provider::kJet,
                   .objects = partner_->Objects(),
                   .log = {}},
                  vbe_.get()),
        code_(texts_, &items_, &components_) {
    session_->Open(support::kProjectPath);
    connection_ = database_.Connect();
    connection_->Open(store::ProjectConnectionString(support::kDatabasePath));
    code_.Initialize(connection_, vbe_, "Plant");
    operations_ = std::make_unique<store::Operations>(
        store::Operations::Parts{connection_, vbe_, &code_, &database_.unit(), &texts_});
  }

  Partner& partner() { return *partner_; }
  store::Operations& operations() { return *operations_; }
  // Ends as the add-in does; the environment writes its files.
  void End() {
    operations_.reset();
    connection_->Close();
    session_->Save();
  }

 private:
  std::shared_ptr<Partner> partner_;
  texts::TextTable texts_{texts::Language::kEnglish};
  support::TableItems items_;
  support::RecordingComponentList components_;
  std::shared_ptr<com::VbSession> session_;
  std::shared_ptr<com::HostVbe> vbe_;
  com::HostDatabase database_;
  std::shared_ptr<platform::Connection> connection_;
  codegen::CVBFormulaCode code_;
  std::unique_ptr<store::Operations> operations_;
};

class ProvidedOperationsTest : public testing::TestWithParam<OperationCase> {
 protected:
  ProvidedOperationsTest() : start_(store::StartFiles()) {
    files::MemoryFileSystem before, after;
    support::Restore(before, start_);
    before_ = store::StateOf(before);
    support::Restore(after, start_);
    {
      support::OpenProject project(after);
      GetParam().operation(*project.operations);
    }
    after_ = store::StateOf(after);
  }

  struct Attempt {
    store::OperationResult result;
    bool fired = false;
    std::string state;
  };
  Attempt Try(int n, int count) {
    files::MemoryFileSystem system;
    support::Restore(system, start_);
    Attempt attempt;
    {
      Studio studio(system);
      studio.partner().FailAt(n, count);
      attempt.result = GetParam().operation(studio.operations());
      attempt.fired = studio.partner().fired();
      studio.End();
    }
    EXPECT_EQ(WrappersAlive(), 0) << "call " << n;
    EXPECT_FALSE(com::IsModuleAlive()) << "call " << n;
    attempt.state = store::StateOf(system);
    return attempt;
  }

  support::Files start_;
  std::string before_, after_;
};

TEST_P(ProvidedOperationsTest, ComeToTheSameAsOverOurEngine) {
  const Attempt attempt = Try(Partner::kForEver, 1);
  EXPECT_TRUE(attempt.result.success()) << support::ToText(attempt.result);
  EXPECT_EQ(attempt.state, after_);
}

// One call raises an error, or all from there on do: the connection is gone.
TEST_P(ProvidedOperationsTest, LeaveEverythingAsBeforeOrAsAfterWhereACallFails) {
  const int step = std::getenv("OV_LONG") ? 1 : 13;
  for (const int count : {1, Partner::kForEver}) {
    int failures = 0;
    for (int n = 1;; n += step) {
      SCOPED_TRACE("call " + std::to_string(n) + (count == 1 ? "" : " and all behind it"));
      const Attempt attempt = Try(n, count);
      const bool done = attempt.result.success();
      EXPECT_EQ(attempt.state, done ? after_ : before_) << support::ToText(attempt.result);
      if (!done) {
        ++failures;
        const std::string said = support::ToText(attempt.result);
        EXPECT_NE(said.find("Jet of the test"), std::string::npos) << said;
        EXPECT_NE(said.find("See that the file is there"), std::string::npos) << said;
      }
      if (!attempt.fired || HasFailure()) break;
    }
    EXPECT_GT(failures, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, ProvidedOperationsTest,
                         testing::ValuesIn(store::OperationCases()),
                         [](const auto& tried) { return std::string(tried.param.name); });

}  // namespace
}  // namespace com_tests
