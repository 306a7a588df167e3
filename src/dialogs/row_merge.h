// SPDX-License-Identifier: MIT
// A row that somebody else changed while the user changed it, too.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/dialog_context.h"
#include "messages/text_number.h"
#include "platform/error.h"
#include "store/formula_records.h"

namespace dialogs {

enum class RowAnswer { kMine, kTheirs, kUndecided };

// Joins what the user made of a row with what somebody else stored meanwhile: a member that only
// one of them changed is theirs; where both did, the user is asked.
class RowMerge {
 public:
  explicit RowMerge(const DialogContext& context) : context_(context) {}

  // `before` is what the user was shown, `mine` what they want, `theirs` what is stored now. `mine`
  // takes over what only `theirs` has changed.
  void Join(const store::FormulaValues& before, const store::FormulaValues& theirs,
            store::FormulaValues& mine);
  void Join(const store::AliasValues& before, const store::AliasValues& theirs,
            store::AliasValues& mine);
  void Join(const store::ArgumentValues& before, const store::ArgumentValues& theirs,
            store::ArgumentValues& mine);
  // One member, named by its text, in the words that the user reads.
  void Note(messages::TextNumber name, const std::string& before, const std::string& theirs,
            const std::string& mine);

  // Shows what both changed, and asks whose is to stand; `row` names it. kMine when there is
  // nothing to ask. Unless the user may wait one of both is chosen.
  RowAnswer Ask(const std::string& row, bool may_wait = true) const;

 private:
  template <class Value, class Show>
  void JoinMember(messages::TextNumber name, const Value& before, const Value& theirs, Value& mine,
                  Show show);
  void JoinFlag(messages::TextNumber name, bool before, bool theirs, bool& mine);

  const DialogContext& context_;
  std::string conflicts_;  // a line each
};

inline const std::string& NameOf(const store::FormulaRecord& row) { return row.name; }
inline const std::string& NameOf(const store::AliasRecord& row) { return row.vb_alias; }
inline const std::string& NameOf(const store::ArgumentRecord& row) { return row.vb_alias; }

// For a dialog that was confirmed: joins what the user wants with the row that `find` reads anew. A
// row that is gone or cannot be read is left to the operation, which says so. False when the dialog
// goes on; where the user took what is stored that is `shown` now, and `load` is called.
template <class Record, class Values, class Find, class Load>
bool JoinWithStored(const DialogContext& context, Record& shown, Values& mine, Find find,
                    Load load) {
  std::optional<Record> stored;
  try {
    stored = find();
  } catch (const platform::Error&) {
  }
  if (!stored) return true;
  RowMerge merge(context);
  merge.Join(shown, *stored, mine);
  const RowAnswer answer = merge.Ask(NameOf(*stored));
  if (answer == RowAnswer::kTheirs) load(shown = *stored);
  return answer == RowAnswer::kMine;
}

}  // namespace dialogs
