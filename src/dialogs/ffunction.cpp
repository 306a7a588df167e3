// SPDX-License-Identifier: MIT
#include "dialogs/ffunction.h"

namespace dialogs {

namespace {

constexpr std::int32_t kClassNotOpen = 1600;
constexpr std::int32_t kNoClasses = 1601;
constexpr std::int32_t kChooseClass = 1602;
constexpr std::int32_t kScanTimeUse = 1606;

}  // namespace

FFunction::FFunction(const DialogContext& context)
    : DialogForm("FFunction", context, kFormulaHelpTopic), scan_time_check_(context.toolkit) {
  SetTag("C301");
  lblName.SetTag("C302");
  lblProgID.SetTag("C303");
  lblType.SetTag("C304");
  lblScanTime.SetTag("C305");
  lblComment.SetTag("C306");
  chkEnabled.SetTag("C307");
  lblNameHint.SetHint(true);
  lblNameHint.SetVisible(false);
  lblProgIDHint.SetHint(true);
  lblProgIDHint.SetVisible(false);
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
  scan_time_check_.InitializeTextBox(txtScanTime, 0,
                                     static_cast<std::int32_t>(FieldKind::kNoLetters));
  cmbProgID.on_click = [this] { OnClass(); };
  cmbType.on_click = [this] { OnType(); };
  txtName.on_change = [this] {
    const store::OperationResult check =
        this->context().operations.CheckFormulaName(txtName.Text());
    lblNameHint.SetCaption(
        this->context().texts.Sentence(check.detail.empty() ? check.message : check.detail));
    lblNameHint.SetVisible(!check.success() && !txtName.Text().empty());
  };
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

void FFunction::ChooseClass(std::string_view prog_id) {
  cmbProgID.SetListIndex(cmbProgID.FindText(prog_id));
  ShowClassHint(cmbProgID.ListIndex() < 0 ? prog_id : std::string_view());
}

void FFunction::OnClass() {
  cmdOk.SetEnabled(cmbProgID.ListIndex() != -1);
  ShowClassHint({});
}

void FFunction::OnType() {
  if (cmbType.ListIndex() == -1) return;
  const bool asynchronous = cmbType.ItemData(cmbType.ListIndex()) == store::kAsynchronous;
  txtScanTime.SetEnabled(asynchronous);
  lblScanTime.SetEnabled(asynchronous);
}

void FFunction::ShowClassHint(std::string_view missing_class) {
  std::string hint = class_warnings_;
  if (!missing_class.empty()) {
    hint = context().texts.Text(kClassNotOpen, {{"<Class>", missing_class}});
  } else if (cmbProgID.ListCount() == 0) {
    hint = Text(kNoClasses);
  }
  lblProgIDHint.SetVisible(!hint.empty());
  lblProgIDHint.SetCaption(hint);
}

}  // namespace dialogs
