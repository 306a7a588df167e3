// SPDX-License-Identifier: MIT
#include "project/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "project/html.h"
#include "tests/support/formula_project.h"
#include "tests/support/memory_database.h"

namespace project {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string MakeReportOf(support::FormulaProject& project) {
  support::OpenProject& open = *project.open;
  return MakeReport({support::kDatabasePath, *open.operations, open.code, open.items}, open.texts);
}

// A formula with an argument in each direction, a used and an unused alias, hostile texts.
void Fill(support::FormulaProject& project) {
  const std::int32_t level = project.AddAlias("Tank<1>.\"Level\" & more", "Level");
  const std::int32_t valve = project.AddAlias("Valve", "Valve");
  project.AddAlias("Nobody's", "Unused");
  const auto formula = project.operations().AddFormula(
      {"Fill", "PumpServer.CPump", 7, 250, false, "</p><script>alert('x')</script>"});
  ASSERT_TRUE(formula.success()) << support::ToText(formula);
  const store::ArgumentValues arguments[] = {{level, true, true}, {valve, false, true}};
  const auto added = project.operations().AddArguments(formula.id(), arguments);
  ASSERT_TRUE(added.success()) << support::ToText(added);
}

TEST(Report, TellsItsStepsAndStops) {
  support::FormulaProject project;
  Fill(project);
  for (int i = 0; i < 100; ++i)
    project.AddAlias("Item" + std::to_string(i), "Alias" + std::to_string(i));
  support::OpenProject& open = *project.open;
  ReportSource source{support::kDatabasePath, *open.operations, open.code, open.items};
  std::size_t next = 0, last = ~std::size_t{0}, total = 0;
  source.progress = [&](std::size_t done, std::size_t of) {
    EXPECT_EQ(done, next++);
    EXPECT_LT(done, of);
    total = of;
    return done != last;
  };
  EXPECT_EQ(MakeReport(source, open.texts), MakeReportOf(project));
  EXPECT_EQ(next, total);
  for (last = 0; last < total; ++last) {
    next = 0;
    EXPECT_EQ(MakeReport(source, open.texts), "") << last;
    EXPECT_EQ(next, last + 1) << "asked again after it was to stop";
  }
}

TEST(Report, ShowsTheProjectWithEveryTextEscaped) {
  support::FormulaProject project;
  Fill(project);
  const std::string html = MakeReportOf(project);
  EXPECT_THAT(html, HasSubstr("<html lang=\"en\">"));
  EXPECT_THAT(html, HasSubstr("Formulas: 1 · Arguments: 2 · Aliases: 3 · Unused aliases: 1"));
  EXPECT_THAT(html, HasSubstr("<a href=\"#f1\">Fill</a>"));
  EXPECT_THAT(html, HasSubstr("<h3 id=\"f1\">Fill</h3>"));
  EXPECT_THAT(html, HasSubstr("<dd>250 ms</dd>"));
  EXPECT_THAT(html, HasSubstr("<dd>not enabled</dd>"));
  EXPECT_THAT(html, HasSubstr("&lt;/p&gt;&lt;script&gt;alert(&#39;x&#39;)&lt;/script&gt;"));
  EXPECT_THAT(html, HasSubstr("<td><a href=\"#a1\">Level</a></td>"
                              "<td>Tank&lt;1&gt;.<wbr>&quot;Level&quot; &amp; more</td>"
                              "<td>input and return value</td>"));
  EXPECT_THAT(html, HasSubstr("<tr id=\"a1\"><td>Level</td>"));
  EXPECT_THAT(html, HasSubstr("<td>Valve</td><td>return value</td>"));
  EXPECT_THAT(html, HasSubstr("<li>Unused <span>Nobody&#39;s</span></li>"));
  EXPECT_THAT(html, HasSubstr("<b>Public</b> <b>Sub</b> Fill()"));
  EXPECT_THAT(html, HasSubstr("<h3>asynchronous</h3>\n<ol>\n<li><a href=\"#f1\">Fill</a> "
                              "<span class=\"number\">PumpServer.CPump, every 250 ms, not enabled"
                              "</span></li>\n</ol>"));
  EXPECT_THAT(html,
              HasSubstr("<tr><td>Valve</td><td><a href=\"#f1\">Fill</a> (by its argument)</td>"
                        "<td></td></tr>"));
  EXPECT_THAT(html, Not(HasSubstr("<script")));
}

TEST(Report, ACallTypeThatDoesNotExistIsItsNumber) {
  support::FormulaProject project;
  Fill(project);
  const auto row =
      support::MemoryDatabase::Open(*project.open->connection, "SELECT * FROM TvbfFormulas", {});
  for (const std::int32_t type : {-1, 20, std::numeric_limits<std::int32_t>::max()}) {
    row->Fields("Type").SetValue(type);
    row->Update();
    EXPECT_THAT(MakeReportOf(project), HasSubstr("<dd>" + std::to_string(type) + "</dd>"));
  }
}

TEST(Report, IsTheSameBytesForTheSameProject) {
  support::FormulaProject one, two;
  Fill(one);
  Fill(two);
  const std::string html = MakeReportOf(one);
  EXPECT_EQ(html, MakeReportOf(one));
  EXPECT_EQ(html, MakeReportOf(two));
}

TEST(Report, SpeaksGerman) {
  support::FormulaProject project({{"CPump", ""}}, texts::Language::kGerman);
  Fill(project);
  const std::string html = MakeReportOf(project);
  EXPECT_THAT(html, HasSubstr("<html lang=\"de\">"));
  EXPECT_THAT(html, HasSubstr("<dd>nicht aktiv</dd>"));
  EXPECT_THAT(html, HasSubstr("Übergabe- und Rückgabewert"));
}

TEST(Report, SaysWhereTheModuleHasNoProcedure) {
  support::FormulaProject project;
  Fill(project);
  project.PutCode("CPump", "");
  project.open.emplace(project.system);
  EXPECT_THAT(MakeReportOf(project), HasSubstr("<p class=\"none\">The module"));
}

TEST(Report, OfAnEmptyProjectSaysSo) {
  support::FormulaProject project;
  const std::string html = MakeReportOf(project);
  EXPECT_THAT(html, HasSubstr("The project has no formulas yet."));
  EXPECT_THAT(html, HasSubstr("The project has no aliases yet."));
  EXPECT_THAT(html, Not(HasSubstr("#unused")));
}

TEST(Html, HighlightsWordsTextsAndComments) {
  struct Case {
    const char* code;
    const char* html;
  };
  const Case cases[] = {
      {"If a Then b = \"x\" ' end\r\n",
       "<b>If</b> a <b>Then</b> b = <q>&quot;x&quot;</q> <i>&#39; end</i>\n"},
      {"s = \"it's <b>\"", "s = <q>&quot;it&#39;s &lt;b&gt;&quot;</q>\n"},
      {"s = \"a\"\"b\" ' c", "s = <q>&quot;a&quot;</q><q>&quot;b&quot;</q> <i>&#39; c</i>\n"},
      {"Rem one _\ntwo", "<i>Rem one _</i>\n<i>two</i>\n"},
      {"s = \"open", "s = <q>&quot;open</q>\n"},
  };
  for (const Case& c : cases) EXPECT_EQ(HighlightVisualBasic(c.code), c.html) << c.code;
}

}  // namespace
}  // namespace project
