// SPDX-License-Identifier: MIT
#include "dialogs/farguments.h"

#include <algorithm>

#include "dialogs/list_texts.h"

namespace dialogs {

namespace {

constexpr std::size_t kNamesShown = 8;
enum Choice : std::int32_t { kKeep, kYes, kNo };

}  // namespace

FArguments::FArguments(const DialogContext& context, const std::vector<std::string>& names)
    : DialogForm("FArguments", context, kArgumentHelpTopic) {
  SetCaption(
      context.texts.Text(kTextArgumentsCaption, {{"<Count>", std::to_string(names.size())}}));
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kNamesShown); ++i) {
    list += (i == 0 ? "" : ", ") + names[i];
  }
  if (names.size() > kNamesShown) list += ", ...";
  lblNames.SetHint(true);
  lblNames.SetCaption(list);
  lblIn.SetTag("C4191");
  lblOut.SetTag("C4192");
  for (forms::ComboBox* choice : {&cmbIn, &cmbOut}) {
    choice->AddItem(Text(kTextKeepEach), kKeep);
    choice->AddItem(Text(kTextYes), kYes);
    choice->AddItem(Text(kTextNo), kNo);
    choice->SetListIndex(0);
    choice->SetLayout({.min_chars = 30});
  }
  WireButtons(cmdOk, cmdCancel, cmdHelp);
}

std::optional<bool> FArguments::ValueOf(const forms::ComboBox& choice) {
  const std::int32_t value = choice.ItemData(choice.ListIndex());
  return value == kKeep ? std::nullopt : std::optional(value == kYes);
}

}  // namespace dialogs
