// SPDX-License-Identifier: MIT
#include "desktop/formula_commands.h"

#include <wx/menu.h>
#include <wx/utils.h>

#include <unordered_map>
#include <utility>

#include "desktop/crash_log.h"
#include "desktop/overview_texts.h"
#include "dialogs/fscan_time.h"
#include "dialogs/many_texts.h"
#include "dialogs/outcome.h"
#include "editor/name_list.h"
#include "editor/node_key.h"
#include "messages/text_number.h"
#include "platform/error.h"
#include "store/operation_texts.h"
#include "wx/convert.h"

namespace desktop {

namespace {

constexpr std::int16_t kKeyF5 = forms::kKeyF1 + 4;

constexpr messages::Pattern kEnablingMany{kTextEnablingMany};
constexpr messages::Pattern kDisablingMany{kTextDisablingMany};
constexpr messages::Pattern kSettingCallType{kTextSettingCallType};
constexpr messages::Pattern kSettingScanTime{dialogs::kTextChangingScanTime};
constexpr messages::Pattern kMovingMany{kTextMovingMany};
constexpr messages::Pattern kCancelled{store::kTextCancelled};
constexpr messages::Pattern kRefusedAt{kTextRefusedAt};

}  // namespace

FormulaCommands::FormulaCommands(Dependencies own) : own_(std::move(own)) {
  own_.overview.on_open = [this] { Open(); };
  own_.overview.on_menu = [this] { ShowMenu(); };
  own_.overview.on_key = [this](forms::KeyEvent& event) { OnKey(event); };
  own_.strip.on_field = [this](const std::string& control) { EditField(control); };
}

FormulaCommands::~FormulaCommands() {
  own_.overview.on_open = own_.overview.on_menu = [] {};
  own_.overview.on_key = [](forms::KeyEvent&) {};
  own_.strip.on_field = [](const std::string&) {};
  own_.overview.ShowFormulas({});
}

void FormulaCommands::Show() {
  editor::frmtabgrid* editor = Editor();
  if (!editor) return;
  std::vector<OverviewFormula> formulas;
  try {
    const wxBusyCursor busy;
    std::unordered_map<std::int32_t, std::int32_t> counts;
    editor->operations().ForEachArgument(
        [&](const store::ArgumentRecord& argument) { ++counts[argument.parent_id]; });
    editor->operations().ForEachFormula([&](const store::FormulaRecord& formula) {
      const auto count = counts.find(formula.id);
      formulas.push_back({formula, count == counts.end() ? 0 : count->second});
    });
  } catch (const platform::Error& error) {
    own_.messages.Status(own_.parts.texts.Sentence(error));
  }
  own_.overview.ShowFormulas(std::move(formulas));
}

bool FormulaCommands::ShowStrip(const std::string& key) {
  editor::frmtabgrid* editor = Editor();
  if (!editor || !editor::IsFormulaKey(key)) return false;
  try {
    const auto formula = editor->operations().FindFormula(editor::KeyNumber(key));
    if (!formula) return false;
    strip_key_ = key;
    own_.strip.ShowFormula(*formula);
    return true;
  } catch (const platform::Error&) {
    return false;  // the table says why
  }
}

// The dialog's controls have their names as windows; it is open when the task runs.
void FormulaCommands::EditField(const std::string& control) {
  own_.parts.toolkit.CallLater([control] {
    if (wxWindow* field = wxWindow::FindWindowByName(wx::ToWx(control))) field->SetFocus();
  });
  RunTreeKey(strip_key_, forms::kKeyF9);
  own_.on_changed();
}

// --- Keys and menu ---

void FormulaCommands::OnKey(forms::KeyEvent& event) {
  const std::int16_t code = event.key_code;
  event.handled = true;
  if (event.shift == 0 && (code == forms::kKeyF2 || code == forms::kKeyF9)) {
    Edit();
  } else if (event.shift == 0 && code == forms::kKeyF8) {
    RunTreeKey(std::string(editor::kFormulasKey), forms::kKeyF8);
  } else if (code == forms::kKeyDelete && (event.shift == 0 || event.shift == forms::kControl)) {
    Delete();
  } else if (event.shift == 0 && code == forms::kKeySpace) {
    Toggle();
  } else if (event.shift == 0 && code == kKeyF5) {
    Show();
  } else if (event.shift == forms::kControl && code == 'O') {
    Open();
  } else if (event.shift == forms::kControl && code == 'C') {
    Copy();
  } else if (event.shift == forms::kControl && code == 'V') {
    Paste();
  } else {
    event.handled = false;
  }
}

void FormulaCommands::ShowMenu() {
  editor::frmtabgrid* editor = Editor();
  if (!editor) return;
  RememberStep("menu of formulas");
  wxMenu menu;
  std::unordered_map<int, std::function<void()>> actions;  // by the IDs of the entries
  const bool any = own_.overview.Current() != nullptr;
  const auto add = [&](wxMenu& to, const wxString& label, bool enabled,
                       const std::function<void()>& action) {
    wxMenuItem* item = to.Append(wxID_ANY, label);
    item->Enable(enabled);
    actions[item->GetId()] = action;
  };
  const auto label = [this](messages::TextNumber text, const char* key) {
    return wx::ToWx(Text(text)) + (*key ? wxString("\t") + key : wxString());
  };
  add(menu, label(kTextOpenFormula, "Enter"), any, [this] { Open(); });
  add(menu, label(kTextNewFormula, "F8"), true,
      [this] { RunTreeKey(std::string(editor::kFormulasKey), forms::kKeyF8); });
  add(menu, label(kTextEditFormula, "F9"), any, [this] { Edit(); });
  add(menu, label(kTextShowCode, ""), any, [this] { ShowCode(); });
  add(menu, label(kTextCopyName, ""), any, [this] { CopyNames(); });
  add(menu, label(dialogs::kTextCopyFormulas, "Ctrl+C"), any, [this] { Copy(); });
  add(menu, label(dialogs::kTextPasteFormulas, "Ctrl+V"), true, [this] { Paste(); });
  menu.AppendSeparator();
  add(menu, label(kTextEnable, ""), any, [this] { Enable(true); });
  add(menu, label(kTextDisable, ""), any, [this] { Enable(false); });
  auto* types = new wxMenu;
  for (std::int32_t type = 0; type < store::kCallTypes; ++type) {
    add(*types, wx::ToLabel(Text(store::kFirstCallTypeText + type)), any,
        [this, type] { SetCallType(type); });
  }
  menu.AppendSubMenu(types, wx::ToWx(Text(kTextSetCallType)))->Enable(any);
  add(menu, label(dialogs::kTextScanTimeMenu, ""), any, [this] { SetScanTime(); });
  auto* classes = new wxMenu;
  for (const store::ClassEntry& entry : editor->operations().Classes().classes)
    add(*classes, wx::ToLabel(entry.prog_id), any,
        [this, id = entry.prog_id] { Move(RequireSelected(), id); });
  const bool movable = any && classes->GetMenuItemCount() > 0;
  menu.AppendSubMenu(classes, wx::ToWx(Text(kTextMoveToClass)))->Enable(movable);
  menu.AppendSeparator();
  add(menu, label(kTextDeleteFormulas, "Ctrl+Del"), any, [this] { Delete(); });
  const auto chosen = actions.find(own_.overview.ChooseFromMenu(menu));
  if (chosen != actions.end()) chosen->second();
}

// --- One formula ---

void FormulaCommands::Open() {
  const OverviewFormula* formula = own_.overview.Current();
  if (formula) own_.select_node(editor::FormulaKey(formula->record.id));
}

void FormulaCommands::RunTreeKey(const std::string& key, std::int16_t code) {
  std::int16_t shift = code == forms::kKeyDelete ? forms::kControl : std::int16_t{0};
  own_.session.add_in().NodeKeyDown(own_.session.studio().project(), key, "", code, shift);
}

void FormulaCommands::Edit() {
  const OverviewFormula* formula = own_.overview.Current();
  if (!formula) return own_.messages.Status(Text(kTextSelectFormulas));
  RunTreeKey(editor::FormulaKey(formula->record.id), forms::kKeyF9);
  Show();
  own_.on_changed();
}

void FormulaCommands::ShowCode() {
  const OverviewFormula* formula = own_.overview.Current();
  editor::frmtabgrid* editor = Editor();
  if (!formula || !editor) return;
  editor->SetTreeContext(editor::FormulaKey(formula->record.id), false);
  editor->abr_ToolClick(*editor->abr.FindTool("mnuFunctionShowCode"));
  editor->SetTreeContext(editor->CurrentKey(), false);
}

void FormulaCommands::Copy() {
  const std::vector<std::int32_t> ids = RequireSelected();
  if (editor::frmtabgrid* editor = Editor(); editor && !ids.empty())
    editor->lists().CopyFormulas(ids);
}

void FormulaCommands::Paste() {
  if (editor::frmtabgrid* editor = Editor()) editor->lists().PasteFormulas();
  Show();
  own_.on_changed();
}

void FormulaCommands::CopyNames() const {
  std::string text;
  for (const std::int32_t id : own_.overview.Selected())
    text += (text.empty() ? "" : "\n") + own_.overview.Find(id)->record.name;
  wx::ToClipboard(text);
}

// --- Several at once ---

std::vector<std::int32_t> FormulaCommands::RequireSelected() const {
  std::vector<std::int32_t> ids = own_.overview.Selected();
  if (ids.empty()) own_.messages.Status(Text(kTextSelectFormulas));
  return ids;
}

void FormulaCommands::Toggle() {
  if (const OverviewFormula* formula = own_.overview.Current()) Enable(!formula->record.enabled);
}

void FormulaCommands::Enable(bool enabled) {
  const auto count = own_.overview.Selected().size();
  ChangeMany(RequireSelected(), {enabled ? kEnablingMany : kDisablingMany, {{"<Count>", count}}},
             [enabled](store::FormulaValues& values) { values.enabled = enabled; });
}

void FormulaCommands::SetCallType(std::int32_t type) {
  const auto count = own_.overview.Selected().size();
  ChangeMany(RequireSelected(), {kSettingCallType, {{"<Count>", count}}},
             [type](store::FormulaValues& values) { values.type = type; });
}

void FormulaCommands::SetScanTime() {
  const std::vector<std::int32_t> ids = RequireSelected();
  std::vector<store::FormulaRecord> formulas;
  for (const std::int32_t id : ids) {
    const store::FormulaRecord& record = own_.overview.Find(id)->record;
    if (record.type == store::kAsynchronous) formulas.push_back(record);
  }
  if (ids.empty()) return;
  if (formulas.empty()) {
    return own_.messages.Status(
        own_.parts.texts.Text(dialogs::kTextOnlyAsynchronous,
                              {{"<Count>", "0"}, {"<Total>", std::to_string(ids.size())}}));
  }
  dialogs::FScanTime dialog(Editor()->dialog_context(), formulas, ids.size());
  if (!dialog.Run()) return;
  const std::int32_t scan_time = dialog.ScanTime();
  ChangeMany(ids, {kSettingScanTime, {{"<Count>", formulas.size()}}},
             [scan_time](store::FormulaValues& values) {
               if (values.type == store::kAsynchronous) values.scan_time = scan_time;
             });
}

void FormulaCommands::Move(const std::vector<std::int32_t>& ids, const std::string& prog_id) {
  Show();  // what was read may be older than the tree
  std::size_t count = 0;
  for (const std::int32_t id : ids) {
    const OverviewFormula* formula = own_.overview.Find(id);
    count += formula && formula->record.prog_id != prog_id;
  }
  if (count == 0) return own_.messages.Status(Text(kTextFormulasAreSo));
  const auto answer = own_.parts.toolkit.Show(
      {own_.parts.texts.Text(count == 1 ? kTextAskMoveOne : kTextAskMove,
                             {{"<Count>", std::to_string(count)}, {"<Class>", prog_id}}),
       Text(kTextAskMoveDetail), "", platform::MessageButtons::kYesNoCancel,
       platform::MessageResult::kYes, platform::MessageIcon::kQuestion, Text(kTextWithCode),
       Text(kTextWithoutCode)});
  if (answer == platform::MessageResult::kCancel) return;
  ChangeMany(
      ids, {kMovingMany, {{"<Count>", count}, {"<Class>", prog_id}}},
      [&](store::FormulaValues& values) { values.prog_id = prog_id; },
      answer == platform::MessageResult::kYes);
}

store::OperationResult FormulaCommands::ChangeAll(const std::vector<std::int32_t>& ids,
                                                  const Change& change,
                                                  const store::EditFormulaOptions& options,
                                                  store::FormulaRecord& last) {
  store::Operations& operations = Editor()->operations();
  for (std::size_t i = 0; i < ids.size(); ++i) {
    last = own_.overview.Find(ids[i])->record;
    if (options.progress && !options.progress(i, ids.size())) {
      store::OperationResult cancelled;
      cancelled.outcome = store::Outcome::kCancelled;
      cancelled.message = messages::Message(kCancelled);
      return cancelled;
    }
    // Somebody else may have changed the others of its values.
    const auto record = operations.FindFormula(ids[i]);
    store::FormulaValues values = record ? *record : last;
    change(values);
    store::OperationResult result = operations.EditFormula(ids[i], values, options);
    if (!result.success()) return result;
  }
  return {};
}

void FormulaCommands::ChangeMany(std::vector<std::int32_t> ids, const messages::Message& title,
                                 const Change& change, bool with_code) {
  if (ids.empty()) return;
  std::erase_if(ids, [&](std::int32_t id) {
    if (!own_.overview.Find(id)) return true;
    const store::FormulaValues before = own_.overview.Find(id)->record;
    store::FormulaValues after = before;
    change(after);
    return after == before;
  });
  if (ids.empty()) return own_.messages.Status(Text(kTextFormulasAreSo));
  const dialogs::DialogContext& context = Editor()->dialog_context();
  store::FormulaRecord last;
  store::OperationResult result =
      dialogs::RunListOperation(context, kTextChangingFormulas, [&](const auto& given) {
        store::EditFormulaOptions options(given);
        options.with_code = with_code;
        if (ids.size() == 1) return ChangeAll(ids, change, options, last);
        return context.operations.AsOne(
            title, [&] { return ChangeAll(ids, change, options, last); }, given);
      });
  if (!result.success()) {
    if (ids.size() > 1) {
      const messages::Message at(kRefusedAt, {{"<Name>", last.name}, {"<Class>", last.prog_id}});
      result.detail = messages::Lines(result.detail, at);
    }
    return dialogs::WarnFailure(context, result);
  }
  for (const std::int32_t id : ids)
    own_.session.studio().SetNodeText(editor::FormulaKey(id), own_.overview.Find(id)->record.name);
  Show();
  own_.on_changed();
  if (result.warnings.empty()) Done(kTextOneFormulaChanged, ids.size());
}

void FormulaCommands::Delete() {
  const std::vector<std::int32_t> ids = RequireSelected();
  if (ids.empty()) return;
  if (ids.size() > 1) return DeleteMany(ids);
  RunTreeKey(editor::FormulaKey(ids.front()), forms::kKeyDelete);
  Show();
  own_.on_changed();
}

bool FormulaCommands::MayDelete(const std::vector<std::int32_t>& ids) const {
  if (!Editor()->SettingIsOn("RequestOnDelete")) return true;
  std::vector<std::string> names;
  std::int32_t arguments = 0;
  for (const std::int32_t id : ids) {
    const OverviewFormula& formula = *own_.overview.Find(id);
    arguments += formula.arguments;
    if (names.size() <= editor::kNamesShown) names.push_back(formula.record.name);
  }
  const texts::TextTable& texts = own_.parts.texts;
  return own_.messages.Ask(
      texts.Text(kTextAskDeleteMany, {{"<Count>", std::to_string(ids.size())},
                                      {"<Arguments>", std::to_string(arguments)}}),
      texts.Text(kTextDeleteManyDetail, {{"<Names>", editor::NameList(names, ids.size())}}));
}

void FormulaCommands::DeleteMany(const std::vector<std::int32_t>& ids) {
  if (!MayDelete(ids)) return;
  const dialogs::DialogContext& context = Editor()->dialog_context();
  const store::OperationResult result = dialogs::RunListOperation(
      context, kTextDeleteFormulas,
      [&](const auto& options) { return context.operations.DeleteFormulas(ids, options); });
  if (!result.success()) return dialogs::WarnFailure(context, result);
  for (const std::int32_t id : ids) own_.session.studio().RemoveNode(editor::FormulaKey(id));
  Show();
  own_.on_changed();
  if (result.warnings.empty()) Done(kTextOneFormulaDeleted, ids.size());
}

void FormulaCommands::Done(messages::TextNumber text_of_one, std::size_t count) {
  own_.messages.Status(own_.parts.texts.Text(text_of_one + (count == 1 ? 0 : 1),
                                             {{"<Count>", std::to_string(count)}}));
}

}  // namespace desktop
