// SPDX-License-Identifier: MIT
#include "dialogs/fduplicate.h"

#include <algorithm>
#include <string_view>

#include "dialogs/list_texts.h"
#include "messages/error.h"

namespace dialogs {

namespace {

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// A pair each line, "OLD=NEW". Raises messages::Error.
std::vector<exchange::Replacement> PairsOf(std::string_view text) {
  std::vector<exchange::Replacement> pairs;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty()) continue;
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos || sign == 0) {
      throw messages::Error({{kTextNoPair}, {{"<Word>", line}}});
    }
    pairs.push_back({std::string(line.substr(0, sign)), std::string(line.substr(sign + 1))});
  }
  return pairs;
}

}  // namespace

FDuplicate::FDuplicate(const DialogContext& context, const exchange::CopySource& source)
    : DialogForm("FDuplicate", context, kListsHelpTopic), source_(source) {
  SetCaption(context.texts.Text(kTextDuplicateCaption, {{"<Name>", source.formula.name}}));
  SetResizable(true);
  lblName.SetTag("C4163");
  txtName.SetPlaceholder(Text(kTextNameByReplacing));
  txtName.SetLayout({.min_chars = 50});
  lblClass.SetTag("C4165");
  for (const store::ClassEntry& entry : context.operations.Classes().classes) {
    cmbClass.AddItem(entry.prog_id);
  }
  cmbClass.SetListIndex(cmbClass.FindText(source.formula.prog_id));
  lblPairs.SetTag("C4166");
  txtPairs.SetMultiLine(true);
  txtPairs.SetLayout({.min_chars = 50, .min_lines = 3});
  lblHint.SetHint(true);
  lblHint.SetCaption(Text(kTextSeriesHint));
  lblPreview.SetTag("C4168");
  txtPreview.SetMultiLine(true);
  txtPreview.SetLocked(true);
  txtPreview.SetLayout({.stretch = true, .min_chars = 80, .min_lines = 14});
  lblState.SetHint(true);
  lblState.SetVisible(false);
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  cmdOk.SetTag("C4170");
  txtName.on_change = [this] { Plan(); };
  cmbClass.on_click = [this] { Plan(); };
  txtPairs.on_change = [this] { Plan(); };
  txtPairs.on_key_down = [this](forms::KeyEvent& key) {  // Enter alone begins a new line
    key.handled = key.key_code == forms::kKeyReturn && key.shift == forms::kControl;
    if (key.handled) Accept();
  };
  Plan();
}

exchange::CopyRequest FDuplicate::Request() const {
  exchange::CopyRequest request;
  request.name = Trimmed(txtName.Text());
  request.prog_id = cmbClass.Text();
  request.replacements = PairsOf(txtPairs.Text());
  return request;
}

void FDuplicate::Plan() {
  std::string state;
  copies_.reset();
  try {
    copies_ = exchange::PlanCopies(source_, Request(), context().operations, {});
    const auto refused = copies_->plan.Refused();
    if (!refused.empty()) {
      state = refused.front().name + ": " + context().texts.Sentence(refused.front().reason);
    } else if (copies_->plan.Count().added == 0) {
      state = Text(kTextNothingNew);
    }
  } catch (const std::exception& error) {
    state = context().texts.Sentence(error);
  }
  txtPreview.SetText(copies_ ? Preview() : std::string());
  ShowHint(lblState, state);
  cmdOk.SetDisabledReason(state);
  cmdOk.SetEnabled(state.empty());
}

// What changes stands before what is there already.
std::string FDuplicate::Preview() const {
  const exchange::ImportPlan& plan = copies_->plan;
  std::string changed, unchanged;
  for (std::size_t i = 0; i < plan.LineCount(); ++i) {
    const exchange::ImportPlan::Line line = plan.LineAt(i);
    std::string& text = line.action == exchange::RowAction::kUnchanged ? unchanged : changed;
    text += Text(kTextNew + static_cast<std::int32_t>(line.action)) + "  " + line.name;
    if (!line.detail.empty()) text += "  (" + line.detail + ")";
    text += '\n';
  }
  const auto first = std::ranges::find(plan.formulas(), exchange::RowAction::kNew,
                                       &exchange::PlannedFormula::action);
  if (first != plan.formulas().end()) changed += '\n' + std::string(first->code);
  std::string text = changed + (unchanged.empty() ? "" : "\n") + unchanged;
  std::erase(text, '\r');
  return text;
}

void FDuplicate::Accept() {
  if (cmdOk.Enabled()) Confirm();
}

}  // namespace dialogs
