// SPDX-License-Identifier: MIT
#include "dialogs/falias.h"

#include "dialogs/alias_rules.h"
#include "dialogs/title_texts.h"
#include "messages/text_number.h"
#include "store/rules.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kDataType{1607};
constexpr messages::TextNumber kChooseItemTip{1608};
constexpr const char* kAnyItem = "Item";  // where only the alias is judged

}  // namespace

FAlias::FAlias(const DialogContext& context, std::int32_t alias_id)
    : DialogForm("FAlias", context, kAliasHelpTopic),
      alias_id_(alias_id),
      uses_(context, chkWithUses, lblWithUsesHint,
            [this] { return this->context().operations.CodeUsesOfAlias(alias_id_); }) {
  SetCaption("VBAlias");
  SayWhat(kTextNewAliasTitle);
  lblItemName.SetTag("C401");
  lblVBAlias.SetTag("C402");
  cmdChooseItemname.SetCaption("...");
  cmdChooseItemname.SetToolTip(Text(kChooseItemTip));
  cmdChooseItemname.SetLayout({.same_row = true});
  txtItemname.SetLayout({.min_chars = 40});
  txtVBAlias.SetLayout({.min_chars = 40});
  for (forms::Label* hint : {&lblItemHint, &lblVBAliasHint}) {
    hint->SetHint(true);
    hint->SetVisible(false);
  }
  SetResizable(true);
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  txtItemname.on_change = [this] { OnItem(); };
  txtVBAlias.on_change = [this] { OnAlias(); };
  cmdChooseItemname.on_click = [this] { OnChooseItem(); };
}

void FAlias::Load(const store::AliasValues& values) {
  stored_ = values.vb_alias;
  SayWhat(kTextAliasTitle, values.vb_alias);
  txtItemname.SetText(values.item_id);
  txtVBAlias.SetText(values.vb_alias);
}

bool FAlias::FollowSeries() try {
  if (alias_id_ != 0) return false;
  const bool was_series = series_ != nullptr;
  series_.reset();
  if (!AliasSeries::IsSeries(Values())) {
    if (was_series) ShowHint(lblVBAliasHint, "");
    return false;
  }
  if (!proposed_.empty() && txtVBAlias.Text() == proposed_) {
    proposed_.clear();
    txtVBAlias.SetText("");  // comes back here
    return true;
  }
  series_ = std::make_unique<AliasSeries>(context(), Values());
  const bool is_refused = !series_->refusal().empty();
  ShowHint(lblItemHint, is_refused ? "" : series_->Text());
  ShowHint(lblVBAliasHint, context().texts.Sentence(series_->refusal()));
  txtItemname.SetInvalid(is_refused);
  txtVBAlias.SetInvalid(is_refused);
  return true;
} catch (const platform::Error& error) {
  context().messages.Warn(error);
  return false;
}

void FAlias::OnItem() {
  if (FollowSeries()) return;
  const std::string& item = txtItemname.Text();
  std::string hint;
  bool invalid = false;
  if (!store::IsBlank(item)) {
    const auto refusal = RefuseAlias(context(), Values(), alias_id_);
    invalid = refusal && refusal->field == FieldRefusal::Field::kItem;
    hint = invalid
               ? context().texts.Sentence(refusal->prompt)
               : context().texts.Text(kDataType, {{"<Type>", context().items.GetDataType(item)}});
  }
  ShowHint(lblItemHint, hint);
  txtItemname.SetInvalid(invalid);
  if (alias_id_ == 0 && txtVBAlias.Text() == proposed_) Propose();
}

// Follows the item until the user writes an alias of their own.
void FAlias::Propose() try {
  const std::string& item = txtItemname.Text();
  proposed_ = store::IsBlank(item) ? "" : context().operations.ProposeAlias(item, alias_id_);
  txtVBAlias.SetText(proposed_);
} catch (const platform::Error& error) {
  context().messages.Warn(error);
}

void FAlias::OnAlias() {
  if (FollowSeries()) return;
  const std::string& text = txtVBAlias.Text();
  std::string hint;
  bool invalid = false;
  if (!store::IsBlank(text)) {
    const store::OperationResult check =
        context().operations.CheckAlias({kAnyItem, text}, alias_id_);
    messages::Message said = check.detail.empty() ? check.message : check.detail;
    if (said.empty() && !check.warnings.empty()) said = check.warnings.front();
    hint = context().texts.Sentence(said);
    invalid = !check.success();
  }
  ShowHint(lblVBAliasHint, hint);
  txtVBAlias.SetInvalid(invalid);
  uses_.Follow(!stored_.empty() && !store::IsBlank(text) && text != stored_);
}

void FAlias::OnChooseItem() {
  if (!context().studio) return;
  const auto item = context().studio->ChooseItem(txtItemname.Text());
  if (!item || store::IsBlank(*item)) return;
  txtItemname.SetText(*item);
  Propose();
}

void FAlias::Accept() {
  if (FollowSeries()) {
    if (series_ && series_->refusal().empty()) return Confirm();
    return Refuse(txtItemname, lblVBAliasHint.Caption(), "");
  }
  const auto refusal = RefuseAlias(context(), Values(), alias_id_);
  if (!refusal) {
    Confirm();
    return;
  }
  const texts::TextTable& texts = context().texts;
  Refuse(refusal->field == FieldRefusal::Field::kItem ? txtItemname : txtVBAlias,
         texts.Sentence(refusal->prompt), texts.Sentence(refusal->detail));
}

}  // namespace dialogs
