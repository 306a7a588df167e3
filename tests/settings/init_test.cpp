// SPDX-License-Identifier: MIT
#include "settings/init.h"

#include <gtest/gtest.h>

#include <string>

#include "forms/form.h"
#include "forms/grid.h"
#include "forms/status_bar.h"
#include "settings/defaults.h"
#include "settings/setting_text.h"
#include "tests/support/memory_settings.h"

namespace settings {
namespace {

using platform::Variant;

constexpr std::string_view kFile = "C:\\Studio\\OVEditors.ini";
constexpr std::string_view kAliasWidth = "tdbP.Splits(0).Columns(\"AliasID\").Width";

class EditorForm : public forms::Form {
 public:
  EditorForm() : Form("frmtabgrid") {
    tdbP.AddSplit(3000).AddColumn("AliasID", 100);
    forms::Split& right = tdbP.AddSplit(0);
    right.AddColumn("In", 100);
    right.AddColumn("Out", 100);
  }
  forms::Grid tdbP{this, "tdbP"};
  forms::StatusBar sb{this, "sb"};
};

TEST(SettingText, ConvertsBothWays) {
  struct Case {
    const char* text;
    Variant value;
    const char* written;  // with a decimal comma
  };
  const Case cases[] = {
      {"8,25", 8.25, "8,25"},
      {"3000,189", 3000.189, "3000,189"},
      {"3000.189", 3000.189, "3000,189"},
      {"  12", 12.0, "12"},
      {"12 px", 12.0, "12"},
      {"0", 0.0, "0"},
      {"1,2,3", 1.2, "1,2"},
      {"-1", "-1", "-1"},
      {" -5,5", "-5,5", "-5,5"},
      {",2,3", ",2,3", ",2,3"},
      {"yes", "yes", "yes"},
      {"TRUE", true, "True"},
      {"True", true, "True"},
      {" false", false, "False"},
      {"tRUE", "tRUE", "tRUE"},
      {"True ", "True ", "True "},
      {"", "", ""},
      {"   ", "", ""},
      {"1e999", "1e999", "1e999"},
      {"Arial", "Arial", "Arial"},
  };
  for (const Case& c : cases) {
    Variant value = ValueFromText(c.text);
    EXPECT_EQ(value, c.value) << c.text;
    EXPECT_EQ(TextFromValue(value, ','), c.written) << c.text;
  }
  EXPECT_EQ(TextFromValue(Variant(1995.024), '.'), "1995.024");
  EXPECT_EQ(TextFromValue(Variant(7), ','), "7");
  EXPECT_EQ(TextFromValue(Variant(), ','), "");
}

class InitTest : public ::testing::Test {
 protected:
  InitTest() { init.LoadDefaultInit(kEditorSettings); }
  std::string FileValue(std::string_view key) { return file.Ini(kFile, kEditorSettings, key); }

  support::MemorySettings file;
  CInit init{file};
};

TEST_F(InitTest, HoldsTheDefaults) {
  const std::pair<const char*, Variant> cases[] = {
      {"Me.WindowState", 2.0},
      {"Me.Font.Size", 8.25},
      {"tdbA.Font.Weight", 400.0},
      {"tdbP.Splits(0).Columns(\"AliasID\").Width", 3000.189},
      {"tdbP.Splits(0).Columns(\"AliasID\").Order", 1.0},
      {"tdbP.Splits(1).Columns(\"Out\").AllowSizing", true},
      {"tdbA.Splits(1).Columns(\"VBAlias\").Visible", true},
      {"tdbAColOrders", ",2,3"},
      {"tdbPColOrders", ",2,3,4"},
      {"saveonexit", true},
      {"LoadOnForeGround", true},
      {"Me.Font.Italic", false},
  };
  for (const auto& [key, value] : cases) {
    EXPECT_EQ(init.ReadAValueFromCInits(key), value) << key;
    EXPECT_TRUE(init.ParamExist(key)) << key;
  }
  for (const char* key : {"", "Me", "Me.", "Me.Font", "Me.Font.Size.More", "Nothing", "..", "."}) {
    EXPECT_FALSE(init.ParamExist(key)) << key;
    EXPECT_TRUE(init.ReadAValueFromCInits(key).IsEmpty()) << key;
  }
  init.LoadDefaultInit("Unknown");
  EXPECT_EQ(init.Items().Count(), 0u);
}

TEST_F(InitTest, ReadsOnlyWhatItKnows) {
  file.SetIni(kFile, kEditorSettings, "saveONexit", "False");
  file.SetIni(kFile, kEditorSettings, kAliasWidth, "1234,5");
  file.SetIni(kFile, kEditorSettings, "Me.Font.Name", "  Courier New");
  file.SetIni(kFile, kEditorSettings, "Me.PosLeft", "-7");
  file.SetIni(kFile, kEditorSettings, "Stranger", "1");
  file.SetIni(kFile, "Other", "RequestOnDelete", "False");
  init.LoadInits(kFile);
  EXPECT_EQ(init.ReadAValueFromCInits("SaveOnExit"), Variant(false));
  EXPECT_EQ(init.ReadAValueFromCInits(kAliasWidth), Variant(1234.5));
  EXPECT_EQ(init.ReadAValueFromCInits("Me.Font.Name"), Variant("Courier New"));
  EXPECT_EQ(init.ReadAValueFromCInits("Me.PosLeft"), Variant("-7"));
  EXPECT_EQ(init.ReadAValueFromCInits("RequestOnDelete"), Variant(true));
  EXPECT_FALSE(init.ParamExist("Stranger"));
}

TEST_F(InitTest, ComesBackFromItsOwnFile) {
  for (char sign : {',', '.'}) {
    CInit writer(file, sign);
    writer.LoadDefaultInit(kEditorSettings);
    writer.LoadInits(kFile);
    writer.WriteAValueToCInits(kAliasWidth, Variant(0.1 + 0.2));
    writer.WriteAValueToCInits("tdbPColOrders", Variant(",0,2,1"));
    int replacements = file.ini_replacements;
    EXPECT_TRUE(writer.SaveInits());
    EXPECT_EQ(file.ini_replacements, replacements + 1);
    EXPECT_EQ(FileValue(kAliasWidth), std::string("0") + sign + "30000000000000004");

    CInit reader(file, sign == ',' ? '.' : ',');
    reader.LoadDefaultInit(kEditorSettings);
    reader.LoadInits(kFile);
    EXPECT_EQ(reader.ReadAValueFromCInits(kAliasWidth), Variant(0.1 + 0.2));
    EXPECT_EQ(reader.ReadAValueFromCInits("TDBPColOrders"), Variant(",0,2,1"));
    EXPECT_EQ(reader.Items().Count(), init.Items().Count());
  }
  file.writable = false;
  EXPECT_FALSE(init.SaveInits());
  EXPECT_FALSE(init.WriteToIni("SaveOnExit", Variant(false)));
}

TEST_F(InitTest, AppliesAndReadsBackByPath) {
  EditorForm form;
  init.WriteAValueToCInits("Me.Width", Variant("-5"));
  init.WriteAValueToCInits("Me.Height", Variant("1e300"));
  init.WriteAValueToCInits("tdbP.Splits(9).Columns(\"Gone\").Width", Variant(1.0));
  init.SetInitToControl(form, "sb");
  EXPECT_EQ(form.tdbP.ColumnAt(0).Width(), 100);
  init.SetInitToMotherObject(form);
  EXPECT_EQ(form.GetWindowState(), forms::WindowState::kMaximized);
  EXPECT_EQ(form.Width(), -5);
  EXPECT_EQ(form.Height(), 0);
  EXPECT_EQ(form.tdbP.ColumnAt(0).Width(), 100);
  form.SetWindowState(forms::WindowState::kNormal);
  init.SetInitToControl(form);
  EXPECT_EQ(form.tdbP.ColumnAt(0).Width(), 3000.189);
  EXPECT_EQ(form.GetWindowState(), forms::WindowState::kNormal);

  form.tdbP.ColumnAt(0).SetWidth(50);
  form.tdbP.ColumnAt(2).SetVisible(false);
  form.sb.SetVisible(false);
  init.GetInitFromControl(form, "TDBP");
  EXPECT_EQ(init.ReadAValueFromCInits(kAliasWidth), Variant(50.0));
  EXPECT_EQ(init.ReadAValueFromCInits("tdbP.Splits(1).Columns(\"Out\").Visible"), Variant(false));
  EXPECT_EQ(init.ReadAValueFromCInits("sb.Visible"), Variant(true));
  init.GetInitFromControl(form);
  EXPECT_EQ(init.ReadAValueFromCInits("sb.Visible"), Variant(false));
  EXPECT_EQ(init.ReadAValueFromCInits("Me.WindowState"), Variant(0));
  EXPECT_EQ(init.ReadAValueFromCInits("tdbP.Splits(9).Columns(\"Gone\").Width"), Variant(1.0));
}

TEST_F(InitTest, DeletesASettingAndNothingElse) {
  init.DeleteAValueInCInits("Me.Font");  // a step
  EXPECT_TRUE(init.ParamExist("Me.Font.Size"));
  init.DeleteAValueInCInits("SaveOnExit.More");
  EXPECT_TRUE(init.ParamExist("SaveOnExit"));
  init.DeleteAValueInCInits("saveonexit");
  EXPECT_FALSE(init.ParamExist("SaveOnExit"));
  init.DeleteAValueInCInits("sb.Visible");
  EXPECT_FALSE(init.ParamExist("sb"));  // the step does not become a setting
  EXPECT_TRUE(init.ParamExist("Me.Font.Size"));
}

}  // namespace
}  // namespace settings
