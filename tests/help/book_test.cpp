// SPDX-License-Identifier: MIT
#include "handbook/book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "handbook/page_text.h"
#include "platform/text.h"

namespace handbook {
namespace {

TEST(PageText, IsWhatAReaderSees) {
  struct Case {
    const char* html;
    const char* text;
  };
  const Case cases[] = {
      {"<head><title>No</title></head><body><h1>A</h1><p>b\n  c</p></body>", "A b c"},
      {"<body>a <code>x</code>, <b>y</b>.</body>", "a x, y."},
      {"<tr><th>a</th><td>b</td></tr>", "a b"},
      {"a &lt;b&gt; &amp;lt; &quot;c&quot;&nbsp;d & e", "a <b> &lt; \"c\" d & e"},
      {"a<br>b <", "a b"},
      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(TextOfPage(c.html), c.text) << c.html;
  EXPECT_EQ(TextOfPage(EscapeHtml("<a href=\"x\">&amp;")), "<a href=\"x\">&amp;");
}

std::string FirstFile(const std::vector<Hit>& hits) {
  return hits.empty() ? "" : std::string(hits.front().topic->file);
}

TEST(Search, PutsThePageAboutTheWordFirst) {
  const Book german(texts::Language::kGerman), english(texts::Language::kEnglish);
  EXPECT_EQ(FirstFile(german.Search("SICHERUNG")), "backups.html");
  EXPECT_EQ(FirstFile(german.Search("übergabewert")), "fparameter.html");
  EXPECT_EQ(FirstFile(german.Search("ÜBERGABEWERT")), "fparameter.html");
  EXPECT_EQ(FirstFile(german.Search("  kennwort   access ")), "refusals.html");
  EXPECT_EQ(FirstFile(english.Search("scan time")), "ffunction.html");
  EXPECT_EQ(FirstFile(english.Search("recover --discard")), "recovery.html");
}

TEST(Search, WantsAllWords) {
  const Book english(texts::Language::kEnglish);
  EXPECT_FALSE(english.Search("formula").empty());
  EXPECT_TRUE(english.Search("formula nonsensical").empty());
  EXPECT_TRUE(english.Search("").empty());
  EXPECT_TRUE(english.Search("  ").empty());
  EXPECT_TRUE(english.Search("<b>").empty());
}

TEST(Search, ShowsTheWordInWholeCharacters) {
  const Book german(texts::Language::kGerman);
  for (const char* word : {"ä", "ü", "journal", "–", "der"}) {
    for (const Hit& hit : german.Search(word)) {
      SCOPED_TRACE(std::string(word) + " " + hit.excerpt);
      EXPECT_TRUE(platform::IsValidUtf8(hit.excerpt));
      EXPECT_LE(hit.excerpt.size(), 300u);
      EXPECT_NE(platform::FoldCase(hit.excerpt).find(word), std::string::npos);
    }
  }
}

TEST(Index, IsInAlphabeticalOrderAndFiltered) {
  const Book german(texts::Language::kGerman);
  const auto all = german.Index("");
  const auto position = [&](std::string_view word) {
    return std::find_if(all.begin(), all.end(), [&](const auto& e) { return e.word == word; }) -
           all.begin();
  };
  EXPECT_LT(position("Übergabewert"), position("verschlüsselt"));
  EXPECT_LT(position("Absturz"), position("Zyklus"));
  const auto some = german.Index("SCHLÜSS");
  ASSERT_EQ(some.size(), 1u);
  EXPECT_EQ(some.front().word, "verschlüsselt");
  EXPECT_EQ(some.front().topic->file, "refusals.html");
  EXPECT_TRUE(german.Index("xyzzy").empty());
}

}  // namespace
}  // namespace handbook
