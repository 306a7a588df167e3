// SPDX-License-Identifier: MIT
#include "forms/form.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "forms/combo_box.h"
#include "forms/fields.h"
#include "forms/grid.h"
#include "forms/menu_control.h"
#include "forms/status_bar.h"

namespace forms {
namespace {

using platform::Variant;

class SampleForm : public Form {
 public:
  SampleForm() : Form("SampleForm") {
    SetTag("C301");
    lblName.SetTag("C302");
    cmdOk.SetTag("10");
    txtName.SetTag("C303");
    Split& left = tdbP.AddSplit(3000);
    left.AddColumn("AliasID", 3000);
    Split& right = tdbP.AddSplit(0);
    right.AddColumn("In", 1995);
    right.AddColumn("Out", 1995);
  }

  Frame fraName{this, "fraName"};
  Label lblName{&fraName, "lblName"};
  TextBox txtName{&fraName, "txtName"};
  CheckBox chkFlag0{this, "chkFlag", 0};
  CheckBox chkFlag1{this, "chkFlag", 1};
  Grid tdbP{this, "tdbP"};
  Button cmdOk{this, "cmdOk"};
};

TEST(Path, ReachesEveryKindOfProperty) {
  SampleForm form;
  struct Case {
    const char* path;
    Variant value;
  };
  const Case cases[] = {
      {"Me.Width", 6000.0},
      {"me.caption", "Title"},
      {"Me.WindowState", 2},
      {"Me.Font.Size", 8.5},
      {"TXTNAME.Text", "x"},
      {"tdbP.Font.Name", "Courier"},
      {"tdbP.Font.Strikethrough", true},
      {"tdbP.Splits(0).Columns(\"AliasID\").Width", 3000.189},
      {"tdbp.splits(1).columns(\"out\").visible", false},
      {"tdbP.Splits(1).Columns(1).Order", 7},
      {"chkFlag(1).Enabled", false},
      {"cmdOk.Left", -15.0},
  };
  for (const Case& c : cases) {
    EXPECT_TRUE(SetByPath(form, c.path, c.value)) << c.path;
    EXPECT_EQ(GetByPath(form, c.path), c.value) << c.path;
  }
  EXPECT_EQ(form.tdbP.ColumnAt(2).Order(), 7);
  EXPECT_FALSE(form.chkFlag1.Enabled());
  EXPECT_TRUE(form.chkFlag0.Enabled());
}

TEST(Path, RefusesWhatDoesNotExist) {
  SampleForm form;
  const char* paths[] = {
      "",
      "Me",
      ".",
      "Me.",
      "Me..Width",
      "Me.Nothing",
      "Nobody.Width",
      "tdbP",
      "tdbP.Splits(2).Columns(\"In\").Width",
      "tdbP.Splits(-1).Width",
      "tdbP.Splits.Width",
      "tdbP.Splits(0).Columns(\"In\").Width",
      "tdbP.Splits(0).Columns(0.5).Width",
      "tdbP.Splits(\"0\").Width",
      "tdbP.Splits(0",
      "tdbP.Splits(0.Width",
      "tdbP.Splits()(0).Width",
      "chkFlag.Enabled",
      "chkFlag(2).Enabled",
      "tdbP.Font.Nothing",
      "txtName.Caption",
  };
  for (const char* path : paths) {
    EXPECT_FALSE(SetByPath(form, path, Variant(1))) << path;
    EXPECT_FALSE(GetByPath(form, path).has_value()) << path;
  }
}

TEST(Path, KeepsPropertiesFromAbsurdValues) {
  SampleForm form;
  EXPECT_FALSE(SetByPath(form, "Me.Font.Size", Variant(0.0)));
  EXPECT_FALSE(SetByPath(form, "Me.Font.Size", Variant(1e300)));
  EXPECT_FALSE(SetByPath(form, "Me.WindowState", Variant(3)));
  EXPECT_FALSE(SetByPath(form, "tdbP.Splits(0).Columns(\"AliasID\").Width", Variant("-5")));
  EXPECT_FALSE(SetByPath(form, "tdbP.Splits(0).Columns(\"AliasID\").Width", Variant(1e9)));
  EXPECT_EQ(form.tdbP.ColumnAt(0).Width(), 3000);
}

TEST(Captions, AreReplacedWhereTheTagNamesAText) {
  SampleForm form;
  form.cmdOk.SetCaption("as designed");
  form.chkFlag0.SetTag("Cx");
  form.chkFlag1.SetTag("C12x");
  LocaliseCaptions(
      form, [](messages::TextNumber number) { return "text " + std::to_string(ToInt(number)); });
  EXPECT_EQ(form.Caption(), "text 301");
  EXPECT_EQ(form.lblName.Caption(), "text 302");
  EXPECT_EQ(form.cmdOk.Caption(), "as designed");
  EXPECT_EQ(form.chkFlag0.Caption(), "");
  EXPECT_EQ(form.chkFlag1.Caption(), "");
}

TEST(Form, ClosesUnlessRefused) {
  SampleForm form;
  std::string log;
  bool refuse = true;
  form.on_load = [&] { log += "load "; };
  form.on_unload = [&] { log += "unload "; };
  form.on_query_unload = [&](bool& cancel, CloseReason) { cancel = refuse; };
  form.Load();
  form.Load();
  form.SetVisible(true);
  EXPECT_FALSE(form.Close(CloseReason::kUser));
  EXPECT_TRUE(form.Visible());
  refuse = false;
  EXPECT_TRUE(form.Close(CloseReason::kUser));
  EXPECT_FALSE(form.Visible());
  form.Unload();
  EXPECT_EQ(log, "load unload ");
}

TEST(Events, AreRaisedOncePerChange) {
  SampleForm form;
  ComboBox combo(&form, "cmbType");
  combo.AddItem("before", 4);
  combo.AddItem("asynchronous", 7);
  int clicks = 0;
  combo.on_click = [&] { ++clicks; };
  combo.SetListIndex(1);
  combo.SetListIndex(1);
  EXPECT_EQ(combo.ItemData(combo.ListIndex()), 7);
  combo.SetListIndex(2);  // there is none
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(clicks, 2);

  form.chkFlag0.on_click = [&] {
    ++clicks;
    form.chkFlag0.SetChecked(false);  // a rule that takes the click back
  };
  form.chkFlag0.SetChecked(true);
  EXPECT_FALSE(form.chkFlag0.Checked());
  EXPECT_EQ(clicks, 4);

  form.cmdOk.on_click = [&] { ++clicks; };
  form.cmdOk.SetEnabled(false);
  form.cmdOk.Click();
  EXPECT_EQ(clicks, 4);
}

TEST(Observers, MayComeAndGoWhileTheyAreTold) {
  SampleForm form;
  Subscription first, second;
  int told = 0;
  first = form.Observe([&](Property) {
    ++told;
    second = Subscription();
  });
  second = form.Observe([&](Property) { told += 100; });
  form.SetCaption("a");
  EXPECT_EQ(told, 1);
  form.SetCaption("a");
  EXPECT_EQ(told, 1);
  {
    auto outliving = std::make_unique<SampleForm>();
    second = outliving->Observe([](Property) {});
  }
  first = Subscription();
  form.SetCaption("b");
  EXPECT_EQ(told, 1);
}

TEST(Container, ForgetsControlsThatEnd) {
  SampleForm form;
  std::size_t count = form.Controls().size();
  {
    Button temporary(&form, "cmdTemporary");
    EXPECT_EQ(form.FindControl("CMDTEMPORARY"), &temporary);
    EXPECT_EQ(temporary.GetForm(), &form);
  }
  EXPECT_EQ(form.Controls().size(), count);
  EXPECT_EQ(form.FindControl("cmdTemporary"), nullptr);
  EXPECT_EQ(form.FindControl("txtName"), &form.txtName);
  form.fraName.BringToFront();
  EXPECT_EQ(form.ZOrder().back(), &form.fraName);
}

TEST(Menu, SharesToolsBetweenBandsAndLocalisesThem) {
  SampleForm form;
  MenuControl menu(&form, "abr");
  menu.AddBand("mnuFunction").AddTool("mnuFunctionNew").SetTag("141");
  Band& tools = menu.AddBand("tools");
  tools.AddTool("mnuFunctionNew");
  tools.AddTool("sep", ToolKind::kSeparator);
  int changes = 0;
  auto subscription = menu.Observe([&](Property) { ++changes; });
  menu.LocaliseTools(
      [](messages::TextNumber number) { return "text " + std::to_string(ToInt(number)); });
  EXPECT_EQ(tools.Tools()[0]->Caption(), "text 141");
  EXPECT_EQ(tools.Tools()[1]->Caption(), "");
  EXPECT_EQ(changes, 1);
  menu.FindTool("MNUFUNCTIONNEW")->SetEnabled(true);
  EXPECT_EQ(changes, 1);
}

TEST(StatusBar, TellsOnlyRealChanges) {
  SampleForm form;
  StatusBar bar(&form, "sb");
  bar.AddPanel();
  int changes = 0;
  auto subscription = bar.Observe([&](Property) { ++changes; });
  bar.SetPanelText(0, "VBAlias:3");
  bar.SetPanelText(0, "VBAlias:3");
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace forms
