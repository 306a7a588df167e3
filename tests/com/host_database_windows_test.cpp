// SPDX-License-Identifier: MIT
// Which engine opens the project database, and what is said of it.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "com/ado_connection.h"
#include "com/host_database.h"
#include "store/ado_fro.h"
#include "tests/com/partner_windows.h"
#include "tests/support/memory_database.h"
#include "texts/text_table.h"

namespace com_tests {
namespace {

using project::Provider;

constexpr auto kNotRegistered = static_cast<HRESULT>(0x80040154);

class HostDatabaseTest : public testing::Test {
 protected:
  HostDatabaseTest() {
    system_.CreateDirectories("/plant");
    support::PutDatabase(system_);
  }

  // Who serves the connection: "provider", "own", or what is raised instead.
  std::string Choose(Provider provider, com::AdoObjects objects) {
    com::HostDatabase database(
        {.files = &system_,
         .path = support::kDatabasePath,
         .connection_string = store::ProjectConnectionString(support::kDatabasePath),
         .provider = provider,
         .objects = std::move(objects),
         .log = [this](const auto& said) { log_.push_back(english_.Sentence(said)); }},
        nullptr);
    try {
      const auto connection = database.Connect();
      EXPECT_EQ(connection->State(), platform::ObjectState::kClosed);
      connection->Open(store::ProjectConnectionString(support::kDatabasePath));
      EXPECT_EQ(connection->TableNames().size(), 3u);
      return dynamic_cast<com::AdoConnection*>(connection.get()) ? "provider" : "own";
    } catch (const platform::Error& error) {
      return english_.Sentence(error);
    }
  }
  com::AdoObjects Working() {
    partner_ = std::make_shared<Partner>([this] {
      return std::make_shared<recordset::JetConnection>(system_, support::AnyFileOptions());
    });
    return partner_->Objects();
  }
  static com::AdoObjects Missing() {
    return {[](const std::string&) -> com::LateBound {
              throw com::Failure(kNotRegistered, "Class not registered");
            },
            "Jet of the test"};
  }

  files::MemoryFileSystem system_;
  const texts::TextTable english_{texts::Language::kEnglish};
  std::shared_ptr<Partner> partner_;
  std::vector<std::string> log_;
};

TEST_F(HostDatabaseTest, AutoTakesTheProviderWhereThereIsOne) {
  EXPECT_EQ(Choose(Provider::kAuto, Working()), "provider");
  ASSERT_EQ(log_.size(), 1u);
  EXPECT_NE(log_[0].find("opened with the database provider Jet of the test"), std::string::npos);
  EXPECT_EQ(Choose(Provider::kAuto, Missing()), "own");
  EXPECT_NE(log_.back().find("opened with the engine of the formula editor"), std::string::npos);
  EXPECT_NE(log_.back().find("is not installed on this machine for programs of"),
            std::string::npos);
}

// A file that it cannot open is no provider that is missing.
TEST_F(HostDatabaseTest, JetSaysWhatIsWrongWithTheFile) {
  com::AdoObjects objects = Working();
  partner_->FailAt(1);
  const std::string said = Choose(Provider::kJet, std::move(objects));
  EXPECT_NE(said.find(Partner::kWords), std::string::npos) << said;
  EXPECT_EQ(said.find("\"own\""), std::string::npos) << said;
}

// ADO is there, and says when it is to open that it knows no such provider; or that the file is
// locked. Our engine has the better words for what is wrong with a file.
TEST_F(HostDatabaseTest, AutoTakesOurEngineWhereTheProviderDoesNotOpen) {
  for (const std::int32_t failure :
       {static_cast<std::int32_t>(0x800A0E7A), platform::kErrUnspecified}) {
    com::AdoObjects objects = Working();
    partner_->failure = failure;
    partner_->FailAt(1, Partner::kForEver);
    EXPECT_EQ(Choose(Provider::kAuto, std::move(objects)), "own") << failure;
    EXPECT_NE(log_.back().find(Partner::kWords), std::string::npos) << log_.back();
  }
  EXPECT_EQ(WrappersAlive(), 0);
}

TEST_F(HostDatabaseTest, JetDemandsIt) {
  EXPECT_EQ(Choose(Provider::kJet, Working()), "provider");
  const std::string said = Choose(Provider::kJet, Missing());
  for (const char* part : {"Jet of the test is not installed", "Class not registered",
                           "The setting \"Provider\"", "\"auto\" or \"own\""}) {
    EXPECT_NE(said.find(part), std::string::npos) << said;
  }
}

TEST_F(HostDatabaseTest, OwnNeverAsks) {
  EXPECT_EQ(Choose(Provider::kOwn, {[](const std::string&) -> com::LateBound {
                                      ADD_FAILURE() << "asked";
                                      return {};
                                    },
                                    "Jet of the test"}),
            "own");
  EXPECT_TRUE(log_.empty());
}

// The machine's own: where ADO or its provider for Access files is missing, our engine opens the
// file. Under Wine there is an ADO, and no such provider.
TEST_F(HostDatabaseTest, OfThisMachine) {
  ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  std::optional<com::LateBound> connection;
  try {
    connection = com::AdoObjects::Installed().make("Connection");
  } catch (const com::Failure&) {
  }
  std::printf("ADO is %s on this machine\n", connection ? "installed" : "missing");
  connection.reset();
  // The file is none of the disk's, so no provider can open it.
  EXPECT_EQ(Choose(Provider::kAuto, com::AdoObjects::Installed()), "own");
  std::printf("log: %s\n", log_.back().c_str());
  EXPECT_NE(log_.back().find("provider Microsoft.Jet.OLEDB.4.0"), std::string::npos) << log_.back();
  EXPECT_NE(Choose(Provider::kJet, com::AdoObjects::Installed()).find("\"auto\" or \"own\""),
            std::string::npos);
  CoUninitialize();
}

}  // namespace
}  // namespace com_tests
