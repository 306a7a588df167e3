// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <wx/clipbrd.h>
#include <wx/dataview.h>
#include <wx/toplevel.h>

#include <algorithm>

#include "tests/wx/display.h"
#include "tests/wx/sample_forms.h"

namespace {

using display::Press;
using display::Type;
using platform::Variant;

class GridTest : public ::testing::Test {
 protected:
  void SetUp() override {
    toolkit.ShowModeless(form);
    ASSERT_TRUE(display::WaitFor([this] {
      auto* top = dynamic_cast<wxTopLevelWindow*>(toolkit.WindowOf(form));
      return top->IsActive();
    }));
    display::Pump(200);
  }
  void TearDown() override {
    toolkit.Unload(form);
    display::Pump(100);
  }

  wxDataViewCtrl& List(const char* grid) {
    wxWindow* panel = display::FindWindow(grid);
    for (wxWindow* child : panel->GetChildren()) {
      if (auto* list = dynamic_cast<wxDataViewCtrl*>(child)) return *list;
    }
    throw std::runtime_error("no list");
  }
  // A point in the middle of a cell, in the coordinates of the list.
  wxPoint CellAt(wxDataViewCtrl& list, unsigned row, unsigned column) {
    auto* model = dynamic_cast<wxDataViewVirtualListModel*>(list.GetModel());
    wxRect place = list.GetItemRect(model->GetItem(row), list.GetColumn(column));
    return {place.x + place.width / 2, place.y + place.height / 2};
  }
  void Focus(forms::Grid& grid, std::size_t row) {
    grid.SetFocus();
    grid.SetCurrentId(grid.IdAt(row));
    display::Pump(100);
  }
  bool Logged(const std::string& line) {
    return std::find(form.log.begin(), form.log.end(), line) != form.log.end();
  }
  platform::Variant Argument(std::size_t row, std::size_t column) {
    return form.arguments->All()[row].cells[column];
  }

  texts::TextTable texts{texts::Language::kEnglish};
  wx::Toolkit toolkit{texts};
  samples::GridsForm form;
};

TEST_F(GridTest, EditsACellInPlace) {
  Focus(form.tdbP, 1);
  Press(WXK_F2);
  EXPECT_TRUE(form.tdbP.EditActive());
  Type("Level");
  EXPECT_EQ(form.tdbP.EditValue(), Variant("Level"));
  Press(WXK_RETURN);
  EXPECT_TRUE(display::WaitFor([this] { return Argument(1, 0) == Variant("Level"); }));
  EXPECT_FALSE(form.tdbP.EditActive());

  Press(WXK_F2);
  Type("Other");
  Press(WXK_ESCAPE);
  EXPECT_TRUE(display::WaitFor([this] { return !form.tdbP.EditActive(); }));
  EXPECT_EQ(Argument(1, 0), Variant("Level"));
}

TEST_F(GridTest, KeepsWhatWasTypedWhenAnotherRowIsClicked) {
  Focus(form.tdbP, 0);
  Press(WXK_F2);
  Type("Speed");
  wxDataViewCtrl& list = List("tdbP");
  display::Click(list, CellAt(list, 2, 1) - wxPoint(40, 0));
  EXPECT_TRUE(display::WaitFor([this] { return Argument(0, 0) == Variant("Speed"); }));
}

// A row that a slip of mouse or keyboard changes is found by nobody.
TEST_F(GridTest, ClicksAndLettersChangeNothing) {
  wxDataViewCtrl& list = List("tdbP");
  for (int click = 0; click < 3; ++click) {
    display::Click(list, CellAt(list, 1, 0));
    display::Pump(700);  // longer than a double click takes
    EXPECT_FALSE(form.tdbP.EditActive()) << click;
  }
  EXPECT_EQ(form.tdbP.SelectedIds(), std::vector<std::int64_t>{11});
  Type("xyz");
  EXPECT_FALSE(form.tdbP.EditActive());
  Press(WXK_DOWN);
  EXPECT_EQ(form.tdbP.CurrentId(), 12);
  EXPECT_TRUE(std::none_of(form.log.begin(), form.log.end(),
                           [](const std::string& line) { return line.starts_with("write"); }));
}

TEST_F(GridTest, ThereIsOneCurrentRow) {
  wxDataViewCtrl& list = List("tdbP");
  display::Click(list, CellAt(list, 0, 0));
  display::Click(list, CellAt(list, 2, 0), wxMOUSE_BTN_RIGHT);
  EXPECT_EQ(form.tdbP.CurrentId(), 12);
  EXPECT_EQ(form.tdbP.SelectedIds(), std::vector<std::int64_t>{12});
  Press(WXK_F2);
  EXPECT_EQ(form.tdbP.EditValue(), form.tdbP.Cell(2, 0));
  Press(WXK_ESCAPE);

  form.tdbP.SetSelection({10, 11});  // a row of several stays one of them
  display::Click(list, CellAt(list, 1, 0), wxMOUSE_BTN_RIGHT);
  EXPECT_EQ(form.tdbP.CurrentId(), 11);
  EXPECT_EQ(form.tdbP.SelectedIds(), (std::vector<std::int64_t>{10, 11}));

  Press(WXK_DOWN, wxMOD_CONTROL);  // moves the keyboard alone
  EXPECT_EQ(form.tdbP.SelectedIds(), (std::vector<std::int64_t>{10, 11}));
  Press(WXK_F8);
  EXPECT_EQ(form.tdbP.CurrentId(), 12) << "what a key is about";
}

TEST_F(GridTest, ChecksABoxWithMouseAndKeyboard) {
  wxDataViewCtrl& list = List("tdbP");
  display::Click(list, CellAt(list, 1, 1));
  EXPECT_TRUE(display::WaitFor([this] { return Argument(1, 1) == Variant(true); }));
  EXPECT_EQ(form.tdbP.CurrentId(), 11);
  EXPECT_TRUE(Logged("write 11"));
  Press(WXK_SPACE);
  EXPECT_TRUE(display::WaitFor([this] { return Argument(1, 1) == Variant(false); }));
}

TEST_F(GridTest, KeysAndMouseReachTheModel) {
  Focus(form.tdbP, 0);
  Press(WXK_F8);
  EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "F8"), 1);
  EXPECT_FALSE(Logged("click mnuParameterNew"));  // the menu's shortcut is not an accelerator
  Press(WXK_DOWN);
  EXPECT_EQ(form.tdbP.CurrentId(), 11);
  Press(WXK_DOWN, wxMOD_SHIFT);
  EXPECT_EQ(form.tdbP.SelectedIds(), (std::vector<std::int64_t>{11, 12}));
  Press('A', wxMOD_CONTROL);
  EXPECT_EQ(form.tdbP.SelectedCount(), 3u);
  wxDataViewCtrl& list = List("tdbP");
  display::Click(list, CellAt(list, 1, 0), wxMOUSE_BTN_RIGHT);
  EXPECT_TRUE(Logged("mouse up 2"));
  wxRect cell = list.GetItemRect(wxDataViewItem(list.GetCurrentItem()), list.GetColumn(0));
  display::Click(list, {cell.GetRight() - 10, cell.y + cell.height / 2});
  EXPECT_TRUE(display::WaitFor([this] { return Logged("button 0"); }));
}

TEST_F(GridTest, CopiesSelectedRowsAsTabSeparatedText) {
  Focus(form.tdbP, 0);
  form.tdbP.SetSelection({10, 11});
  form.tdbP.SetDisplayOrder({0, 2, 1});
  display::Pump(100);
  Press('C', wxMOD_CONTROL);
  ASSERT_TRUE(wxTheClipboard->Open());
  wxTextDataObject text;
  wxTheClipboard->GetData(text);
  wxTheClipboard->Close();
  EXPECT_EQ(text.GetText().utf8_string(), "Tank000000_Level\t0\t1\nTank000001_Level\t1\t0\n");
}

TEST_F(GridTest, FiltersAHundredThousandRows) {
  form.tdbA.BringToFront();
  Focus(form.tdbA, 0);
  Press('F', wxMOD_CONTROL);
  Type("09999");
  EXPECT_TRUE(display::WaitFor([this] { return form.tdbA.RowCount() == 11; }));
  Press(WXK_ESCAPE);
  EXPECT_EQ(form.tdbA.RowCount(), 100000u);
  Press(WXK_END);
  EXPECT_EQ(form.tdbA.CurrentPosition(), 99999u);
}

TEST_F(GridTest, TheUserSizesColumnsAndTheModelKnows) {
  wxDataViewCtrl& list = List("tdbP");
  wxRect cell = list.GetItemRect(list.GetTopItem(), list.GetColumn(0));
  int border = cell.GetRight() + 1;
  display::Drag(list, {border, 10}, {border + 60, 10});
  EXPECT_NEAR(form.tdbP.ColumnAt(0).Width(), 3900, 60);
  form.tdbP.ColumnAt(0).SetWidth(1500);
  display::Pump(200);
  EXPECT_EQ(form.tdbP.ColumnAt(0).Width(), 1500);
  EXPECT_EQ(list.GetColumn(0)->GetWidth(), 100);
}

TEST_F(GridTest, TheUserMovesColumnsInTheirSplit) {
  using Order = std::vector<std::size_t>;
  wxDataViewCtrl& list = List("tdbP");
  const auto drag = [&](unsigned from, unsigned to, int beside) {
    const auto header = [&](unsigned column) {
      const wxRect cell = list.GetItemRect(list.GetTopItem(), list.GetColumn(column));
      return wxPoint(cell.x + cell.width / 2, 10);
    };
    const wxPoint start = header(from), end = header(to);
    display::Drag(list, start, {end.x + beside, end.y});
    display::Pump(300);
  };
  const auto shown = [&] {
    Order order;
    for (unsigned i = 0; i < 3; ++i) order.push_back(list.GetColumn(i)->GetModelColumn());
    return order;
  };
  struct Case {
    unsigned from, to;
    int beside;
    Order order;
  };
  const Case cases[] = {
      {2, 1, -20, {0, 2, 1}},
      {0, 1, 40, {0, 2, 1}},   // the only one of its split
      {2, 0, -20, {0, 1, 2}},  // as far as its split reaches
      {1, 2, 20, {0, 2, 1}},
  };
  for (const Case& c : cases) {
    drag(c.from, c.to, c.beside);
    EXPECT_EQ(form.tdbP.DisplayOrder(), c.order) << c.from << " to " << c.to;
    EXPECT_EQ(shown(), c.order) << c.from << " to " << c.to;
  }
}

TEST_F(GridTest, MenusShowWhatTheBandShowsNow) {
  form.abr.FindTool("mnuParameterEdit")->SetVisible(false);
  Press('R', wxMOD_ALT);
  display::Pump(200);
  EXPECT_TRUE(Logged("open mnuParameter"));
  Press('N');
  EXPECT_TRUE(display::WaitFor([this] { return Logged("click mnuParameterNew"); }));
  form.abr.FindTool("mnuParameters")->SetVisible(false);
  Press('R', wxMOD_ALT);
  Press(WXK_ESCAPE);
  EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "open mnuParameter"), 1);
}

TEST_F(GridTest, OneOfTwoGridsIsInFront) {
  EXPECT_NE(display::FindWindow("tdbP"), nullptr);
  EXPECT_EQ(display::FindWindow("tdbA"), nullptr);
  form.tdbA.BringToFront();
  form.pctSplit.BringToFront();
  display::Pump(100);
  EXPECT_EQ(display::FindWindow("tdbP"), nullptr);
  EXPECT_NE(display::FindWindow("tdbA"), nullptr);
}

}  // namespace
