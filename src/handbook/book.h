// SPDX-License-Identifier: MIT
// The help in one language: its pages in the order of the contents, the index and the search.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "texts/text_table.h"

namespace handbook {

// One page.
struct Topic {
  std::int32_t number;
  std::string_view file;  // "start.html"; every language has the same files
  int level;              // 0, or 1 for a page below the one before it of level 0
  std::string_view title;
  std::vector<std::string_view> words;  // of the index
  std::string_view html;
};

struct IndexEntry {
  std::string_view word;
  const Topic* topic;
};

struct Hit {
  const Topic* topic;
  std::string excerpt;  // what stands around the first of the words, as plain text
};

class Book {
 public:
  explicit Book(texts::Language language);
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;

  const std::vector<Topic>& topics() const { return topics_; }
  // Null when there is none.
  const Topic* FindNumber(std::int32_t number) const;
  const Topic* FindFile(std::string_view file) const;

  // Words of the index that contain the text, in alphabetical order; letter case does not count.
  std::vector<IndexEntry> Index(std::string_view part) const;

  // Pages that contain all words of the query, the best first: a word in the title or the index
  // counts more than one in the text.
  std::vector<Hit> Search(std::string_view query) const;

 private:
  struct Page {
    std::string text;
    std::string folded;  // the text in lower case, of the same length
  };

  std::vector<Topic> topics_;
  std::vector<Page> pages_;  // of the topics
};

}  // namespace handbook
