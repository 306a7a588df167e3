// SPDX-License-Identifier: MIT
// What is found: each fault by its code and place, and nothing in a project that is in step.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include "check/project_parts.h"
#include "tests/check/faults.h"
#include "tests/support/sample_plant.h"

namespace check {
namespace {

TEST(Find, IsSilentWhereAllIsInStep) {
  CheckedProject project;
  EXPECT_EQ(Describe(project.Find()), "");
  // What the development environment makes of the lines, and what engineers write around them.
  project.Exchange("CTank", "Public Level as Double 'Tank.Level",
                   "Public level  As Double   'Tank.Level");
  project.Exchange("CTank", "'\tLevel", "'    Level");
  project.Exchange(
      "CTank", "' mine",
      "Public Sub Mine(ByVal x As Long)\r\nEnd Sub\r\nPrivate mLog As Long ' Tank.Flow");
  project.Append("CTank", "'Public Sub Old()\r\n'End Sub\r\n");
  EXPECT_EQ(Describe(project.Find()), "");
}

TEST(Find, TakesHeadersInEitherLanguageAndAnyOrder) {
  CheckedProject project;
  project.Exchange("CPump",
                   "'OrvanaStudio Formula 'Fill'\r\n'Arguments:\r\n'\tLevel\r\n'\tPump\r\n",
                   "'OrvanaStudio Formel \"Fill\"\r\n'Argumente:\r\n'\tPump\r\n'\tLevel\r\n");
  EXPECT_EQ(Describe(project.Find()), "");
}

class FaultTest : public testing::TestWithParam<Fault> {};

TEST_P(FaultTest, IsFoundAtItsPlace) {
  CheckedProject project;
  GetParam().make(project);
  const auto before = project.project().system.Snapshot();
  EXPECT_EQ(Describe(project.Find()), GetParam().findings);
  EXPECT_EQ(project.project().system.Snapshot(), before) << "something was changed";
}

// The quick look is the same look, without what takes long.
TEST_P(FaultTest, IsFoundQuicklyToo) {
  CheckedProject project;
  GetParam().make(project);
  std::istringstream all(GetParam().findings);
  std::string wanted;
  for (std::string line; std::getline(all, line);) {
    const std::string area = line.substr(0, 3);
    const bool takes_long = area == "USE" || area == "DBA" || line.starts_with("VBP001");
    if (!takes_long) wanted += line + '\n';
  }
  EXPECT_EQ(Describe(FindQuickly(project.MakeParts(), {})), wanted);
}

INSTANTIATE_TEST_SUITE_P(Projects, FaultTest, testing::ValuesIn(Faults()),
                         [](const auto& param) { return std::string(param.param.name); });

TEST(FindQuickly, LooksAtWhatChangedAlone) {
  CheckedProject project;
  project.Exchange("CPump", "as Double", "As Long");
  project.Exchange("CTank", "as Double", "As Long");
  project.Set(store::kFormulasTable, 2, "Type", 8);
  const Parts parts = project.MakeParts();
  const Changed tank{false, {support::ClassPath("CTank")}};
  EXPECT_EQ(Describe(FindQuickly(parts, tank)), "DCL003 CTank.cls:1\n");
  EXPECT_EQ(Describe(FindQuickly(parts, {false, {}})), "");
  EXPECT_EQ(Describe(FindQuickly(parts, {})),
            "FRM003 TvbfFormulas #2 Type\nDCL003 CPump.cls:2\nDCL003 CTank.cls:1\n");
}

// As a failing medium leaves it: a bit in the directory of the page calls the first row deleted.
TEST(FindQuickly, TellsOfRowsThatNobodyCanRead) {
  support::SamplePlant plant;
  const texts::TextTable texts(texts::Language::kEnglish);
  {
    project::Project project(plant.system, support::kPlantDatabase, {}, texts);
    const store::AliasValues aliases[] = {{"Tank.Level", "Level"}, {"Tank.Pump", "Pump"}};
    ASSERT_TRUE(project.operations().AddAliases(aliases).success());
    EXPECT_EQ(Describe(FindQuickly(PartsOf(project), {})), "");
  }
  constexpr std::size_t kPage = 4096, kFirstRow = 15;
  std::string bytes = plant.system.Get(support::kPlantDatabase);
  const std::size_t page = bytes.find("Tank.Level") / kPage * kPage;
  bytes[page + kFirstRow] = static_cast<char>(bytes[page + kFirstRow] | 0x80);
  plant.system.Put(support::kPlantDatabase, bytes);
  project::Project project(plant.system, support::kPlantDatabase, {}, texts);
  EXPECT_EQ(Describe(FindQuickly(PartsOf(project), {})).substr(0, 6), "DBA001");
}

TEST(Find, LeavesOutWhatNobodyWantsToKnow) {
  CheckedProject project;
  project.Exchange("CTank", "as Double", "As Long");
  project.Append("CTank", "'Public Sub Drain()\r\n'End Sub\r\n");
  EXPECT_EQ(Describe(project.Find()), "DCL003 CTank.cls:1\nSUB007 CTank.cls:12\n");
  EXPECT_EQ(Describe(project.Find({Severity::kWarning, {}, {}})), "DCL003 CTank.cls:1\n");
  EXPECT_EQ(Describe(project.Find({Severity::kHint, {&rule::kOtherType}, {}})),
            "SUB007 CTank.cls:12\n");
  // In the code: above the line or behind it.
  project.Exchange("CTank", "Public Level", "'check: ignore DCL003, SUB001\r\nPublic Level");
  EXPECT_EQ(Describe(project.Find()), "SUB007 CTank.cls:13\n");
  project.Exchange("CTank", "'Public Sub Drain()", "'Public Sub Drain() 'check: ignore SUB007");
  EXPECT_EQ(Describe(project.Find()), "");
  project.Exchange("CTank", "SUB007", "SUB006");
  EXPECT_EQ(Describe(project.Find()), "SUB007 CTank.cls:13\n");
}

TEST(Find, EndsWhereItsProgressRaises) {
  CheckedProject project;
  project.Exchange("CTank", "as Double", "As Long");
  const auto before = project.project().system.Snapshot();
  int calls = 0;
  Options options;
  options.progress = [&](std::size_t done, std::size_t total) {
    EXPECT_LE(done, total);
    ++calls;
  };
  EXPECT_EQ(Describe(project.Find(options)), "DCL003 CTank.cls:1\n");
  const int all = calls;
  EXPECT_GE(all, 4) << "modules and classes";
  for (int last = 1; last <= all; ++last) {
    calls = 0;
    options.progress = [&](std::size_t, std::size_t) {
      if (++calls == last) throw std::runtime_error("enough");
    };
    EXPECT_THROW(project.Find(options), std::runtime_error) << last;
    EXPECT_EQ(Describe(project.Find()), "DCL003 CTank.cls:1\n") << "afterwards all is as it was";
  }
  EXPECT_EQ(project.project().system.Snapshot(), before);
}

TEST(Rules, HaveCodesOfTheirOwnAndTextsInBothLanguages) {
  std::set<std::string_view> codes;
  for (const Rule* rule : Rules()) {
    EXPECT_EQ(rule->code.size(), 6u) << rule->code;
    EXPECT_TRUE(codes.insert(rule->code).second) << rule->code;
    EXPECT_EQ(FindRule(rule->code), rule);
    for (const auto language : {texts::Language::kGerman, texts::Language::kEnglish}) {
      const texts::TextTable table(language);
      for (const messages::TextNumber number : {rule->text, rule->text + 1}) {
        EXPECT_EQ(table.Text(number).find("not found"), std::string::npos) << ToInt(number);
      }
    }
  }
}

// The help has a row for each code, with its severity.
TEST(Rules, AreExplainedInTheHelp) {
  for (const char* language : {"de", "en"}) {
    std::ifstream in(OV_SOURCE_DIR "/docs/help/" + std::string(language) + "/check.html");
    const std::string page(std::istreambuf_iterator<char>(in), {});
    std::size_t rows = 0;
    for (std::size_t at = page.find("<tr><td><code>"); at != std::string::npos;
         at = page.find("<tr><td><code>", at + 1)) {
      ++rows;
    }
    EXPECT_EQ(rows, Rules().size()) << language;
    for (const Rule* rule : Rules()) {
      const std::string row = "<tr><td><code>" + std::string(rule->code) + "</code></td><td>";
      EXPECT_NE(page.find(row), std::string::npos) << language << ' ' << rule->code;
    }
  }
}

}  // namespace
}  // namespace check
