// SPDX-License-Identifier: MIT
#include "dialogs/fimport.h"

#include <utility>

#include "dialogs/list_texts.h"
#include "dialogs/plan_rows.h"
#include "messages/text_number.h"

namespace dialogs {

namespace {

constexpr std::int32_t kAllLines = -1;  // entry of the lines shown, beside the actions
constexpr double kActionWidth = 1500, kLineWidth = 800, kNameWidth = 2800, kDetailWidth = 2800,
                 kReasonWidth = 4500;

std::string Number(std::size_t count) { return std::to_string(count); }

}  // namespace

FImport::FImport(const DialogContext& context, std::string_view name, Planner planner)
    : DialogForm("FImport", context, kListsHelpTopic), planner_(std::move(planner)) {
  SetCaption(context.texts.Text(kTextImportCaption, {{"<Name>", name}}));
  SetResizable(true);
  SetMinimumSize(9000, 6000);
  lblShow.SetTag("C4111");
  lvwPlan.SetColumns({{Text(kTextColumnAction), kActionWidth},
                      {Text(kTextColumnLine), kLineWidth},
                      {Text(kTextColumnName), kNameWidth},
                      {Text(kTextColumnDetail), kDetailWidth},
                      {Text(kTextColumnReason), kReasonWidth}});
  lvwPlan.SetMultiSelect(false);
  lvwPlan.SetAccessibleName(Text(kTextImportList));
  lvwPlan.SetLayout({.stretch = true, .min_chars = 110, .min_lines = 15});
  lvwPlan.SetEmptyText(Text(kTextNoLines));
  lblExisting.SetTag("C4126");
  for (messages::TextNumber text = kTextExistingError; text <= kTextExistingRename;
       text = text + 1) {
    cmbExisting.AddItem(Text(text));
  }
  cmbExisting.SetListIndex(0);
  lblClass.SetTag("C4131");
  OfferClasses({});
  chkCreate.SetTag("C4132");
  chkSkip.SetTag("C4133");
  chkSkip.SetDisabledReason(Text(kTextNoneRefused));
  for (forms::Label* hint : {&lblReason, &lblState, &lblIgnored}) {
    hint->SetHint(true);
    hint->SetVisible(false);
  }
  WireButtons(cmdOk, cmdCancel, cmdHelp);
  cmdOk.SetTag("C4134");
  const auto plan_again = [this] {
    if (asked_) Plan();
  };
  cmbShow.on_click = [this] {
    if (asked_) ShowLines();
  };
  lvwPlan.on_current_row = [this] { ShowReason(); };
  cmbExisting.on_click = plan_again;
  cmbClass.on_click = plan_again;
  chkCreate.on_click = plan_again;
  chkSkip.on_click = [this] { ShowState(); };
}

void FImport::OfferClasses(const std::vector<store::ClassEntry>& classes) {
  for (const store::ClassEntry& entry : classes) cmbClass.AddItem(entry.prog_id);
  lblClass.SetVisible(!classes.empty());
  cmbClass.SetVisible(!classes.empty());
}

void FImport::ShowIgnored(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  ShowHint(lblIgnored, list.empty()
                           ? std::string()
                           : context().texts.Text(kTextColumnsIgnored, {{"<Names>", list}}));
}

exchange::ImportOptions FImport::Options() const {
  exchange::ImportOptions options;
  options.existing = static_cast<exchange::ExistingPolicy>(cmbExisting.ListIndex());
  options.create_aliases = chkCreate.Checked();
  options.prog_id = cmbClass.Text();
  return options;
}

bool FImport::Ask() {
  asked_ = false;
  if (!Plan()) return false;
  asked_ = true;
  return Run();
}

bool FImport::Plan() try {
  std::optional<exchange::ImportPlan> plan = planner_(Options());
  if (!plan) return false;
  lvwPlan.SetRowSource(nullptr);
  plan_ = std::move(*plan);
  counts_ = plan_.Count();
  ShowCounts();
  ShowLines();
  ShowState();
  return true;
} catch (const std::exception& error) {
  context().messages.Warn(error);
  return false;
}

// Refused lines come into sight by themselves, once.
void FImport::ShowCounts() {
  const std::int32_t shown = cmbShow.ListIndex();
  const std::size_t counts[] = {counts_.added, counts_.changed, counts_.unchanged, counts_.refused};
  const bool was_asked = std::exchange(asked_, false);
  lblCounts.SetCaption(
      context().texts.Text(kTextCounts, {{"<New>", Number(counts_.added)},
                                         {"<Changed>", Number(counts_.changed)},
                                         {"<Unchanged>", Number(counts_.unchanged)},
                                         {"<Refused>", Number(counts_.refused)}}));
  cmbShow.Clear();
  cmbShow.AddItem(context().texts.Text(kTextAllLines, {{"<Count>", Number(plan_.LineCount())}}),
                  kAllLines);
  for (std::int32_t action = 0; action < 4; ++action) {
    cmbShow.AddItem(
        context().texts.Text(kTextNewLines + action, {{"<Count>", Number(counts[action])}}),
        action);
  }
  const auto refused = static_cast<std::int32_t>(exchange::RowAction::kRefused);
  const std::int32_t first = counts_.refused > 0 ? cmbShow.FindData(refused) : 0;
  cmbShow.SetListIndex(shown < 0 ? first : shown);
  asked_ = was_asked;
}

void FImport::ShowLines() {
  const std::int32_t data = cmbShow.ItemData(cmbShow.ListIndex());
  std::optional<exchange::RowAction> action;
  if (data != kAllLines) action = static_cast<exchange::RowAction>(data);
  lvwPlan.SetRowSource(std::make_shared<PlanRows>(plan_, context().texts, action));
  if (lvwPlan.RowCount() > 0) lvwPlan.SetCurrentId(lvwPlan.IdAt(0));
  ShowReason();
}

void FImport::ShowReason() {
  constexpr std::size_t kReasonColumn = 4;
  const auto position = lvwPlan.CurrentPosition();
  ShowHint(lblReason, position ? lvwPlan.Cell(*position, kReasonColumn).ToText() : std::string());
}

void FImport::ShowState() {
  const bool refused = counts_.refused > 0 && !chkSkip.Checked();
  const bool nothing = counts_.added + counts_.changed == 0;
  std::string state;
  if (refused) {
    state = context().texts.Text(kTextLinesRefused, {{"<Count>", Number(counts_.refused)}});
  } else if (nothing) {
    state = Text(kTextNothingNew);
  }
  ShowHint(lblState, state);
  chkSkip.SetEnabled(counts_.refused > 0);
  cmdOk.SetDisabledReason(state);
  cmdOk.SetEnabled(state.empty());
}

void FImport::Accept() {
  if (cmdOk.Enabled()) Confirm();
}

}  // namespace dialogs
