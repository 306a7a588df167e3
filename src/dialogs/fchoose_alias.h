// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "dialogs/dialog_form.h"
#include "dialogs/item_notes.h"
#include "forms/list_view.h"

namespace dialogs {

// A list of all aliases with their items to pick from; typing into the search field keeps those
// that contain the text.
// Of a choice of several aliases for one formula.
struct SeveralAliases {
  std::string caption;
  ItemNotes* notes = nullptr;               // null: nothing is known of items
  std::unordered_set<std::int32_t> used{};  // those that the formula has already
};

class FChooseAlias : public DialogForm {
 public:
  explicit FChooseAlias(const DialogContext& context);
  // Several can be chosen, with what they are for; a missing one can be made.
  FChooseAlias(const DialogContext& context, SeveralAliases several);

  // Lets the user choose, starting at an alias (0: none). The chosen alias's ID.
  std::optional<std::int32_t> Choose(std::int32_t current);
  // Those of several that the formula does not have yet; none when the user cancelled.
  std::vector<std::int32_t> ChooseSeveral();

  forms::Label lblSearch{this, "lblSearch"};
  forms::TextBox txtSearch{this, "txtSearch"};
  forms::ListView lvwAlias{this, "lvwAlias"};
  forms::Button cmdNew{this, "cmdNew"};
  forms::CheckBox chkIn{this, "chkIn"};
  forms::CheckBox chkOut{this, "chkOut"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 protected:
  void Accept() override;

 private:
  std::vector<std::int32_t> NewOnes() const;
  void MakeAlias();
  void OnSearch();
  void OnSearchKey(forms::KeyEvent& event);

  SeveralAliases several_;
};

}  // namespace dialogs
