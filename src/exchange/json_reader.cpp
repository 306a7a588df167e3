// SPDX-License-Identifier: MIT
#include "exchange/json_reader.h"

#include <algorithm>

#include "exchange/cell_values.h"
#include "exchange/json_text.h"

namespace exchange {
namespace {

using Kind = JsonText::Kind;

class JsonReader {
 public:
  JsonReader(std::string& text, Contents& contents) : json_(text), contents_(contents) {}

  void Read() {
    if (json_.Peek() == Kind::kArray) {
      ReadRows();
    } else if (json_.Peek() == Kind::kObject) {
      ReadProject();
    } else {
      throw FormatError(json_.Here(), {{kTextJsonNoProject}});
    }
    json_.RequireEnd();
  }

 private:
  // What an object says, whatever it is.
  struct Row {
    bool is_formula = false;
    AliasRow alias;
    FormulaRow formula;
    std::optional<Problem> problem;
  };

  void ReadProject() {
    bool known = false;
    json_.ReadObject([&](std::string_view name) {
      if (name == "aliases" || name == "formulas") {
        known = true;
        ReadRows();
      } else {
        Ignore(name);
      }
    });
    if (!known) throw FormatError({1, 1}, {{kTextJsonNoProject}});
  }

  void ReadRows() {
    json_.ReadArray([&] { ReadRow(); });
  }

  void ReadRow() {
    Row row;
    row.alias.place = row.formula.place = json_.Here();
    json_.ReadObject([&](std::string_view name) { ReadMember(row, name); });
    if (!row.problem && !row.is_formula && row.alias.item.empty()) {
      row.problem = {row.alias.place, {{kTextNoItem}}};
    }
    if (row.problem) {
      contents_.problems.push_back(*row.problem);
    } else if (row.is_formula) {
      contents_.formulas.push_back(std::move(row.formula));
    } else {
      contents_.aliases.push_back(row.alias);
    }
  }

  void ReadMember(Row& row, std::string_view name) {
    FormulaRow& formula = row.formula;
    if (name == "ItemID") {
      row.alias.item = Text(row.problem).value_or("");
    } else if (name == "VBAlias") {
      row.alias.alias = Text(row.problem).value_or("");
    } else if (name == "Name") {
      row.is_formula = true;
      formula.name = Text(row.problem).value_or("");
    } else if (name == "ProgID") {
      formula.prog_id = Text(row.problem).value_or("");
    } else if (name == "Type") {
      formula.type = Number(row.problem);
    } else if (name == "ScanTime") {
      formula.scan_time = Number(row.problem);
    } else if (name == "Enabled") {
      formula.enabled = Truth(row.problem);
    } else if (name == "Comment") {
      formula.comment = Text(row.problem);
    } else if (name == "Code") {
      formula.code = Text(row.problem).value_or("");
    } else if (name == "arguments" && json_.Peek() == Kind::kArray) {
      formula.all_arguments = true;
      json_.ReadArray([&] { ReadArgument(row); });
    } else {
      Ignore(name);
    }
  }

  void ReadArgument(Row& row) {
    ArgumentRow argument;
    argument.place = json_.Here();
    json_.ReadObject([&](std::string_view name) {
      if (name == "VBAlias") {
        argument.alias = Text(row.problem).value_or("");
      } else if (name == "ItemID") {
        argument.item = Text(row.problem).value_or("");
      } else if (name == "In") {
        argument.in = Truth(row.problem);
      } else if (name == "Out") {
        argument.out = Truth(row.problem);
      } else {
        Ignore(name);
      }
    });
    if (argument.alias.empty() && argument.item.empty() && !row.problem) {
      row.problem = {argument.place, {{kTextNoItem}}};
    }
    row.formula.arguments.push_back(argument);
  }

  // A value of the kind that is wanted; nothing for null. Another kind is the row's problem.
  std::optional<std::string_view> Text(std::optional<Problem>& problem) {
    if (json_.Peek() == Kind::kString) return json_.ReadString();
    SkipNull(problem);
    return std::nullopt;
  }
  std::optional<bool> Truth(std::optional<Problem>& problem) {
    const Kind kind = json_.Peek();
    if (kind != Kind::kTrue && kind != Kind::kFalse) {
      SkipNull(problem);
      return std::nullopt;
    }
    json_.Skip();
    return kind == Kind::kTrue;
  }
  std::optional<std::int32_t> Number(std::optional<Problem>& problem) {
    if (json_.Peek() != Kind::kNumber) {
      SkipNull(problem);
      return std::nullopt;
    }
    const Place place = json_.Here();
    const std::string_view text = json_.ReadNumber();
    const auto number = ParseWholeNumber(text);
    if (!number && !problem) problem = {place, {{kTextNoWholeNumber}, {{"<Text>", text}}}};
    return number;
  }
  void SkipNull(std::optional<Problem>& problem) {
    if (json_.Peek() != Kind::kNull && !problem) problem = {json_.Here(), {{kTextJsonType}}};
    json_.Skip();
  }

  void Ignore(std::string_view name) {
    json_.Skip();
    if (name == "Reason" || std::ranges::count(contents_.ignored, name) > 0) return;
    if (contents_.ignored.size() < kMostIgnored) contents_.ignored.emplace_back(name);
  }

  static constexpr std::size_t kMostIgnored = 100;

  JsonText json_;
  Contents& contents_;
};

}  // namespace

void ReadJson(std::string& text, Contents& contents) { JsonReader(text, contents).Read(); }

}  // namespace exchange
