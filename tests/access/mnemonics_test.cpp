// SPDX-License-Identifier: MIT
// The underlined letters: within a window or menu each stands for one thing, in both languages.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/overview_texts.h"
#include "dialogs/falias.h"
#include "dialogs/farguments.h"
#include "dialogs/fchoose_alias.h"
#include "dialogs/fduplicate.h"
#include "dialogs/ffunction.h"
#include "dialogs/fimport.h"
#include "dialogs/fparameter.h"
#include "dialogs/many_texts.h"
#include "editor/fconfig_editor.h"
#include "platform/text.h"
#include "project/item_catalogue.h"
#include "studio/item_chooser.h"
#include "studio/window_texts.h"
#include "tests/dialogs/dialog_bench.h"
#include "tests/support/editor_bench.h"

namespace {

// The letter behind a single "&", in lower case; "" for none.
std::string Mnemonic(std::string_view caption) {
  for (std::size_t at = caption.find('&'); at != std::string_view::npos && at + 1 < caption.size();
       at = caption.find('&', at + 2)) {
    if (caption[at + 1] == '&') continue;
    std::size_t end = at + 1;
    platform::NextCodePoint(caption, end);
    return platform::FoldCase(caption.substr(at + 1, end - at - 1));
  }
  return "";
}

// Everything that is reached by its letter at the same time.
class Letters {
 public:
  void Add(const std::string& name, std::string_view caption) {
    const std::string letter = Mnemonic(caption);
    if (letter.empty()) return;
    const auto [place, added] = names_.emplace(letter, name);
    EXPECT_TRUE(added) << "\"" << letter << "\" is both " << place->second << " and " << name;
  }

  std::size_t Count() const { return names_.size(); }

 private:
  std::map<std::string, std::string> names_;
};

void AddControls(const forms::Container& container, Letters& letters) {
  for (const forms::Control* control : container.Controls()) {
    if (const auto* captioned = dynamic_cast<const forms::CaptionedControl*>(control))
      letters.Add(control->Name(), captioned->Caption());
    if (const auto* inner = dynamic_cast<const forms::Container*>(control))
      AddControls(*inner, letters);
  }
}

class Mnemonics : public testing::TestWithParam<texts::Language> {};

INSTANTIATE_TEST_SUITE_P(Languages, Mnemonics,
                         testing::Values(texts::Language::kGerman, texts::Language::kEnglish),
                         [](const auto& test) {
                           return test.param == texts::Language::kGerman ? "German" : "English";
                         });

TEST_P(Mnemonics, OfTheDialogsDoNotClash) {
  dialogs::DialogBench bench(GetParam());
  const project::ItemCatalogue items;
  dialogs::FFunction formula(*bench.context);
  dialogs::FParameter argument(*bench.context);
  dialogs::FAlias alias(*bench.context, 0);
  dialogs::FChooseAlias choose_alias(*bench.context);
  editor::FConfigEditor options(*bench.context);
  studio::ItemChooser choose_item(bench.toolkit, bench.texts, items, "items.csv");
  dialogs::FChooseAlias several(*bench.context, {"Add Aliases"});
  dialogs::FArguments flags(*bench.context, {"Level", "Run"});
  const exchange::CopySource source;
  dialogs::FDuplicate duplicate(*bench.context, source);
  dialogs::FImport import_list(*bench.context, "list.csv",
                               [](const auto&) { return std::nullopt; });
  // Texts that are shared with the studio have the letters that they have; Help has one everywhere.
  struct Case {
    forms::Form& form;
    std::size_t least;  // letters
  };
  const Case cases[] = {{formula, 2},   {argument, 2},   {alias, 1},       {choose_alias, 2},
                        {options, 5},   {several, 2},    {choose_item, 1}, {flags, 3},
                        {duplicate, 6}, {import_list, 7}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.form.Name());
    c.form.Load();
    Letters letters;
    AddControls(c.form, letters);
    EXPECT_GE(letters.Count(), c.least) << "captions without letters";
  }
}

TEST_P(Mnemonics, OfTheMenusDoNotClash) {
  const bool german = GetParam() == texts::Language::kGerman;
  support::EditorBench bench(german ? support::kGermanLcid : support::kEnglishLcid);
  bench.Start();
  for (const char* key : {"FOR0", "FORF0", "FORA0"}) {
    SCOPED_TRACE(key);
    bench.Click(key);
    for (const auto& band : bench.Window().abr.Bands()) {
      SCOPED_TRACE(band->Name());
      Letters letters;
      for (const forms::Tool* tool : band->Tools()) {
        if (tool->Visible() && tool->Kind() != forms::ToolKind::kLabel)
          letters.Add(tool->Name(), tool->Caption());
      }
      if (band->Name() != bench.Window().abr.MenuBar()) continue;
      // The workbench's menus stand in the same bar.
      const texts::TextTable texts(GetParam());
      for (const messages::TextNumber menu : {studio::kTextMenuProject, studio::kTextMenuHelp})
        letters.Add(std::to_string(ToInt(menu)), texts.Text(menu));
    }
  }
}

TEST_P(Mnemonics, OfTheWorkbenchMenusAreThereAndDoNotClash) {
  using namespace studio;
  const texts::TextTable texts(GetParam());
  const std::vector<messages::TextNumber> menus[] = {
      {kTextMenuNew, kTextMenuOpen, kTextMenuRecent, kTextMenuSaveCode, kTextMenuBackups,
       kTextMenuQuit},
      {kTextMenuContents, kTextMenuAbout},
      // The context menu of the overview.
      {desktop::kTextOpenFormula, desktop::kTextNewFormula, desktop::kTextEditFormula,
       desktop::kTextShowCode, desktop::kTextCopyName, dialogs::kTextCopyFormulas,
       dialogs::kTextPasteFormulas, desktop::kTextEnable, desktop::kTextDisable,
       desktop::kTextSetCallType, dialogs::kTextScanTimeMenu, desktop::kTextMoveToClass,
       desktop::kTextDeleteFormulas}};
  for (const auto& menu : menus) {
    Letters letters;
    for (const messages::TextNumber item : menu) {
      EXPECT_NE(Mnemonic(texts.Text(item)), "") << texts.Text(item);
      letters.Add(std::to_string(ToInt(item)), texts.Text(item));
    }
  }
}

}  // namespace
