// SPDX-License-Identifier: MIT
#include "dialogs/fparameter.h"

namespace dialogs {

namespace {

constexpr std::int32_t kNotBothFlags = 552;
constexpr std::int32_t kChooseAlias = 1603;
constexpr std::int32_t kNoAliases = 1609;
constexpr std::int32_t kItemOfAlias = 1605;

}  // namespace

FParameter::FParameter(const DialogContext& context)
    : DialogForm("FParameter", context, kArgumentHelpTopic),
      uses_(context, chkWithUses, lblWithUsesHint,
            [this] { return this->context().operations.CodeUsesOfArgument(argument_id_); }) {
  SetTag("C500");
  lblVBAlias.SetTag("C501");
  chkIn.SetTag("C502");
  chkOut.SetTag("C503");
  lblVBAliasHint.SetHint(true);
  cmbVBAlias.SetLayout({.min_chars = 40});
  cmdOk.SetDisabledReason(Text(kChooseAlias));
  cmdOk.SetEnabled(false);
  SetResizable(true);
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  context.aliases->Requery();
  cmbVBAlias.SetSource(std::make_shared<AliasList>(context.aliases));
  cmbVBAlias.on_click = [this] { OnAlias(); };
  chkIn.on_click = [this] { OnFlag(chkIn); };
  chkOut.on_click = [this] { OnFlag(chkOut); };
  OnAlias();
}

bool FParameter::Load(const store::ArgumentValues& values, std::int32_t argument_id) {
  argument_id_ = argument_id;
  stored_alias_ = values.alias_id;
  cmbVBAlias.SetListIndex(cmbVBAlias.FindData(values.alias_id));
  chkIn.SetChecked(values.in);
  chkOut.SetChecked(values.out);
  return cmbVBAlias.ListIndex() != -1;
}

store::ArgumentValues FParameter::Values() const {
  return {cmbVBAlias.ItemData(cmbVBAlias.ListIndex()), chkIn.Checked(), chkOut.Checked()};
}

void FParameter::OnFlag(forms::CheckBox& clicked) {
  if (!on_variable_change_ || !chkIn.Checked() || !chkOut.Checked()) return;
  clicked.SetChecked(false);
  context().messages.Warn(Text(kNotBothFlags));
}

void FParameter::OnAlias() {
  const std::int32_t index = cmbVBAlias.ListIndex();
  cmdOk.SetEnabled(index != -1);
  uses_.Follow(argument_id_ != 0 && index != -1 && cmbVBAlias.ItemData(index) != stored_alias_);
  if (index != -1) {
    const auto records = context().aliases->Records(static_cast<std::size_t>(index), 1);
    ShowHint(lblVBAliasHint,
             records.empty()
                 ? std::string()
                 : context().texts.Text(kItemOfAlias, {{"<Item>", records.front().item_id}}));
  } else {
    ShowHint(lblVBAliasHint, Text(cmbVBAlias.ListCount() == 0 ? kNoAliases : kChooseAlias));
  }
}

}  // namespace dialogs
