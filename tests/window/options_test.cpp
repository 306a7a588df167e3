// SPDX-License-Identifier: MIT
// The options of the program, which are there without a project, too.
#include <gtest/gtest.h>
#include <wx/modalhook.h>
#include <wx/settings.h>

#include <utility>

#include "tests/window/desktop_program.h"
#include "wx/convert.h"

namespace {

using window_tests::DesktopProgram;
using window_tests::Input;

TEST(WorkbenchOptions, AreKeptForTheNextStart) {
  support::SamplePlant plant;
  {
    DesktopProgram program{plant.system, texts::Language::kEnglish};
    program.Choose("Program Options...");
    Input({"sleep 0.8", "key alt+l Down sleep 0.2", "key Up sleep 0.2", "key alt+h", "key alt+b",
           "key Return sleep 0.5"});
    EXPECT_EQ(program.Status(), "Saved. The next start shows the change.");
    program.Choose("Program Options...");
    Input({"sleep 0.8", "key alt+h", "key Escape sleep 0.5"});
  }
  const std::string kept = plant.system.Get("/home/config/registry.ini");
  EXPECT_NE(kept.find("History=0"), std::string::npos) << kept;
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  EXPECT_FALSE(program.state().with_backups);
}

// Presses "Default Fonts" and OK in the dialog that opens.
class TakesDefaultFonts : public wxModalDialogHook {
 public:
  TakesDefaultFonts() { Register(); }
  ~TakesDefaultFonts() override { Unregister(); }

 private:
  int Enter(wxDialog* dialog) override {
    dialog->CallAfter([dialog] {
      for (wxWindow* child : dialog->GetChildren()) {
        wxCommandEvent press(wxEVT_BUTTON, child->GetId());
        if (child->GetLabel() == "&Default Fonts") child->ProcessWindowEvent(press);
      }
      dialog->EndModal(wxID_OK);
    });
    return wxID_NONE;
  }
};

// Fonts are kept, and what is chosen is in sight at once.
TEST(WorkbenchOptions, FontsOfTablesAndCode) {
  support::SamplePlant plant;
  {
    DesktopProgram program{plant.system, texts::Language::kEnglish};
    wxFont font = *wxNORMAL_FONT;
    font.SetPointSize(17);
    program.state().table_font = wx::FromWx(font.GetNativeFontInfoDesc());
    font.SetPointSize(23);
    program.state().code_font = wx::FromWx(font.GetNativeFontInfoDesc());
  }
  DesktopProgram program{plant.system, texts::Language::kEnglish};
  ASSERT_TRUE(program.Open());
  Input({"key --delay 60 Home Down sleep 0.3"});
  const auto shown = [&] {
    return std::pair{program.Grid().GetFont().GetPointSize(),
                     program.Code().StyleGetFont(wxSTC_STYLE_DEFAULT).GetPointSize()};
  };
  EXPECT_EQ(shown(), (std::pair{17, 23}));
  program.Choose("Program Options...");
  const TakesDefaultFonts user;
  window_tests::Wait::For([&] { return program.state().code_font.empty(); });
  const int standard = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize();
  EXPECT_EQ(shown(), (std::pair{standard, standard}));
  EXPECT_EQ(program.state().table_font + program.state().code_font, "");
}

}  // namespace
