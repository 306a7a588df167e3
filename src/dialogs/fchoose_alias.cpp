// SPDX-License-Identifier: MIT
#include "dialogs/fchoose_alias.h"

#include <algorithm>

#include "forms/list_search.h"

namespace dialogs {

namespace {

constexpr std::int32_t kAliasColumn = 102;
constexpr std::int32_t kItemColumn = 101;
constexpr double kColumnWidth = 3000;
constexpr std::int32_t kChooseAliasReason = 1603;
constexpr std::int32_t kNoAliases = 1609;
constexpr std::int32_t kNothingFound = 1612;
constexpr std::int32_t kAliases = 1634;

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
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  lvwAlias.on_current_row = [this] { cmdOk.SetEnabled(lvwAlias.CurrentId().has_value()); };
  lvwAlias.on_double_click = [this] { Accept(); };
  lvwAlias.on_key_down = [this](forms::KeyEvent& event) { forms::FindBy(txtSearch, event); };
  txtSearch.on_change = [this] { OnSearch(); };
  txtSearch.on_key_down = [this](forms::KeyEvent& event) { OnSearchKey(event); };
}

std::optional<std::int32_t> FChooseAlias::Choose(std::int32_t current) {
  if (current != 0) lvwAlias.SetCurrentId(current);
  if (!Run() || !lvwAlias.CurrentId()) return std::nullopt;
  return static_cast<std::int32_t>(*lvwAlias.CurrentId());
}

void FChooseAlias::Accept() {
  if (lvwAlias.CurrentId()) Confirm();
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
