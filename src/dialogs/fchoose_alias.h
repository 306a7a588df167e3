// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "dialogs/dialog_form.h"
#include "forms/list_view.h"

namespace dialogs {

// A list of all aliases with their items to pick from; typing into the search field keeps those
// that contain the text.
class FChooseAlias : public DialogForm {
 public:
  explicit FChooseAlias(const DialogContext& context);

  // Lets the user choose, starting at an alias (0: none). The chosen alias's ID.
  std::optional<std::int32_t> Choose(std::int32_t current);

  forms::Label lblSearch{this, "lblSearch"};
  forms::TextBox txtSearch{this, "txtSearch"};
  forms::ListView lvwAlias{this, "lvwAlias"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 protected:
  void Accept() override;

 private:
  void OnSearch();
  void OnSearchKey(forms::KeyEvent& event);
};

}  // namespace dialogs
