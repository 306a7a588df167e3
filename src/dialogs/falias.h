// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "dialogs/alias_series.h"
#include "dialogs/dialog_form.h"
#include "dialogs/uses_offer.h"
#include "store/formula_records.h"

namespace dialogs {

// The alias dialog. Both fields must be filled and the alias must be a valid identifier that no
// other alias has; the form that would be valid is shown while the alias is typed. New ones may be
// a series, which is shown while it is typed.
class FAlias : public DialogForm {
 public:
  // `alias_id` is the alias that is edited, 0 for a new one.
  FAlias(const DialogContext& context, std::int32_t alias_id);

  void Load(const store::AliasValues& values);
  store::AliasValues Values() const { return {txtItemname.Text(), txtVBAlias.Text()}; }
  bool WithUses() const { return uses_.Taken(); }
  // What is added in place of one alias; null where the fields are no series.
  AliasSeries* Series() const { return series_.get(); }
  // Plans the series anew; false where the fields are none.
  bool FollowSeries();

  forms::Frame fraVBAlias{this, "fraVBAlias"};
  forms::Label lblItemName{&fraVBAlias, "lblItemName"};
  forms::TextBox txtItemname{&fraVBAlias, "txtItemname"};
  forms::Button cmdChooseItemname{&fraVBAlias, "cmdChooseItemname"};
  forms::Label lblItemHint{&fraVBAlias, "lblItemHint"};
  forms::Label lblVBAlias{&fraVBAlias, "lblVBAlias"};
  forms::TextBox txtVBAlias{&fraVBAlias, "txtVBAlias"};
  forms::Label lblVBAliasHint{&fraVBAlias, "lblVBAliasHint"};
  forms::CheckBox chkWithUses{&fraVBAlias, "chkWithUses"};
  forms::Label lblWithUsesHint{&fraVBAlias, "lblWithUsesHint"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};

 protected:
  void Accept() override;

 private:
  void OnItem();
  void OnAlias();
  void OnChooseItem();
  void Propose();

  std::int32_t alias_id_;
  UsesOffer uses_;
  std::unique_ptr<AliasSeries> series_;
  std::string stored_;    // the alias that is edited; empty for a new one
  std::string proposed_;  // the alias that was filled in last
};

}  // namespace dialogs
