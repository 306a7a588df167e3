// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/fields.h"
#include "forms/form.h"
#include "forms/list_view.h"
#include "platform/toolkit.h"
#include "project/item_catalogue.h"
#include "texts/text_table.h"

namespace studio {

// The item catalogue to pick a process variable from; typing into the search field keeps the
// items whose names contain the text. What is no item can be typed and taken all the same: a
// catalogue may be older than the plant.
class ItemChooser final : public forms::Form {
 public:
  // All of it outlives the dialog.
  ItemChooser(platform::Toolkit& toolkit, const texts::TextTable& texts,
              const project::ItemCatalogue& catalogue, const std::string& catalogue_file);

  // Aliases by their item in folded letters (platform::FoldCase).
  using Aliases = std::unordered_map<std::string, std::string>;

  // The chosen item; nothing when the user cancelled.
  std::optional<std::string> Choose(std::string_view current, forms::Form* owner);

  // Those of several items that have no alias yet; none when the user cancelled.
  std::vector<std::string> ChooseSeveral(const Aliases& aliases, forms::Form* owner);

  forms::Label lblSearch{this, "lblSearch"};
  forms::TextBox txtSearch{this, "txtSearch"};
  forms::ListView lvwItems{this, "lvwItems"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};

 private:
  class FoundItems;

  void OnSearch();
  void OnSearchKey(forms::KeyEvent& event);
  void Close(bool accepted);
  std::vector<std::string> NewOnes() const;
  // The current item, otherwise the text of the search field.
  std::string Choice() const;

  platform::Toolkit& toolkit_;
  const texts::TextTable& texts_;
  const project::ItemCatalogue& catalogue_;
  std::string catalogue_file_;
  std::shared_ptr<FoundItems> rows_;
  const Aliases* aliases_ = nullptr;  // while several are chosen
  bool accepted_ = false;
};

}  // namespace studio
