// SPDX-License-Identifier: MIT
// A project folder that somebody else prepared: the program writes nothing that is not the
// project's, whichever command is run.
#include <gtest/gtest.h>

#include <filesystem>
#include <span>
#include <string>

#include "files/file_system.h"
#include "files/journal_format.h"
#include "jet/lock_file.h"
#include "tests/cli/transcript.h"

namespace {

class PlantedFiles : public testing::Test {
 protected:
  PlantedFiles() {
    EXPECT_EQ(room_.Run("cp -r \"$EXAMPLE\"/. . && chmod -R u+w . && "
                        "ovformula new Plant.ovs --vbp PumpServer.vbp 2>/dev/null && "
                        "ovformula alias add Plant.ovs Tank1 >/dev/null && "
                        "echo secret > ../victim && mkdir out"),
              "");
  }

  std::string Path(const std::string& name) const { return (room_.folder() / name).string(); }
  std::string Victim() const { return room_.Run("cat ../victim"); }

  // A sound journal beside the database that empties the file when it is believed.
  void Forge(const std::string& database, const std::string& victim) {
    files::FileSystem& system = files::RealFileSystem();
    const std::string real = Path("room/Plant.ovs");
    const auto file = system.Open(real + ".journal", files::OpenMode::kCreateOrOpen);
    files::journal::Writer writer(*file, 7, *system.Stamp(real));
    writer.AddDatabase(database);
    const files::FileChange change{victim, "mine", "secret\n"};
    const auto version = [](const files::Contents& contents) {
      return files::journal::Version{true, contents->size(), contents.Hash()};
    };
    writer.AddWholeFile(
        {victim, victim + ".0123456789ab.tmp", version(change.before), version(change.after)},
        change);
    writer.Finish();
  }

  transcript::Room room_;
};

TEST_F(PlantedFiles, AForgedJournalIsNotBelieved) {
  const std::string victim = Path("victim");
  for (const std::string& database : {Path("room/Plant.ovs"), std::string("/proc/self/fd/3")}) {
    Forge(database, victim);
    const char* commands[] = {
        "ovformula db info Plant.ovs",          "ovformula db info /proc/self/fd/3 3<Plant.ovs",
        "ovformula db verify Plant.ovs",        "ovformula alias list Plant.ovs",
        "ovformula report Plant.ovs",           "ovformula formula list Plant.ovs",
        "ovformula alias add Plant.ovs Tank2",  "ovformula recover Plant.ovs",
        "ovformula recover Plant.ovs --before", "ovformula recover Plant.ovs --after"};
    for (const char* command : commands) {
      room_.Run(command);
      EXPECT_EQ(Victim(), "secret\n") << command;
    }
    const std::string answer = room_.Run("ovformula alias add Plant.ovs Tank2");
    EXPECT_NE(answer.find("recover --discard"), std::string::npos) << answer;
    EXPECT_EQ(room_.Run("ovformula recover Plant.ovs --discard >/dev/null"), "");
    EXPECT_EQ(room_.Run("ovformula alias list Plant.ovs"), "1\tTank1\tTank1\n");
  }
}

// A change that was interrupted is left alone while somebody who does not know the journal has the
// database open.
TEST_F(PlantedFiles, NothingIsRecoveredUnderAForeignUser) {
  EXPECT_EQ(room_.Run("cp ../victim CPump.cls"), "");
  Forge(Path("room/Plant.ovs"), Path("room/CPump.cls"));
  {
    const auto foreign =
        files::RealFileSystem().Open(Path("room/Plant.ldb"), files::OpenMode::kCreateOrOpen);
    const std::string computer = "DESK7";
    foreign->WriteAt(0, std::as_bytes(std::span(computer)));
    ASSERT_TRUE(foreign->TryLock(jet::kUserLockBase + 1, 1, files::LockMode::kExclusive));
    for (const char* choice : {"--before", "--after", "--discard"}) {
      const std::string answer = room_.Run(std::string("ovformula recover Plant.ovs ") + choice);
      EXPECT_NE(answer.find("open on DESK7"), std::string::npos) << answer;
      EXPECT_NE(answer.find("[3]"), std::string::npos) << answer;
    }
    EXPECT_EQ(room_.Run("cmp CPump.cls ../victim"), "");
  }
  EXPECT_EQ(room_.Run("ovformula recover Plant.ovs --before"), "Recovered.\n");
  EXPECT_EQ(room_.Run("cat CPump.cls"), "mine\n[no line end]\n");
}

// Links under the names of the files that the program makes are not followed.
TEST_F(PlantedFiles, LinksAreNotFollowed) {
  for (const char* name : {"Plant.ldb", "Plant.ovs.journal"}) {
    for (const char* target : {"../victim", "../none"}) {
      const std::string link = std::string(name) + " -> " + target;
      EXPECT_EQ(room_.Run("ln -s " + std::string(target) + " " + name), "");
      const std::string answer = room_.Run("ovformula alias add Plant.ovs Tank2");
      EXPECT_NE(answer.find("it is a link"), std::string::npos) << link << ": " << answer;
      EXPECT_EQ(Victim() + room_.Run("ls ../none 2>/dev/null"), "secret\n[2]\n") << link;
      EXPECT_EQ(room_.Run("rm " + std::string(name)), "");
    }
  }
}

// One file under two names cannot be written so that it stays one.
TEST_F(PlantedFiles, AFileOfTwoNamesIsRefused) {
  EXPECT_EQ(room_.Run("ovformula formula add Plant.ovs --name FillTank --class PumpServer.CPump "
                      ">/dev/null && cp CPump.cls before"),
            "");
  EXPECT_EQ(room_.Run("ln CPump.cls Twin.cls"), "");
  std::string answer = room_.Run("ovformula argument add Plant.ovs FillTank Tank1 --in");
  EXPECT_NE(answer.find("several names"), std::string::npos) << answer;
  EXPECT_EQ(room_.Run("cmp CPump.cls before && cmp CPump.cls Twin.cls && rm Twin.cls"), "");
  EXPECT_EQ(room_.Run("ln Plant.ovs Twin.ovs"), "");
  answer = room_.Run("ovformula alias add Twin.ovs Tank2");
  EXPECT_NE(answer.find("several names"), std::string::npos) << answer;
  EXPECT_EQ(room_.Run("rm Twin.ovs && ls *.ldb *.journal 2>/dev/null"), "[2]\n");
  EXPECT_EQ(room_.Run("ovformula argument add Plant.ovs FillTank Tank1 --in >/dev/null"), "");
}

// Through a link in another folder it is the project that the link leads to.
TEST_F(PlantedFiles, ALinkIsTheProjectThatItLeadsTo) {
  EXPECT_EQ(room_.Run("ln -s ../Plant.ovs out/Link.ovs"), "");
  EXPECT_EQ(room_.Run("ovformula formula add out/Link.ovs --name FillTank "
                      "--class PumpServer.CPump"),
            "1\tFillTank\n");
  EXPECT_EQ(room_.Run("grep -c FillTank CPump.cls >/dev/null; ls out"), "Link.ovs\n");
  EXPECT_EQ(room_.Run("cp Plant.ovs Data.ldb && ovformula alias list Data.ldb --json >/dev/null && "
                      "ovformula alias add Data.ldb Tank2 2>&1 | grep -c 'it is the database'; "
                      "cmp Plant.ovs Data.ldb"),
            "1\n");
}

// Nor does a database that a folder stands beside under the name of its history.
TEST_F(PlantedFiles, AFolderInPlaceOfTheHistoryIsCalledSo) {
  EXPECT_EQ(room_.Run("rm Plant.history && mkdir -p Plant.history/a/b"), "");
  const std::string answer = room_.Run("ovformula alias add Plant.ovs Tank2");
  EXPECT_NE(answer.find("2\tTank2\n"), std::string::npos) << answer;
  EXPECT_NE(answer.find("it is a folder"), std::string::npos) << answer;
}

// Somebody whom only another list of accounts names, or none.
TEST_F(PlantedFiles, AnAccountWithoutANameIsKnownByItsNumber) {
  const std::string other =
      "setpriv --reuid 54321 --clear-groups env -u USER -u LOGNAME ovformula ";
  if (!room_.Run(other + "--version >/dev/null 2>&1").empty()) {
    GTEST_SKIP() << "only an administrator becomes somebody else, who must reach the program";
  }
  EXPECT_EQ(room_.Run("chmod -R a+rwX . && chmod a+x .. && " + other + "alias add Plant.ovs Tank2"),
            "2\tTank2\n");
  EXPECT_EQ(room_.Run("ovformula history Plant.ovs --limit 1 | cut -f 3 | cut -d @ -f 1"),
            "54321\n");
}

}  // namespace
