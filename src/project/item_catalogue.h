// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace project {

// The process variables of a plant: an item catalogue as items.csv holds it, with the header
// "item,type,comment", or with semicolons or tabs as the first line has them. The type is a variant
// type code or its Visual Basic name. The text is UTF-8 (a mark is allowed) or, when it is not
// valid UTF-8, Windows-1252.
//
// A million items are held in less than three times the file's size: the file's text, twelve
// bytes an item, and the folded names that are searched.
class ItemCatalogue {
 public:
  struct Item {
    std::string_view name;
    std::int32_t type = kVariant;  // also when the line gives none
    std::string_view comment;
  };

  // A line that was skipped. Of two items of one name the first counts; that is no problem.
  struct Problem {
    enum class Kind { kNoName, kUnknownType, kOpenQuote, kTooLong };
    std::size_t line = 0;  // from 1
    Kind kind = Kind::kNoName;
    std::string text;  // what stands there, shortened
  };

  static constexpr std::int32_t kVariant = 12;
  static constexpr std::size_t kMaxProblems = 100;  // more are only counted

  ItemCatalogue() = default;
  // Takes the bytes of the file. A header line is not required.
  static ItemCatalogue Parse(std::string bytes);

  std::size_t size() const { return items_.size(); }
  Item At(std::size_t index) const;
  // Index of the item of that name, without regard to case.
  std::optional<std::size_t> Find(std::string_view name) const;
  // Its type; nothing for an item that is not there or has none.
  std::optional<std::int32_t> TypeOf(std::string_view name) const;

  // Indexes, in file order, of the items whose name holds the text, without regard to case; at
  // most `limit`. All items for "".
  std::vector<std::uint32_t> Search(std::string_view text, std::size_t limit) const;

  const std::vector<Problem>& problems() const { return problems_; }
  std::size_t problem_count() const { return problem_count_; }

 private:
  struct Entry {
    std::uint32_t offset;  // of the name in text_; the comment follows it
    std::uint16_t name_length;
    std::uint16_t comment_length;
    std::uint8_t type;
  };

  void ReadLine(std::size_t line, std::size_t begin, std::size_t end, char separator);
  void Report(std::size_t line, Problem::Kind kind, std::string_view text);
  void IndexNames();
  std::string_view Folded(std::size_t index) const;

  std::string text_;    // names and comments, UTF-8
  std::string folded_;  // the names in lower case, each ended by a line feed
  std::vector<Entry> items_;
  std::vector<std::uint32_t> folded_offsets_;
  std::vector<std::uint32_t> by_name_;  // indexes in the order of the folded names
  std::vector<Problem> problems_;
  std::size_t problem_count_ = 0;
};

// The variant type code that a name such as "Double" or a decimal number stands for, 0 for the
// empty text; nothing for an unknown one.
std::optional<std::int32_t> ParseItemType(std::string_view text);

}  // namespace project
