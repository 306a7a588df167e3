// SPDX-License-Identifier: MIT
#include "dialogs/check_field.h"

#include <gtest/gtest.h>

#include "forms/form.h"
#include "tests/support/scripted_toolkit.h"

namespace dialogs {
namespace {

struct Fields : forms::Form {
  forms::TextBox box{this, "box"};
  forms::Grid grid{this, "grid"};

  Fields() : Form("fields") {
    forms::Split& split = grid.AddSplit(0);
    split.AddColumn("Checked", 1000);
    split.AddColumn("Free", 1000);
    grid.SetRowSource(std::make_shared<forms::MemoryRows>(
        std::vector<forms::Row>{{1, {platform::Variant("a"), platform::Variant("b")}}}));
    grid.SetCurrentId(1);
  }
};

TEST(CheckField, StripsATextBoxAsItIsTyped) {
  Fields fields;
  support::ScriptedToolkit toolkit;
  CCheckField check(toolkit);
  check.InitializeTextBox(fields.box, 4, static_cast<std::int32_t>(FieldKind::kNoLetters));
  int changes = 0;
  fields.box.on_change = [&] { ++changes; };
  fields.box.SetText("250");
  EXPECT_EQ(toolkit.beeps, 0);
  fields.box.SetText("1x");
  EXPECT_EQ(toolkit.beeps, 1) << "nobody asked for a report";
  toolkit.beeps = 0;
  std::vector<std::string> reports;
  check.on_report = [&](const std::string& rejected) { reports.push_back(rejected); };
  fields.box.SetText("250ms");
  EXPECT_EQ(fields.box.Text(), "250");
  EXPECT_EQ(reports, std::vector<std::string>{"2"});
  EXPECT_EQ(toolkit.beeps, 1) << "one beep for two characters";
  fields.box.SetText("12345");
  EXPECT_EQ(fields.box.Text(), "1234") << "the greatest length";
  EXPECT_EQ(toolkit.beeps, 2);
}

TEST(CheckField, ChecksOneColumnOfAGrid) {
  Fields fields;
  support::ScriptedToolkit toolkit;
  CCheckField check(toolkit);
  check.InitializeGridColumn(fields.grid, 0, 0, static_cast<std::int32_t>(FieldKind::kLetters));
  fields.grid.BeginEdit(0);
  fields.grid.SetEditValue("Tank 1.Level");
  EXPECT_EQ(fields.grid.EditValue().ToText(), "TankLevel");
  EXPECT_EQ(toolkit.beeps, 1);
  fields.grid.BeginEdit(1);
  fields.grid.SetEditValue("1 2");
  EXPECT_EQ(fields.grid.EditValue().ToText(), "1 2");
  EXPECT_EQ(toolkit.beeps, 1);
}

}  // namespace
}  // namespace dialogs
