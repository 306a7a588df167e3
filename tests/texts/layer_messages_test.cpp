// SPDX-License-Identifier: MIT
// The layers below name their messages in English, the text table has the German sentences.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "com/provider_messages.h"
#include "files/messages.h"
#include "jet/messages.h"
#include "recordset/messages.h"
#include "texts/rows.h"
#include "vbfiles/messages.h"

namespace texts {
namespace {

struct Layer {
  std::span<const messages::Pattern> messages;
  std::span<const Row> rows;
};

std::vector<Layer> Layers() {
  return {{files::Messages(), FileMessageRows()},
          {jet::Messages(), DatabaseMessageRows()},
          {recordset::Messages(), RecordsetMessageRows()},
          {vbfiles::Messages(), SourceMessageRows()},
          {com::ProviderMessages(), ProviderRows()}};
}

std::multiset<std::string> Placeholders(const std::string& text) {
  static const std::regex pattern("<[A-Za-z]+>");
  return {std::sregex_token_iterator(text.begin(), text.end(), pattern), {}};
}

TEST(LayerMessages, HaveEachItsGermanRow) {
  for (const Layer& layer : Layers()) {
    std::map<messages::TextNumber, std::string> german;
    for (const Row& row : layer.rows) german.emplace(row.number, row.german);
    EXPECT_GT(layer.messages.size(), 5u);
    for (const messages::Pattern& pattern : layer.messages) {
      const std::string english(pattern.english);
      SCOPED_TRACE(std::to_string(ToInt(pattern.number)) + " " + english);
      const auto row = german.find(pattern.number);
      ASSERT_NE(row, german.end()) << "no German row, or two messages of this number";
      EXPECT_FALSE(english.empty());
      EXPECT_EQ(Placeholders(row->second), Placeholders(english));
      EXPECT_EQ(row->second.ends_with('.'), english.ends_with('.'));
      german.erase(row);
    }
    for (const auto& [number, text] : german)
      ADD_FAILURE() << ToInt(number) << " has no message: " << text;
  }
}

}  // namespace
}  // namespace texts
