// SPDX-License-Identifier: MIT
// What an import would do to a project: shown before it is done, then carried out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "exchange/contents.h"
#include "messages/message.h"
#include "store/formula_records.h"
#include "store/operations.h"

namespace exchange {

// What becomes of a row whose name the project has with other values. One that is there with the
// same values is left alone in any case.
enum class ExistingPolicy {
  kError,   // the row is refused
  kSkip,    // what is there stays
  kUpdate,  // it takes the row's values
  kRename,  // the row comes under the next free name
};

struct ImportOptions {
  ExistingPolicy existing = ExistingPolicy::kError;
  // An argument whose alias is missing gets one, with its name as the item unless it has one.
  bool create_aliases = false;
  // Class of formulas that name none; where it is empty too, the only one there is.
  std::string prog_id = {};
  // No code is looked at.
  bool with_rows_only = false;
  // Told now and then how many rows are planned; what it raises ends the planning.
  std::function<void(std::size_t done, std::size_t total)> progress = {};
};

enum class RowAction : std::uint8_t { kNew, kChanged, kUnchanged, kRefused };

struct PlannedAlias {
  RowAction action = RowAction::kUnchanged;
  std::int32_t id = 0;    // of the one that is there, and of a new one once it is added
  std::string_view item;  // texts of the contents or the plan
  std::string_view alias;
  messages::Message reason;  // of a refusal, or what else is to be known
  Place place;
  bool listed = true;  // a row of the list, or created; otherwise arguments use it
};

// The aliases of a plan in little room: most are as their line has them, and few have a reason.
class PlannedAliases {
 public:
  PlannedAliases() = default;
  // `list`: the lines that the first of the aliases stand in. They must outlive this.
  explicit PlannedAliases(std::span<const AliasRow> list) : list_(list) {
    lines_.reserve(list.size());
  }

  std::size_t size() const { return lines_.size(); }
  PlannedAlias operator[](std::size_t number) const;
  RowAction ActionOf(std::size_t number) const { return lines_[number].action; }
  bool IsListed(std::size_t number) const { return lines_[number].listed; }
  const Place& PlaceOf(std::size_t number) const { return RowOf(number).place; }
  std::int32_t IdOf(std::size_t number) const { return lines_[number].id; }
  std::string_view NameOf(std::size_t number) const { return RowOf(number).alias; }
  // Its number is one more than that of the last.
  void Add(const PlannedAlias& alias);
  void SetId(std::size_t number, std::int32_t id) { lines_[number].id = id; }

 private:
  struct Line {
    std::int32_t id = 0;
    std::uint32_t own = ArgumentRow::kNoRow;  // its row in own_; none: that of the list
    RowAction action = RowAction::kUnchanged;
    bool listed = true;
  };
  const AliasRow& RowOf(std::size_t number) const {
    const std::uint32_t own = lines_[number].own;
    return own == ArgumentRow::kNoRow ? list_[number] : own_[own];
  }

  std::span<const AliasRow> list_;
  std::vector<Line> lines_;
  std::vector<AliasRow> own_;
  std::unordered_map<std::size_t, messages::Message> reasons_;
};

struct PlannedArgument {
  RowAction action = RowAction::kNew;
  std::int32_t id = 0;                        // of the one that is there
  std::uint32_t alias = ArgumentRow::kNoRow;  // its number in the plan
  bool in = false;
  bool out = false;
  messages::Message reason;  // none where the alias is refused in the same line
  Place place;
};

struct PlannedFormula {
  RowAction action = RowAction::kUnchanged;
  std::int32_t id = 0;
  store::FormulaValues values;
  bool values_differ = false;  // from those of the formula that is there
  std::vector<PlannedArgument> arguments;
  std::vector<store::ArgumentRecord> gone;  // arguments that it loses
  std::string_view code;                    // of a copy
  messages::Message reason;
  Place place;
};

class ImportPlan {
 public:
  struct Counts {
    std::size_t added = 0;
    std::size_t changed = 0;
    std::size_t unchanged = 0;
    std::size_t refused = 0;
    friend bool operator==(const Counts&, const Counts&) = default;
  };
  // Aliases, formulas each with its arguments, and the lines that are refused.
  Counts Count() const;

  // One line of the preview.
  struct Line {
    enum class Kind : std::uint8_t { kAlias, kFormula, kArgument, kUnknown };
    RowAction action = RowAction::kRefused;
    Kind kind = Kind::kUnknown;
    Place place;
    std::string name;    // alias, formula with its class, or argument with its formula
    std::string detail;  // the item; "+" and "-" the arguments that come and go, "~" change
    messages::Message reason;
  };
  // In the order of the file. Lines are made when they are asked for.
  std::size_t LineCount() const { return order_.size(); }
  Line LineAt(std::size_t index) const;
  RowAction ActionAt(std::size_t index) const;
  // The lines that are refused.
  std::vector<Line> Refused() const;
  // Whether rows of formulas come or change; their arguments do not count.
  bool ChangesFormulas() const;

  const PlannedAliases& aliases() const { return aliases_; }
  const std::vector<PlannedFormula>& formulas() const { return formulas_; }
  // The procedure that a formula is to have.
  void SetCode(std::size_t formula, std::string code) {
    formulas_[formula].code = Keep(std::move(code));
  }

 private:
  friend class ImportPlanner;
  friend class ImportRun;

  // What a line of the preview is about: a number within its kind, and within that of a formula
  // the refused argument.
  struct Entry {
    Line::Kind kind;
    std::uint32_t number;
    std::uint32_t argument;
  };
  const Place& PlaceOf(const Entry& entry) const;
  void PutInOrder();
  std::string_view Keep(std::string text) { return kept_.emplace_back(std::move(text)); }

  PlannedAliases aliases_;
  std::vector<PlannedFormula> formulas_;
  std::vector<Problem> problems_;
  std::vector<Entry> order_;
  std::deque<std::string> kept_;
};

// Compares contents with a project; changes nothing. The contents must outlive the plan. Raises
// platform::Error when the database or the code cannot be read.
ImportPlan PlanImport(const Contents& contents, store::Operations& operations,
                      const ImportOptions& options);

// Does what the plan says but for refused lines, as one unit of work; the plan must be of these
// operations and as fresh as the answer is to be. Progress is told row by row. The answer names
// rows only of a dry run.
store::OperationResult Import(ImportPlan& plan, store::Operations& operations,
                              const messages::Message& title,
                              const store::OperationOptions& options);

}  // namespace exchange
