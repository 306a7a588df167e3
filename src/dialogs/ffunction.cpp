// SPDX-License-Identifier: MIT
#include "dialogs/ffunction.h"

#include "dialogs/title_texts.h"
#include "messages/text_number.h"
#include "platform/text.h"

namespace dialogs {

namespace {

constexpr messages::TextNumber kClassNotOpen{1600};
constexpr messages::TextNumber kNoClasses{1601};
constexpr messages::TextNumber kChooseClass{1602};
constexpr messages::TextNumber kScanTimeUse{1606};
constexpr messages::TextNumber kCodeStays{1653};

}  // namespace

FFunction::FFunction(const DialogContext& context)
    : DialogForm("FFunction", context, kFormulaHelpTopic),
      uses_(context, chkWithUses, lblWithUsesHint,
            [this] { return this->context().operations.CodeUsesOfFormula(stored_->id); }) {
  SetTag("C301");
  SayWhat(kTextNewFormulaTitle);
  lblName.SetTag("C302");
  lblProgID.SetTag("C303");
  lblType.SetTag("C304");
  lblScanTime.SetTag("C305");
  lblComment.SetTag("C306");
  chkEnabled.SetTag("C307");
  chkWithCode.SetTag("C1652");
  chkWithCode.SetVisible(false);
  chkWithCode.SetChecked(context.choices->move_with_code);
  for (forms::Label* hint : {&lblNameHint, &lblProgIDHint, &lblWithCodeHint, &lblScanTimeHint}) {
    hint->SetHint(true);
    hint->SetVisible(false);
  }
  txtName.SetLayout({.min_chars = 40});
  cmbProgID.SetLayout({.min_chars = 40});
  cmbType.SetLayout({.min_chars = 24});
  txtScanTime.SetLayout({.min_chars = 12});
  txtComment.SetLayout({.min_chars = 40});
  chkEnabled.SetChecked(true);
  txtScanTime.SetDisabledReason(Text(kScanTimeUse));
  cmdOk.SetDisabledReason(Text(kChooseClass));
  cmdOk.SetEnabled(false);
  SetResizable(true);
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  cmbProgID.on_click = [this] { OnClass(); };
  cmbType.on_click = [this] { OnType(); };
  txtName.on_change = [this] { OnName(); };
  txtScanTime.on_change = [this] { OnScanTime(); };
}

void FFunction::SetClasses(const store::ClassList& classes) {
  cmbProgID.Clear();
  for (const store::ClassEntry& entry : classes.classes) cmbProgID.AddItem(entry.prog_id);
  class_warnings_.clear();
  for (const messages::Message& warning : classes.warnings) {
    if (!class_warnings_.empty()) class_warnings_ += '\n';
    class_warnings_ += context().texts.Sentence(warning);
  }
  ShowClassHint({});
}

void FFunction::Load(const store::FormulaRecord& record) {
  stored_ = record;
  SayWhat(kTextFormulaTitle, record.name);
  txtName.SetText(record.name);
  ChooseClass(record.prog_id);
  cmbType.SetListIndex(cmbType.FindData(record.type));
  txtScanTime.SetText(std::to_string(record.scan_time));
  txtComment.SetText(record.comment);
  chkEnabled.SetChecked(record.enabled);
}

void FFunction::ChooseClass(std::string_view prog_id) {
  cmbProgID.SetListIndex(cmbProgID.FindText(prog_id));
  ShowClassHint(cmbProgID.ListIndex() < 0 ? prog_id : std::string_view());
}

void FFunction::OnClass() {
  cmdOk.SetEnabled(cmbProgID.ListIndex() != -1);
  ShowClassHint({});
  const bool moves = Moves();
  chkWithCode.SetVisible(moves);
  ShowHint(lblWithCodeHint,
           moves ? context().texts.Text(kCodeStays, {{"<Class>", stored_->prog_id}}) : "");
}

bool FFunction::Moves() const {
  return stored_ && cmbProgID.ListIndex() != -1 && cmbProgID.FindText(stored_->prog_id) != -1 &&
         !platform::EqualsIgnoringCase(cmbProgID.Text(), stored_->prog_id);
}

void FFunction::OnName() {
  const store::OperationResult check = context().operations.CheckFormulaName(txtName.Text());
  const bool changed = !stored_ || txtName.Text() != stored_->name;
  const bool invalid = changed && !check.success() && !txtName.Text().empty();
  ShowHint(lblNameHint,
           invalid ? context().texts.Sentence(check.detail.empty() ? check.message : check.detail)
                   : std::string());
  txtName.SetInvalid(invalid);
  uses_.Follow(stored_ && changed && !txtName.Text().empty());
}

bool FFunction::Asynchronous() const {
  return cmbType.ListIndex() != -1 && cmbType.ItemData(cmbType.ListIndex()) == store::kAsynchronous;
}

void FFunction::OnType() {
  if (cmbType.ListIndex() == -1) return;
  txtScanTime.SetEnabled(Asynchronous());
  lblScanTime.SetEnabled(Asynchronous());
  OnScanTime();
}

std::string FFunction::ScanTimeProblem() const {
  const std::string& text = txtScanTime.Text();
  if (!Asynchronous() || (stored_ && text == std::to_string(stored_->scan_time))) return {};
  return context().texts.Sentence(context().operations.CheckScanTime(text).message);
}

void FFunction::OnScanTime() {
  const std::string problem = txtScanTime.Text().empty() ? std::string() : ScanTimeProblem();
  ShowHint(lblScanTimeHint, problem);
  txtScanTime.SetInvalid(!problem.empty());
}

void FFunction::Accept() {
  const std::string problem = ScanTimeProblem();
  if (problem.empty()) {
    Confirm();
  } else {
    Refuse(txtScanTime, problem, {});
  }
}

void FFunction::ShowClassHint(std::string_view missing_class) {
  std::string hint = class_warnings_;
  if (!missing_class.empty()) {
    hint = context().texts.Text(kClassNotOpen, {{"<Class>", missing_class}});
  } else if (cmbProgID.ListCount() == 0) {
    hint = Text(kNoClasses);
  } else if (cmbProgID.ListIndex() == -1) {
    hint = Text(kChooseClass);
  }
  ShowHint(lblProgIDHint, hint);
}

}  // namespace dialogs
