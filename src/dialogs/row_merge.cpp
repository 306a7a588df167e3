// SPDX-License-Identifier: MIT
#include "dialogs/row_merge.h"

#include "messages/text_number.h"
#include "store/rules.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kTextRowChanged{4860};
constexpr messages::TextNumber kTextMember{4861};
constexpr messages::TextNumber kTextTakeStored{4862};
constexpr messages::TextNumber kTextTakeMine{4863};
constexpr messages::TextNumber kTextOn{4864};
constexpr messages::TextNumber kTextOff{4865};

// Captions of the fields.
constexpr messages::TextNumber kName{302};
constexpr messages::TextNumber kClass{303};
constexpr messages::TextNumber kType{304};
constexpr messages::TextNumber kScanTime{305};
constexpr messages::TextNumber kComment{306};
constexpr messages::TextNumber kEnabled{307};
constexpr messages::TextNumber kItem{401};
constexpr messages::TextNumber kAlias{402};
constexpr messages::TextNumber kIn{502};
constexpr messages::TextNumber kOut{503};

std::string AsItIs(const std::string& text) { return text; }

}  // namespace

void RowMerge::Note(messages::TextNumber name, const std::string& before, const std::string& theirs,
                    const std::string& mine) {
  if (theirs == before || mine == before || mine == theirs) return;
  conflicts_ +=
      (conflicts_.empty() ? "" : "\n") +
      context_.texts.Text(
          kTextMember, {{"<Member>", context_.Text(name)}, {"<Theirs>", theirs}, {"<Mine>", mine}});
}

template <class Value, class Show>
void RowMerge::JoinMember(messages::TextNumber name, const Value& before, const Value& theirs,
                          Value& mine, Show show) {
  if (mine == before) {
    mine = theirs;
  } else {
    Note(name, show(before), show(theirs), show(mine));
  }
}

void RowMerge::JoinFlag(messages::TextNumber name, bool before, bool theirs, bool& mine) {
  JoinMember(name, before, theirs, mine,
             [&](bool value) { return context_.Text(value ? kTextOn : kTextOff); });
}

void RowMerge::Join(const store::FormulaValues& before, const store::FormulaValues& theirs,
                    store::FormulaValues& mine) {
  JoinMember(kName, before.name, theirs.name, mine.name, AsItIs);
  JoinMember(kClass, before.prog_id, theirs.prog_id, mine.prog_id, AsItIs);
  JoinMember(kType, before.type, theirs.type, mine.type, [&](std::int32_t type) {
    return store::IsCallType(type) ? context_.Text(store::kFirstCallTypeText + type)
                                   : std::to_string(type);
  });
  JoinMember(kScanTime, before.scan_time, theirs.scan_time, mine.scan_time,
             [](std::int32_t time) { return std::to_string(time); });
  JoinFlag(kEnabled, before.enabled, theirs.enabled, mine.enabled);
  JoinMember(kComment, before.comment, theirs.comment, mine.comment, AsItIs);
}

void RowMerge::Join(const store::AliasValues& before, const store::AliasValues& theirs,
                    store::AliasValues& mine) {
  JoinMember(kItem, before.item_id, theirs.item_id, mine.item_id, AsItIs);
  JoinMember(kAlias, before.vb_alias, theirs.vb_alias, mine.vb_alias, AsItIs);
}

void RowMerge::Join(const store::ArgumentValues& before, const store::ArgumentValues& theirs,
                    store::ArgumentValues& mine) {
  JoinMember(kAlias, before.alias_id, theirs.alias_id, mine.alias_id, [&](std::int32_t id) {
    const auto alias = context_.operations.FindAlias(id);
    return alias ? alias->vb_alias : std::to_string(id);
  });
  JoinFlag(kIn, before.in, theirs.in, mine.in);
  JoinFlag(kOut, before.out, theirs.out, mine.out);
}

RowAnswer RowMerge::Ask(const std::string& row, bool may_wait) const {
  using platform::MessageResult;
  if (conflicts_.empty()) return RowAnswer::kMine;
  platform::MessageBox box;
  box.prompt = context_.texts.Text(kTextRowChanged, {{"<Name>", row}});
  box.detail = conflicts_;
  box.buttons =
      may_wait ? platform::MessageButtons::kYesNoCancel : platform::MessageButtons::kYesNo;
  box.default_button = may_wait ? MessageResult::kCancel : MessageResult::kYes;
  box.icon = platform::MessageIcon::kQuestion;
  box.yes = context_.Text(kTextTakeStored);
  box.no = context_.Text(kTextTakeMine);
  switch (context_.messages.Show(box)) {
    case MessageResult::kYes:
      return RowAnswer::kTheirs;
    case MessageResult::kNo:
      return RowAnswer::kMine;
    default:
      return RowAnswer::kUndecided;
  }
}

}  // namespace dialogs
