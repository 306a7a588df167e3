// SPDX-License-Identifier: MIT
#include "dialogs/fparameter.h"

#include "dialogs/alias_series.h"
#include "dialogs/argument_dialogs.h"
#include "dialogs/many_texts.h"
#include "dialogs/title_texts.h"
#include "exchange/series.h"
#include "messages/error.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kNotBothFlags{552};
constexpr messages::TextNumber kChooseAlias{1603};
constexpr messages::TextNumber kNoAliases{1609};
constexpr messages::TextNumber kItemOfAlias{1605};

}  // namespace

FParameter::FParameter(const DialogContext& context)
    : DialogForm("FParameter", context, kArgumentHelpTopic),
      uses_(context, chkWithUses, lblWithUsesHint,
            [this] { return this->context().operations.CodeUsesOfArgument(argument_id_); }) {
  SetTag("C500");
  SayWhat(kTextNewArgumentTitle);
  lblVBAlias.SetTag("C501");
  chkIn.SetTag("C502");
  chkOut.SetTag("C503");
  lblVBAliasHint.SetHint(true);
  cmbVBAlias.SetLayout({.min_chars = 40});
  cmdNewAlias.SetCaption(Text(kTextMakeAlias));
  cmdNewAlias.SetVisible(context.in_workbench);
  cmdNewAlias.on_click = [this] { MakeAlias(); };
  cmdOk.SetDisabledReason(Text(kChooseAlias));
  cmdOk.SetEnabled(false);
  SetResizable(true);
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  context.aliases->Requery();
  cmbVBAlias.SetSource(std::make_shared<AliasList>(context.aliases));
  lblSeries.SetCaption(Text(kTextOrSeries));
  txtSeries.SetPlaceholder(Text(kTextSeriesExample));
  txtSeries.SetLayout({.min_chars = 40});
  lblSeriesHint.SetHint(true);
  lblSeriesHint.SetVisible(false);
  txtSeries.on_change = [this] { OnSeries(); };
  cmbVBAlias.on_click = [this] { OnAlias(); };
  chkIn.on_click = [this] { OnFlag(chkIn); };
  chkOut.on_click = [this] { OnFlag(chkOut); };
  OnAlias();
}

bool FParameter::Load(const store::ArgumentValues& values, std::int32_t argument_id) {
  argument_id_ = argument_id;
  lblSeries.SetVisible(false);
  txtSeries.SetVisible(false);
  stored_alias_ = values.alias_id;
  cmbVBAlias.SetListIndex(cmbVBAlias.FindData(values.alias_id));
  chkIn.SetChecked(values.in);
  chkOut.SetChecked(values.out);
  SayWhat(kTextArgumentTitle, cmbVBAlias.Text());
  return cmbVBAlias.ListIndex() != -1;
}

store::ArgumentValues FParameter::Values() const {
  return {cmbVBAlias.ItemData(cmbVBAlias.ListIndex()), chkIn.Checked(), chkOut.Checked()};
}

std::vector<store::ArgumentValues> FParameter::AllValues() const {
  if (series_.empty()) return {Values()};
  std::vector<store::ArgumentValues> values;
  for (const std::int32_t id : series_) values.push_back({id, chkIn.Checked(), chkOut.Checked()});
  return values;
}

// The alias that is chosen does not count while there is a series.
void FParameter::OnSeries() {
  series_.clear();
  cmbVBAlias.SetEnabled(txtSeries.Text().empty());
  if (txtSeries.Text().empty()) {
    OnAlias();
  } else {
    ShowHint(lblVBAliasHint, "");
  }
  std::string problem;
  if (!txtSeries.Text().empty()) {
    try {
      const exchange::Series series(txtSeries.Text());
      for (std::size_t i = 0; i < series.size(); ++i) {
        const auto alias = context().operations.FindAliasByName(series.At(i));
        if (!alias) throw messages::Error({{kTextNoSuchAlias}, {{"<Name>", series.At(i)}}});
        series_.push_back(alias->id);
      }
      const std::string names =
          EndsOfSeries(series.size(), [&](std::size_t i) { return series.At(i); });
      ShowHint(lblSeriesHint, context().texts.Text(kTextArgumentsOfSeries,
                                                   {{"<Count>", std::to_string(series.size())},
                                                    {"<Names>", names}}));
    } catch (const std::exception& error) {
      series_.clear();
      problem = context().texts.Sentence(error);
    }
  }
  if (series_.size() < 2) ShowHint(lblSeriesHint, problem);
  txtSeries.SetInvalid(!problem.empty());
  cmdOk.SetDisabledReason(problem.empty() ? Text(kChooseAlias) : problem);
  cmdOk.SetEnabled(txtSeries.Text().empty() ? cmbVBAlias.ListIndex() != -1 : problem.empty());
}

void FParameter::MakeAlias() {
  const std::int32_t id = AddAlias(context());
  if (id == 0) return;
  context().aliases->Requery();
  cmbVBAlias.SetSource(std::make_shared<AliasList>(context().aliases));
  cmbVBAlias.SetListIndex(cmbVBAlias.FindData(id));
  OnAlias();
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
