// SPDX-License-Identifier: MIT
#include "dialogs/fchoose_alias.h"

#include <algorithm>
#include <utility>

#include "dialogs/argument_dialogs.h"
#include "dialogs/list_texts.h"
#include "forms/list_search.h"
#include "messages/text_number.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kAliasColumn{102};
constexpr messages::TextNumber kItemColumn{101};
constexpr double kColumnWidth = 3000;
constexpr messages::TextNumber kChooseAliasReason{1603};
constexpr messages::TextNumber kNoAliases{1609};
constexpr messages::TextNumber kNothingFound{1612};
constexpr messages::TextNumber kAliases{1634};
constexpr messages::TextNumber kType{4381};
constexpr messages::TextNumber kComment{4382};
constexpr double kTypeWidth = 1200, kUsedWidth = 2000;

// The aliases with what is known of their items, and a word at those that are used already.
class SeveralRows : public forms::RowSource {
 public:
  SeveralRows(std::shared_ptr<AliasTable> table, const SeveralAliases& several, std::string used)
      : aliases_(std::move(table), AliasRows::Columns::kAliasItem),
        several_(several),
        used_(std::move(used)) {}

  std::size_t RowCount() override { return aliases_.RowCount(); }
  std::vector<forms::Row> Rows(std::size_t first, std::size_t count) override {
    std::vector<forms::Row> rows = aliases_.Rows(first, count);
    for (forms::Row& row : rows) {
      const auto note = several_.notes ? several_.notes->NoteOf(row.cells[1].ToText()) : ItemNote();
      const bool used = several_.used.contains(static_cast<std::int32_t>(row.id));
      row.cells.emplace_back(note.type);
      row.cells.emplace_back(used ? used_ : std::string());
      row.cells.emplace_back(note.comment);
    }
    return rows;
  }
  std::optional<std::size_t> IndexOf(std::int64_t id) override { return aliases_.IndexOf(id); }

 private:
  AliasRows aliases_;
  const SeveralAliases& several_;
  const std::string used_;
};

}  // namespace

FChooseAlias::FChooseAlias(const DialogContext& context)
    : DialogForm("FChooseAlias", context, kChooseAliasHelpTopic) {
  SetTag("C1610");
  lblSearch.SetTag("C1611");
  SetResizable(true);
  SetMinimumSize(6000, 5000);
  lvwAlias.SetColumns({{Text(kAliasColumn), kColumnWidth}, {Text(kItemColumn), kColumnWidth}});
  lvwAlias.SetMultiSelect(false);
  lvwAlias.SetAccessibleName(Text(kAliases));
  lvwAlias.SetLayout({.stretch = true, .min_chars = 60, .min_lines = 15});
  lvwAlias.SetEmptyText(Text(kNoAliases));
  context.aliases->Requery();
  lvwAlias.SetRowSource(
      std::make_shared<AliasRows>(context.aliases, AliasRows::Columns::kAliasItem));
  cmdOk.SetDisabledReason(Text(kChooseAliasReason));
  cmdOk.SetEnabled(false);
  for (forms::Control* several : std::initializer_list<forms::Control*>{&cmdNew, &chkIn, &chkOut})
    several->SetVisible(false);
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  lvwAlias.on_current_row = [this] { cmdOk.SetEnabled(lvwAlias.CurrentId().has_value()); };
  lvwAlias.on_double_click = [this] { Accept(); };
  lvwAlias.on_key_down = [this](forms::KeyEvent& event) { forms::FindBy(txtSearch, event); };
  txtSearch.on_change = [this] { OnSearch(); };
  txtSearch.on_key_down = [this](forms::KeyEvent& event) { OnSearchKey(event); };
}

FChooseAlias::FChooseAlias(const DialogContext& context, SeveralAliases several)
    : FChooseAlias(context) {
  several_ = std::move(several);
  SetTag("");
  SetCaption(several_.caption);
  lvwAlias.SetColumns({{Text(kAliasColumn), kColumnWidth},
                       {Text(kItemColumn), kColumnWidth},
                       {Text(kType), kTypeWidth},
                       {Text(kTextUsedAlready), kUsedWidth},
                       {Text(kComment), kColumnWidth}});
  lvwAlias.SetMultiSelect(true);
  lvwAlias.on_key_down = [this](forms::KeyEvent& event) {
    event.handled = event.key_code == forms::kKeyReturn && event.shift == 0;
    if (event.handled) return Accept();  // the native list would select one row only
    forms::FindBy(txtSearch, event);
  };
  lvwAlias.SetLayout({.stretch = true, .min_chars = 100, .min_lines = 15});
  lvwAlias.SetRowSource(std::make_shared<SeveralRows>(context.aliases, several_, Text(kTextYes)));
  for (forms::Control* own : std::initializer_list<forms::Control*>{&cmdNew, &chkIn, &chkOut})
    own->SetVisible(true);
  cmdNew.SetCaption(Text(kTextNewAliasButton));
  chkIn.SetTag("C502");
  chkOut.SetTag("C503");
  chkIn.SetChecked(true);
  cmdNew.on_click = [this] { MakeAlias(); };
  cmdOk.SetDisabledReason(Text(kTextSelectNewAliases));
  lvwAlias.on_selection =
      lvwAlias.on_current_row = [this] { cmdOk.SetEnabled(!NewOnes().empty()); };
}

std::vector<std::int32_t> FChooseAlias::NewOnes() const {
  std::vector<std::int32_t> ids;
  for (const std::int64_t id : lvwAlias.SelectedIds()) {
    if (!several_.used.contains(static_cast<std::int32_t>(id)))
      ids.push_back(static_cast<std::int32_t>(id));
  }
  return ids;
}

std::vector<std::int32_t> FChooseAlias::ChooseSeveral() {
  return Run() ? NewOnes() : std::vector<std::int32_t>();
}

void FChooseAlias::MakeAlias() {
  const std::int32_t id = AddAlias(context());
  if (id == 0) return;
  context().aliases->Requery();
  txtSearch.SetText("");
  lvwAlias.Rebind();
  lvwAlias.SetCurrentId(id);
  lvwAlias.SetFocus();
}

std::optional<std::int32_t> FChooseAlias::Choose(std::int32_t current) {
  if (current != 0) lvwAlias.SetCurrentId(current);
  if (!Run() || !lvwAlias.CurrentId()) return std::nullopt;
  return static_cast<std::int32_t>(*lvwAlias.CurrentId());
}

void FChooseAlias::Accept() {
  if (lvwAlias.MultiSelect() ? !NewOnes().empty() : lvwAlias.CurrentId().has_value()) Confirm();
}

void FChooseAlias::OnSearch() {
  lvwAlias.SetFilter(txtSearch.Text());
  lvwAlias.SetEmptyText(txtSearch.Text().empty()
                            ? Text(kNoAliases)
                            : context().texts.Text(kNothingFound, {{"<Text>", txtSearch.Text()}}));
  if (!lvwAlias.CurrentId() && lvwAlias.RowCount() > 0) lvwAlias.SetCurrentId(lvwAlias.IdAt(0));
}

// Up and Down move through the list while the search field has the keyboard.
void FChooseAlias::OnSearchKey(forms::KeyEvent& event) {
  const bool up = event.key_code == forms::kKeyUp;
  if (event.shift != 0 || (!up && event.key_code != forms::kKeyDown)) return;
  event.handled = true;
  const std::size_t count = lvwAlias.RowCount();
  if (count == 0) return;
  const std::size_t position = lvwAlias.CurrentPosition().value_or(0);
  const std::size_t next =
      up ? position - std::min<std::size_t>(position, 1) : std::min(position + 1, count - 1);
  lvwAlias.SetCurrentId(lvwAlias.IdAt(next));
}

}  // namespace dialogs
