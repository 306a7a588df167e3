// SPDX-License-Identifier: MIT
#include "studio/item_chooser.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "codegen/data_type.h"
#include "dialogs/list_texts.h"
#include "forms/list_search.h"
#include "messages/text_number.h"
#include "platform/text.h"
#include "studio/window_texts.h"

namespace studio {

namespace {

constexpr messages::TextNumber kOk{10};
constexpr messages::TextNumber kCancel{11};
constexpr messages::TextNumber kAliasCaption{102};
constexpr double kAliasWidth = 2400;
constexpr double kNameWidth = 4200, kTypeWidth = 1300, kCommentWidth = 3600;
constexpr std::size_t kAllItems = static_cast<std::size_t>(-1);

}  // namespace

// The items that the search found, a row each; the ID is the item's index in the catalogue.
class ItemChooser::FoundItems final : public forms::RowSource {
 public:
  explicit FoundItems(const project::ItemCatalogue& catalogue) : catalogue_(catalogue) {
    Search("");
  }

  // With the alias of each item behind its comment.
  void ShowAliases(const Aliases& aliases) { aliases_ = &aliases; }

  void Search(std::string_view text) { found_ = catalogue_.Search(text, kAllItems); }
  std::size_t RowCount() override { return found_.size(); }
  std::vector<forms::Row> Rows(std::size_t first, std::size_t count) override {
    std::vector<forms::Row> rows;
    for (std::size_t i = first; i < std::min(first + count, found_.size()); ++i) {
      const auto item = catalogue_.At(found_[i]);
      rows.push_back(
          {found_[i],
           {platform::Variant(item.name), platform::Variant(codegen::GetDataType(item.type)),
            platform::Variant(item.comment)}});
      if (aliases_) rows.back().cells.insert(rows.back().cells.begin() + 2, AliasOf(item.name));
    }
    return rows;
  }
  std::optional<std::size_t> IndexOf(std::int64_t id) override {
    const auto place =
        std::lower_bound(found_.begin(), found_.end(), static_cast<std::uint32_t>(id));
    if (place == found_.end() || *place != id) return std::nullopt;
    return static_cast<std::size_t>(place - found_.begin());
  }

 private:
  platform::Variant AliasOf(std::string_view item) const {
    const auto found = aliases_->find(platform::FoldCase(item));
    return platform::Variant(found == aliases_->end() ? std::string() : found->second);
  }

  const project::ItemCatalogue& catalogue_;
  const Aliases* aliases_ = nullptr;
  std::vector<std::uint32_t> found_;  // in file order
};

ItemChooser::ItemChooser(platform::Toolkit& toolkit, const texts::TextTable& texts,
                         const project::ItemCatalogue& catalogue, const std::string& catalogue_file)
    : Form("FChooseItem"),
      toolkit_(toolkit),
      texts_(texts),
      catalogue_(catalogue),
      catalogue_file_(catalogue_file),
      rows_(std::make_shared<FoundItems>(catalogue)) {
  SetCaption(texts.Text(kTextChooseItem));
  SetResizable(true);
  SetMinimumSize(7500, 5500);
  lblSearch.SetCaption(texts.Text(kTextSearch));
  lvwItems.SetColumns({{texts.Text(kTextItem), kNameWidth},
                       {texts.Text(kTextItemType), kTypeWidth},
                       {texts.Text(kTextItemComment), kCommentWidth}});
  lvwItems.SetMultiSelect(false);
  lvwItems.SetAccessibleName(texts.Text(kTextItem));
  lvwItems.SetLayout({.stretch = true, .min_chars = 80, .min_lines = 16});
  lvwItems.SetRowSource(rows_);
  lvwItems.on_double_click = [this] { Close(true); };
  lvwItems.on_key_down = [this](forms::KeyEvent& event) { forms::FindBy(txtSearch, event); };
  lvwItems.on_current_row = [this] { cmdOk.SetEnabled(!Choice().empty()); };
  txtSearch.on_change = [this] { OnSearch(); };
  txtSearch.on_key_down = [this](forms::KeyEvent& event) { OnSearchKey(event); };
  cmdOk.SetCaption(texts.Text(kOk));
  cmdOk.SetDefault(true);
  cmdOk.SetDisabledReason(texts.Text(kTextChooseItemReason));
  cmdOk.on_click = [this] { Close(true); };
  cmdCancel.SetCaption(texts.Text(kCancel));
  cmdCancel.SetCancel(true);
  cmdCancel.on_click = [this] { Close(false); };
  on_query_unload = [this](bool& cancel, forms::CloseReason reason) {
    if (reason != forms::CloseReason::kUser) return;
    cancel = true;
    Close(false);
  };
  OnSearch();
}

std::optional<std::string> ItemChooser::Choose(std::string_view current, forms::Form* owner) {
  if (const auto index = catalogue_.Find(current))
    lvwItems.SetCurrentId(static_cast<std::int64_t>(*index));
  toolkit_.ShowModal(*this, owner);
  toolkit_.Unload(*this);
  if (!accepted_) return std::nullopt;
  return Choice();
}

std::vector<std::string> ItemChooser::ChooseSeveral(const Aliases& aliases, forms::Form* owner) {
  aliases_ = &aliases;
  rows_->ShowAliases(aliases);
  SetCaption(texts_.Text(dialogs::kTextAddAliases));
  lvwItems.SetColumns({{texts_.Text(kTextItem), kNameWidth},
                       {texts_.Text(kTextItemType), kTypeWidth},
                       {texts_.Text(kAliasCaption), kAliasWidth},
                       {texts_.Text(kTextItemComment), kCommentWidth}});
  lvwItems.SetMultiSelect(true);
  lvwItems.on_key_down = [this](forms::KeyEvent& event) {
    event.handled = event.key_code == forms::kKeyReturn && event.shift == 0;
    if (event.handled) return Close(true);  // the native list would select one row only
    forms::FindBy(txtSearch, event);
  };
  lvwItems.SetLayout({.stretch = true, .min_chars = 100, .min_lines = 16});
  lvwItems.Rebind();
  cmdOk.SetDisabledReason(texts_.Text(dialogs::kTextSelectNewItems));
  lvwItems.on_selection =
      lvwItems.on_current_row = [this] { cmdOk.SetEnabled(!NewOnes().empty()); };
  cmdOk.SetEnabled(false);
  toolkit_.ShowModal(*this, owner);
  toolkit_.Unload(*this);
  return accepted_ ? NewOnes() : std::vector<std::string>();
}

std::vector<std::string> ItemChooser::NewOnes() const {
  std::vector<std::string> items;
  for (const std::int64_t id : lvwItems.SelectedIds()) {
    std::string item(catalogue_.At(static_cast<std::size_t>(id)).name);
    if (!aliases_->contains(platform::FoldCase(item))) items.push_back(std::move(item));
  }
  return items;
}

void ItemChooser::Close(bool accepted) {
  if (accepted && (aliases_ ? NewOnes().empty() : Choice().empty())) return;
  accepted_ = accepted;
  Hide();
}

std::string ItemChooser::Choice() const {
  if (const auto id = lvwItems.CurrentId())
    return std::string(catalogue_.At(static_cast<std::size_t>(*id)).name);
  return txtSearch.Text();
}

void ItemChooser::OnSearch() {
  rows_->Search(txtSearch.Text());
  lvwItems.SetEmptyText(catalogue_.size() == 0
                            ? texts_.Text(kTextNoItems, {{"<File>", catalogue_file_}})
                            : texts_.Text(kTextNoItemFound, {{"<Text>", txtSearch.Text()}}));
  lvwItems.Rebind();
  if (!txtSearch.Text().empty() && lvwItems.RowCount() > 0) lvwItems.SetCurrentId(lvwItems.IdAt(0));
  cmdOk.SetEnabled(aliases_ ? !NewOnes().empty() : !Choice().empty());
}

// Up and Down move through the list while the search field has the keyboard.
void ItemChooser::OnSearchKey(forms::KeyEvent& event) {
  const bool up = event.key_code == forms::kKeyUp;
  if (event.shift != 0 || (!up && event.key_code != forms::kKeyDown) || lvwItems.RowCount() == 0)
    return;
  event.handled = true;
  const std::size_t position = lvwItems.CurrentPosition().value_or(0);
  const std::size_t next = up ? position - std::min<std::size_t>(position, 1)
                              : std::min(position + 1, lvwItems.RowCount() - 1);
  lvwItems.SetCurrentId(lvwItems.IdAt(next));
}

}  // namespace studio
