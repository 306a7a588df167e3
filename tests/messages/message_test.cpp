// SPDX-License-Identifier: MIT
#include "messages/message.h"

#include <gtest/gtest.h>

#include "texts/text_table.h"

namespace messages {
namespace {

constexpr Pattern kCannot{TextNumber{2012}, "<Path> cannot be read"};
constexpr Pattern kFailure{messages::kNoText, "<What>: <Cause>. <Remedy>"};
constexpr Pattern kUnknown{TextNumber{9999}, "Something <New> happened"};

TEST(Message, SaysItselfInBothLanguages) {
  const texts::TextTable german(texts::Language::kGerman);
  const texts::TextTable english(texts::Language::kEnglish);
  struct Case {
    Message message;
    const char* english;
    const char* german;
  };
  const Message cannot(kCannot, {{"<Path>", "/a<Path>/<Cause>"}});
  const Case cases[] = {
      {{}, "", ""},
      {Message::Verbatim("<Path>"), "<Path>", "<Path>"},
      {cannot, "/a<Path>/<Cause> cannot be read", "/a<Path>/<Cause> lässt sich nicht lesen"},
      {Message(kFailure, {{"<What>", cannot}, {"<Cause>", "x < y"}, {"<Remedy>", Message()}}),
       "/a<Path>/<Cause> cannot be read: x < y. ",
       "/a<Path>/<Cause> lässt sich nicht lesen: x < y. "},
      {Message(kUnknown, {{"<Old>", 1}}), "Something <New> happened", "Something <New> happened"},
      {Joined(Message(kUnknown, {{"<New>", -7}}), cannot),
       "Something -7 happened /a<Path>/<Cause> cannot be read",
       "Something -7 happened /a<Path>/<Cause> lässt sich nicht lesen"},
      {Joined({}, cannot), "/a<Path>/<Cause> cannot be read",
       "/a<Path>/<Cause> lässt sich nicht lesen"},
      {Message(kCannot, {{"<Path>", "A\r\nB"}}), "A  B cannot be read",
       "A  B lässt sich nicht lesen"},
      {Message::Verbatim("one\ntwo"), "one\ntwo", "one\ntwo"},
      {Message({TextNumber{10}}), "", "OK"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.message.English(), c.english);
    EXPECT_EQ(german.Sentence(c.message), c.german);
  }
  EXPECT_EQ(english.Sentence(Message({TextNumber{551}})),
            "Data Storage  of Arguments Dialog failed");
  EXPECT_EQ(english.Sentence(Message({TextNumber{407}})), "Resource 407 not found");
  EXPECT_EQ(ToInt(cannot.number()), 2012);
  EXPECT_EQ(cannot.Text("<Path>"), "/a<Path>/<Cause>");
}

}  // namespace
}  // namespace messages
