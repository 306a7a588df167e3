// SPDX-License-Identifier: MIT
// Forms that use every kind of control, for the tests of the toolkit.
#pragma once

#include <memory>
#include <string>

#include "forms/combo_box.h"
#include "forms/fields.h"
#include "forms/grid.h"
#include "forms/list_view.h"
#include "forms/menu_control.h"
#include "forms/status_bar.h"

namespace samples {

// Many names, made as they are asked for.
class ManyNames : public forms::ListSource, public forms::RowSource {
 public:
  explicit ManyNames(std::size_t count) : count_(count) {}
  static std::string Name(std::size_t index) {
    std::string digits = std::to_string(index);
    return "Tank" + std::string(6 - digits.size(), '0') + digits + "_Level";
  }
  std::size_t Count() override { return count_; }
  forms::ListItem Item(std::size_t index) override {
    return {Name(index), static_cast<std::int32_t>(index)};
  }
  std::optional<std::size_t> FindData(std::int32_t data) override {
    return static_cast<std::size_t>(data);
  }
  std::size_t RowCount() override { return count_; }
  std::vector<forms::Row> Rows(std::size_t first, std::size_t count) override {
    std::vector<forms::Row> rows;
    for (std::size_t i = first; i < std::min(count_, first + count); ++i) {
      rows.push_back({static_cast<std::int64_t>(i) + 1,
                      {platform::Variant("Plant.Area1." + Name(i)), platform::Variant(Name(i))}});
    }
    return rows;
  }
  std::optional<std::size_t> IndexOf(std::int64_t id) override {
    auto index = static_cast<std::size_t>(id - 1);
    return id >= 1 && index < count_ ? std::optional(index) : std::nullopt;
  }

 private:
  std::size_t count_;
};

class FieldsForm : public forms::Form {
 public:
  explicit FieldsForm(bool german) : Form("FieldsForm") {
    SetCaption(german ? "Formeldefinition" : "Formula Definition");
    lblName.SetCaption("&Name");
    lblClass.SetCaption(german ? "&Klassenname" : "&Class Name");
    cmbClass.AddItem("PumpServer.CPump");
    cmbClass.AddItem("PumpServer.CValve");
    cmbClass.SetLayout({.min_chars = 40});
    lblHint.SetHint(true);
    lblHint.SetCaption(german ? "Die Klasse PumpServer.CMotor ist nicht offen: wählen Sie eine "
                                "andere, oder nehmen Sie ihr Projekt in die Projektgruppe auf."
                              : "The class PumpServer.CMotor is not open: choose another one, or "
                                "add its project to the project group.");
    lblScan.SetCaption(german ? "Abtast&zeit" : "&Scan Time");
    txtScan.SetEnabled(false);
    txtScan.SetDisabledReason("Only asynchronous formulas have a scan time.");
    lblAlias.SetCaption("Al&ias");
    cmbAlias.SetSource(std::make_shared<ManyNames>(100000));
    txtItem.SetLayout({.min_chars = 30});
    lblItem.SetCaption("I&tem");
    cmdChoose.SetCaption("...");
    cmdChoose.SetLayout({.same_row = true});
    chkEnabled.SetCaption(german ? "Definition &aktiv" : "Definition &enabled");
    chkEnabled.SetChecked(true);
    cmdOk.SetCaption("OK");
    cmdOk.SetDefault(true);
    cmdOk.on_click = [this] {
      confirmed = true;
      Hide();
    };
    cmdCancel.SetCaption(german ? "Abbrechen" : "Cancel");
    cmdCancel.SetCancel(true);
    cmdCancel.on_click = [this] { Hide(); };
    cmdHelp.SetCaption(german ? "&Hilfe" : "&Help");
    on_help = [this] { ++helps; };
    on_query_unload = [this](bool& cancel, forms::CloseReason) {
      cancel = true;
      Hide();
    };
    SetResizable(true);
  }

  bool confirmed = false;
  int helps = 0;
  forms::Frame fraFields{this, "fraFields"};
  forms::Label lblName{&fraFields, "lblName"};
  forms::TextBox txtName{&fraFields, "txtName"};
  forms::Label lblClass{&fraFields, "lblClass"};
  forms::ComboBox cmbClass{&fraFields, "cmbClass"};
  forms::Label lblHint{&fraFields, "lblHint"};
  forms::Label lblScan{&fraFields, "lblScan"};
  forms::TextBox txtScan{&fraFields, "txtScan"};
  forms::Label lblAlias{&fraFields, "lblAlias"};
  forms::ComboBox cmbAlias{&fraFields, "cmbAlias"};
  forms::Label lblItem{&fraFields, "lblItem"};
  forms::TextBox txtItem{&fraFields, "txtItem"};
  forms::Button cmdChoose{&fraFields, "cmdChoose"};
  forms::CheckBox chkEnabled{&fraFields, "chkEnabled"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
  forms::Button cmdHelp{this, "cmdHelp"};
};

class ListForm : public forms::Form {
 public:
  ListForm() : Form("ListForm") {
    SetCaption("Choose an alias");
    lblSearch.SetCaption("&Search");
    lvw.SetColumns({{"Alias", 3000}, {"Item", 4500}});
    lvw.SetMultiSelect(false);
    lvw.SetLayout({.stretch = true, .min_chars = 60, .min_lines = 15});
    lvw.SetRowSource(std::make_shared<ManyNames>(100000));
    lvw.SetEmptyText("No alias matches.");
    txtSearch.on_change = [this] { lvw.SetFilter(txtSearch.Text()); };
    lvw.on_double_click = [this] { Hide(); };
    cmdOk.SetCaption("OK");
    cmdOk.SetDefault(true);
    cmdOk.on_click = [this] { Hide(); };
    cmdCancel.SetCaption("Cancel");
    cmdCancel.SetCancel(true);
    cmdCancel.on_click = [this] { Hide(); };
    SetResizable(true);
  }
  forms::Label lblSearch{this, "lblSearch"};
  forms::TextBox txtSearch{this, "txtSearch"};
  forms::ListView lvw{this, "lvw"};
  forms::Button cmdOk{this, "cmdOk"};
  forms::Button cmdCancel{this, "cmdCancel"};
};

// A window with menus, a toolbar, two grids one on top of the other, a splitter and a status bar.
class GridsForm : public forms::Form {
 public:
  explicit GridsForm(std::size_t aliases = 100000) : Form("GridsForm", forms::FormLayout::kFixed) {
    SetCaption("OrvanaStudio Formula Editor  Formula Definition: Formula1");
    SetBounds({600, 600, 12000, 7500});
    MakeMenus();
    MakeGrids(aliases);
    for (int i = 0; i < 4; ++i) sb.AddPanel();
    sb.SetPanelText(0, "Function:");
    sb.SetPanelText(1, "Formula Definitions:12");
    sb.SetPanelText(2, "Arguments:3");
    sb.SetPanelText(3, "VBAlias:100000");
    on_resize = [this] { Arrange(); };
  }

  forms::MenuControl abr{this, "abr"};
  forms::Toolbar tbrfunc{this, "tbrfunc"};
  forms::Grid tdbA{this, "tdbA"};
  forms::Grid tdbP{this, "tdbP"};
  forms::Splitter pctSplit{this, "pctSplit"};
  forms::StatusBar sb{this, "sb"};

  std::shared_ptr<forms::MemoryRows> arguments = std::make_shared<forms::MemoryRows>();
  std::vector<std::string> log;

  void Log(std::string line) { log.push_back(std::move(line)); }

 private:
  void MakeMenus() {
    auto& main = abr.AddBand("mnuMain");
    main.AddTool("mnuParameters", forms::ToolKind::kSubmenu)
        .SetSubBand("mnuParameter")
        .SetCaption("A&rgument");
    main.AddTool("mnuOptions", forms::ToolKind::kSubmenu)
        .SetSubBand("mnuOption")
        .SetCaption("&Extras");
    auto& band = abr.AddBand("mnuParameter");
    band.AddTool("mnuParameterDescriptor", forms::ToolKind::kLabel).SetCaption("Argument");
    band.AddTool("mnuParameterNew").SetCaption("&New").SetShortcut("F8").SetIcon("new");
    band.AddTool("mnuParameterEdit").SetCaption("&Edit").SetShortcut("F9").SetIcon("edit");
    band.AddTool("mnuParameterDelete")
        .SetCaption("&Delete")
        .SetShortcut("Ctrl+Del")
        .SetIcon("delete")
        .SetEnabled(false)
        .SetDisabledReason("Select the arguments to delete.");
    auto& options = abr.AddBand("mnuOption");
    options.AddTool("mnuOptionActualize").SetCaption("Refresh View").SetIcon("refresh");
    options.AddTool("mnuOptionsSep0", forms::ToolKind::kSeparator);
    options.AddTool("mnuOptionOption").SetCaption("Options").SetIcon("options");
    abr.SetMenuBar("mnuMain");
    abr.on_tool_click = [this](forms::Tool& tool) { Log("click " + tool.Name()); };
    abr.on_band_open = [this](forms::Band& opened) { Log("open " + opened.Name()); };
    tbrfunc.SetBand(&band);
  }

  void MakeGrids(std::size_t aliases) {
    tdbA.AddSplit(3000).AddColumn("ItemID", 3000).SetButtonPicture("PICCHOOSE");
    tdbA.SplitAt(0).Columns()[0]->SetCaption("ItemID");
    tdbA.AddSplit(0).AddColumn("VBAlias", 3000).SetCaption("Alias");
    tdbA.SetRowSource(std::make_shared<ManyNames>(aliases));
    auto& alias = tdbP.AddSplit(3000).AddColumn("AliasID", 3000);
    alias.SetCaption("Alias");
    alias.SetKind(forms::ColumnKind::kDropDown);
    alias.SetList(std::make_shared<ManyNames>(100000));
    alias.SetButtonPicture("PICCHOOSE");
    auto& right = tdbP.AddSplit(0);
    right.AddColumn("In", 1995).SetCaption("Input Value");
    right.AddColumn("Out", 1995).SetCaption("Return Value");
    for (std::size_t column : {1, 2}) tdbP.ColumnAt(column).SetKind(forms::ColumnKind::kCheckBox);
    tdbP.SetEmptyText("No arguments yet. F8 adds one.");
    for (int i = 0; i < 3; ++i) {
      arguments->All().push_back({10 + i,
                                  {platform::Variant(ManyNames::Name(static_cast<std::size_t>(i))),
                                   platform::Variant(i % 2 == 0), platform::Variant(i == 1)}});
    }
    tdbP.SetRowSource(arguments);
    tdbP.on_write = [this](std::int64_t id, const std::vector<forms::CellChange>& changes) {
      for (auto& row : arguments->All()) {
        if (row.id != id) continue;
        for (const auto& change : changes) row.cells[change.column] = change.new_value;
      }
      Log("write " + std::to_string(id));
      for (const auto& change : changes) Log(change.field + "=" + change.new_value.ToText());
    };
    tdbP.on_after_column_update = [this](std::size_t) { tdbP.Update(); };
    tdbP.on_key_down = [this](forms::KeyEvent& key) {
      if (key.key_code == forms::kKeyF8) {
        key.handled = true;
        Log("F8");
      }
    };
    tdbP.on_double_click = [this] { Log("double click"); };
    tdbP.on_button_click = [this](std::size_t column) { Log("button " + std::to_string(column)); };
    tdbP.on_mouse_up = [this](const forms::MouseEvent& event) {
      Log("mouse up " + std::to_string(event.button));
    };
  }

  void Arrange() {
    constexpr double kBar = 540, kStatus = 360;
    double width = ClientWidth(), height = ClientHeight();
    tbrfunc.SetBounds({0, 0, width, kBar});
    sb.SetBounds({0, height - kStatus, width, kStatus});
    forms::Bounds middle{0, kBar, width, height - kBar - kStatus};
    tdbA.SetBounds(middle);
    tdbP.SetBounds(middle);
    pctSplit.SetBounds({tdbP.SplitAt(0).Width() + 30, kBar, 60, middle.height});
  }
};

}  // namespace samples
