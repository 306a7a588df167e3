// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>

#include "tests/wx/display.h"
#include "tests/wx/sample_forms.h"

namespace {

using display::Press;
using display::Type;

class DialogTest : public ::testing::Test {
 protected:
  texts::TextTable texts{texts::Language::kEnglish};
  wx::Toolkit toolkit{texts};

  template <class Form>
  void Run(Form& form, std::vector<display::Step> steps) {
    display::DuringModal(std::move(steps));
    toolkit.ShowModal(form, nullptr);
    toolkit.Unload(form);
    EXPECT_TRUE(display::WaitFor([] { return !display::ScriptRuns(); }));
  }
};

TEST_F(DialogTest, IsFilledByKeyboardAlone) {
  samples::FieldsForm form(false);
  Run(form, {
                [] { Type("Pump1"); },          // the first field has the keyboard
                [] { Press('C', wxMOD_ALT); },  // mnemonic of a label
                [] { Press(WXK_DOWN); }, [] { Press('I', wxMOD_ALT); },
                [] { Type("Tank099"); },  // completed in a list of 100,000
                display::Step::Until([&] { return form.cmbAlias.Text() == "Tank099000_Level"; }),
                [] { Press('E', wxMOD_ALT); },  // check box
                display::Step::Until([&] { return !form.chkEnabled.Checked(); }),
                [] { Press(WXK_RETURN); },  // default button
            });
  EXPECT_EQ(form.txtName.Text(), "Pump1");
  EXPECT_EQ(form.cmbClass.ListIndex(), 0);
  EXPECT_EQ(form.cmbAlias.Text(), "Tank099000_Level");
  EXPECT_FALSE(form.chkEnabled.Checked());
  EXPECT_TRUE(form.confirmed);
}

TEST_F(DialogTest, EscapeAndCloseBoxCancel) {
  samples::FieldsForm form(true);
  Run(form, {[] { Type("x"); }, [] { Press(WXK_ESCAPE); }});
  EXPECT_FALSE(form.confirmed);
  EXPECT_EQ(form.txtName.Text(), "x");
  Run(form, {[] { Press(WXK_F4, wxMOD_ALT); }});
  EXPECT_FALSE(form.confirmed);
}

TEST_F(DialogTest, F1AndTheHelpButtonAskForHelp) {
  samples::FieldsForm form(false);
  form.cmdHelp.on_click = [this] { toolkit.SendKeys("{F1}"); };
  Run(form, {[] { Press(WXK_F1); }, [] { Press('H', wxMOD_ALT); },
             display::Step::Until([&] { return form.helps == 2; }), [] { Press(WXK_ESCAPE); }});
  EXPECT_EQ(form.helps, 2);
}

TEST_F(DialogTest, TabGoesThroughTheButtonsAsTheyStand) {
  samples::FieldsForm form(false);
  std::vector<wxWindow*> buttons;
  const auto note = [&] { buttons.push_back(wxWindow::FindFocus()); };
  Run(form, {[] { display::FindWindow("chkEnabled")->SetFocus(); }, [] { Press(WXK_TAB); }, note,
             [] { Press(WXK_TAB); }, note, [] { Press(WXK_TAB); }, note,
             [&] {
               for (std::size_t i = 1; i < buttons.size(); ++i) {
                 ASSERT_TRUE(buttons[i - 1] && buttons[i]);
                 EXPECT_LT(buttons[i - 1]->GetScreenPosition().x,
                           buttons[i]->GetScreenPosition().x);
               }
               EXPECT_EQ(buttons.back()->GetName(), "cmdOk");
             },
             [&] { form.Hide(); }});
}

TEST_F(DialogTest, AHiddenHintLeavesNoHole) {
  samples::FieldsForm form(false);
  form.lblHint.SetVisible(false);
  Run(form, {[] {
               const auto gap = [](const char* above, const char* below) {
                 return display::FindWindow(below)->GetScreenRect().GetTop() -
                        display::FindWindow(above)->GetScreenRect().GetBottom();
               };
               EXPECT_EQ(gap("cmbClass", "txtScan"), gap("txtName", "cmbClass"));
             },
             [&] { form.Hide(); }});
}

TEST_F(DialogTest, ShowsWhatTheModelChanges) {
  samples::FieldsForm form(false);
  std::string shown;
  int least_height = 0, height = 0;
  Run(form, {
                [&] {
                  form.txtName.SetText("by program");
                  auto* box = dynamic_cast<wxTextCtrl*>(display::FindWindow("txtName"));
                  ASSERT_NE(box, nullptr);
                  shown = box->GetValue().utf8_string();
                  height = display::FindWindow("FieldsForm")->GetSize().y;
                  form.lblHint.SetVisible(false);
                  least_height = display::FindWindow("FieldsForm")->GetMinSize().y;
                },
                [&] { form.Hide(); },
            });
  EXPECT_EQ(shown, "by program");
  EXPECT_LT(least_height, height);  // a hint that goes takes no room
}

TEST_F(DialogTest, FiltersAListOfManyRowsWhileTyping) {
  samples::ListForm form;
  Run(form, {
                [] { Type("0777"); },
                display::Step::Until([&] { return form.lvw.RowCount() == 120; }),
                [] { Press(WXK_TAB); },
                [] { Press(WXK_DOWN); },
                [] { Press(WXK_RETURN); },
            });
  EXPECT_EQ(form.lvw.RowCount(), 120u);
  ASSERT_TRUE(form.lvw.CurrentId().has_value());
}

TEST_F(DialogTest, MessageBoxAnswersWithItsDefault) {
  platform::MessageBox box{.prompt = "Delete?",
                           .detail = "Formula1",
                           .title = "",
                           .buttons = platform::MessageButtons::kYesNo,
                           .default_button = platform::MessageResult::kNo,
                           .icon = platform::MessageIcon::kQuestion};
  display::DuringModal({[] { Press(WXK_RETURN); }});
  EXPECT_EQ(toolkit.Show(box), platform::MessageResult::kNo);
  display::DuringModal({[] { Press('Y', wxMOD_ALT); }});
  EXPECT_EQ(toolkit.Show(box), platform::MessageResult::kYes);
  display::DuringModal({[] { Press(WXK_ESCAPE); }});
  EXPECT_EQ(toolkit.Show(box), platform::MessageResult::kNo);
}

TEST_F(DialogTest, ProgressComesUpWhenItTakesLongAndIsStopped) {
  const auto window = []() -> wxTopLevelWindow* {
    for (wxWindow* top : wxTopLevelWindows) {
      if (top->GetLabel() == "Delete aliases" && top->IsShown())
        return dynamic_cast<wxTopLevelWindow*>(top);
    }
    return nullptr;
  };
  {
    const auto progress = toolkit.StartProgress("Delete aliases");
    EXPECT_TRUE(progress->Show(0, 1000));
    EXPECT_EQ(window(), nullptr) << "a short task shows nothing";
    bool pressed = false;
    const wxStopWatch watch;
    while (progress->Show(400, 1000) && watch.Time() < 15000) {
      wxMilliSleep(5);
      if (pressed || !window() || !window()->IsActive()) continue;
      pressed = true;
      wxUIActionSimulator().Char(WXK_ESCAPE);
    }
    EXPECT_TRUE(pressed);
    EXPECT_FALSE(progress->Show(500, 1000));
  }
  EXPECT_EQ(window(), nullptr);
}

}  // namespace
