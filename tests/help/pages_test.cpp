// SPDX-License-Identifier: MIT
// The pages of the help as a reader finds them: nothing empty, no dead link, both languages alike,
// and the words of the windows spelled as the windows spell them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "dialogs/dialog_form.h"
#include "editor/node_key.h"
#include "handbook/book.h"
#include "handbook/embedded_file.h"
#include "handbook/page_text.h"
#include "texts/rows.h"

namespace handbook {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

constexpr texts::Language kLanguages[] = {texts::Language::kGerman, texts::Language::kEnglish};

std::string Folder(texts::Language language) {
  return language == texts::Language::kGerman ? "de" : "en";
}

// What the first group of the pattern matches, in the order of the page.
std::vector<std::string> Matches(std::string_view html, const char* pattern, int group = 1) {
  const std::regex regex(pattern);
  const std::string page(html);
  return {std::sregex_token_iterator(page.begin(), page.end(), regex, group), {}};
}

class Pages : public testing::TestWithParam<texts::Language> {
 protected:
  const Book book_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Languages, Pages, testing::ValuesIn(kLanguages),
                         [](const auto& test) { return Folder(test.param); });

TEST_P(Pages, HaveTitleTextAndIndexWords) {
  ASSERT_THAT(book_.topics(), Not(IsEmpty()));
  EXPECT_EQ(book_.topics().front().level, 0);
  for (const Topic& topic : book_.topics()) {
    SCOPED_TRACE(topic.file);
    const std::string title(topic.title);
    EXPECT_THAT(Matches(topic.html, "<title>([^<]*)</title>"), testing::ElementsAre(title));
    EXPECT_THAT(Matches(topic.html, "<h1>([^<]*)</h1>"), testing::ElementsAre(title));
    EXPECT_THAT(Matches(topic.html, "<html lang=\"(..)\">"),
                testing::ElementsAre(Folder(GetParam())));
    EXPECT_GE(TextOfPage(topic.html).size(), title.size() + 300) << "hardly any text";
    EXPECT_THAT(topic.words, Not(IsEmpty()));
    EXPECT_TRUE(topic.level == 0 || topic.level == 1);
  }
}

TEST_P(Pages, AreAllInTheContentsOnce) {
  std::set<std::int32_t> numbers;
  std::set<std::string> listed;
  for (const Topic& topic : book_.topics()) {
    EXPECT_TRUE(numbers.insert(topic.number).second) << topic.number;
    listed.insert(Folder(GetParam()) + "/" + std::string(topic.file));
  }
  std::set<std::string> present;
  for (const EmbeddedFile& file : EmbeddedFiles()) {
    if (file.name.starts_with(Folder(GetParam()) + "/")) present.emplace(file.name);
  }
  EXPECT_EQ(listed, present);
}

TEST_P(Pages, ExistForEveryTopicOfThePrograms) {
  for (const char* key : {"FOR0", "FORF0", "FORF12", "FORA0"}) {
    EXPECT_TRUE(book_.FindNumber(editor::HelpTopic(key))) << key;
  }
  for (const std::int32_t topic :
       {dialogs::kEditorHelpTopic, dialogs::kOptionsHelpTopic, dialogs::kFormulaHelpTopic,
        dialogs::kArgumentHelpTopic, dialogs::kAliasHelpTopic, dialogs::kChooseAliasHelpTopic}) {
    EXPECT_TRUE(book_.FindNumber(topic)) << topic;
  }
}

TEST_P(Pages, LinkToPagesAndPlacesThatExist) {
  for (const Topic& topic : book_.topics()) {
    for (const std::string& link : Matches(topic.html, "href=\"([^\"]*)\"")) {
      SCOPED_TRACE(std::string(topic.file) + " -> " + link);
      const auto mark = link.find('#');
      const std::string file = link.substr(0, mark);
      const Topic* target = file.empty() ? &topic : book_.FindFile(file);
      ASSERT_TRUE(target);
      if (mark == std::string::npos) continue;
      EXPECT_THAT(Matches(target->html, "name=\"([^\"]*)\""), Contains(link.substr(mark + 1)));
    }
  }
}

TEST_P(Pages, ShowPicturesThatExistAreDescribedAndSmall) {
  constexpr std::size_t kMaxBytes = std::size_t{200} * 1024;
  for (const Topic& topic : book_.topics()) {
    for (const std::string& picture : Matches(topic.html, "<img([^>]*)>")) {
      SCOPED_TRACE(std::string(topic.file) + ": " + picture);
      EXPECT_THAT(Matches(picture, "alt=\"([^\"]+)\""), Not(IsEmpty()));
      const auto source = Matches(picture, "src=\"\\.\\./([^\"]*)\"");
      ASSERT_EQ(source.size(), 1u);
      const EmbeddedFile* file = FindEmbeddedFile(source.front());
      ASSERT_TRUE(file);
      EXPECT_TRUE(file->bytes.starts_with("\x89PNG"));
      EXPECT_LE(file->bytes.size(), kMaxBytes);
    }
  }
}

// Elements are closed in order, and only those are used that the window of the help knows.
TEST_P(Pages, AreWellFormed) {
  const std::set<std::string> known = {"html", "head", "title", "body", "h1", "h2", "p",
                                       "ul",   "ol",   "li",    "a",    "b",  "em", "code",
                                       "kbd",  "pre",  "table", "tr",   "th", "td"};
  for (const Topic& topic : book_.topics()) {
    SCOPED_TRACE(topic.file);
    std::vector<std::string> open;
    for (const std::string& tag : Matches(topic.html, "<(/?[a-z0-9]+)[^>]*>")) {
      if (tag == "meta" || tag == "img" || tag == "br") continue;
      if (tag.front() != '/') {
        EXPECT_TRUE(known.contains(tag)) << tag;
        open.push_back(tag);
        continue;
      }
      ASSERT_THAT(open, Not(IsEmpty())) << tag;
      EXPECT_EQ("/" + open.back(), tag);
      open.pop_back();
    }
    EXPECT_THAT(open, IsEmpty());
  }
}

// A caption as it is seen: without mnemonic; a place for a name stands for anything.
std::set<std::string> Captions(texts::Language language) {
  std::set<std::string> captions;
  for (const texts::Area& area : texts::Areas()) {
    for (const texts::Row& row : area.rows) {
      const char* text = language == texts::Language::kGerman ? row.german : row.english;
      if (!text) continue;
      std::string caption = text;
      std::erase(caption, '&');
      captions.insert(caption);
    }
  }
  return captions;
}

TEST_P(Pages, NameControlsAsTheyAreCalled) {
  const std::set<std::string> captions = Captions(GetParam());
  for (const Topic& topic : book_.topics()) {
    for (const std::string& element : Matches(topic.html, "<b>([^<]*)</b>")) {
      EXPECT_TRUE(captions.contains(TextOfPage(element))) << topic.file << ": " << element;
    }
  }
}

// The skeleton of a page: headings, tables, steps, links and pictures, without their text.
std::vector<std::string> Skeleton(std::string_view html) {
  return Matches(html, "<(h1|h2|p|table|tr|th|td|ol|ul|li|pre|kbd|a href=\"[^\"]*\"|img)[ >]");
}

TEST(Languages, HaveTheSamePagesWithTheSameStructure) {
  const Book german(texts::Language::kGerman), english(texts::Language::kEnglish);
  for (const Topic& topic : german.topics()) {
    SCOPED_TRACE(topic.file);
    const Topic* other = english.FindNumber(topic.number);
    ASSERT_TRUE(other);
    EXPECT_EQ(Skeleton(topic.html), Skeleton(other->html));
    EXPECT_NE(TextOfPage(topic.html), TextOfPage(other->html)) << "not translated";
  }
}

}  // namespace
}  // namespace handbook
