// SPDX-License-Identifier: MIT
#include "desktop/code_search.h"

#include <wx/utils.h>

#include <set>
#include <utility>

#include "codegen/code_texts.h"
#include "desktop/change_preview.h"
#include "desktop/search_texts.h"
#include "editor/node_key.h"
#include "messages/text_number.h"
#include "platform/error.h"
#include "wx/convert.h"

namespace desktop {

namespace {

using codegen::CodePlace;

constexpr std::size_t kPreviewedLines = 1000;

std::string Trimmed(const std::string& line) {
  const std::size_t begin = line.find_first_not_of(" \t");
  return begin == std::string::npos ? std::string() : line.substr(begin);
}

}  // namespace

CodeSearch::CodeSearch(const Dependencies& own) : own_(own) {
  own_.pane.on_find = [this] { Find(); };
  own_.pane.on_replace = [this] { Replace(); };
  own_.pane.on_close = [this] { own_.code.TakeKeyboard(); };
  own_.pane.on_select = [this](std::size_t row) {
    LookAt(CodePlace(places_[row]));
    TellPosition(row);
  };
  own_.pane.on_move_on = [this](bool backward) {
    if (const auto row = own_.pane.MoveOn(backward)) own_.pane.on_select(*row);
  };
  own_.code.on_find_elsewhere = [this](bool backward) { return GoOn(backward); };
  own_.pane.on_activate = [this](std::size_t row) {
    own_.lookup.GoTo(CodePlace(places_[row]));  // the list may change by it
  };
  own_.code.on_definition = [this] { GoToDefinition(); };
  own_.code.on_uses = [this] { ShowUses(Subject::kName); };
}

CodeSearch::~CodeSearch() {
  own_.pane.Close();
  own_.code.on_definition = own_.code.on_uses = [] {};
  own_.code.on_find_elsewhere = [](bool) { return false; };
}

void CodeSearch::Try(const std::function<void()>& task) {
  try {
    const wxBusyCursor busy;
    task();
  } catch (const platform::Error& error) {
    own_.messages.Fail(own_.parts.Text(kTextCannotSearch), own_.parts.texts.Sentence(error));
  }
}

void CodeSearch::TellUnread(const std::vector<messages::Message>& unread) {
  if (unread.empty()) return;
  own_.messages.Status(own_.parts.texts.Text(
      codegen::kTextNotSearched, {{"<Cause>", own_.parts.texts.Sentence(unread.front())}}));
}

// --- Texts ---

void CodeSearch::OpenFind() {
  const bool in_code = own_.code.IsDescendant(wxWindow::FindFocus());
  const std::string selected = in_code ? own_.code.SelectedText() : std::string();
  own_.pane.OpenFields(selected.find('\n') == std::string::npos ? selected : std::string());
}

std::string CodeSearch::CountText(messages::TextNumber number) const {
  std::set<std::string> files;
  for (const CodePlace& place : places_) files.insert(place.file);
  return own_.parts.texts.Text(number, {{"<Text>", found_},
                                        {"<Count>", std::to_string(places_.size())},
                                        {"<Files>", std::to_string(files.size())}});
}

void CodeSearch::Find() {
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  const std::string text = own_.pane.Wanted();
  if (!editor || text.empty()) return;
  Try([&] {
    codegen::FoundPlaces found = editor->operations().FindInCode(text, own_.pane.Options());
    places_ = std::move(found.places);
    found_ = text;
    own_.messages.Status("");
    own_.pane.ShowPlaces(CountText(places_.empty() ? kTextNowhere : kTextFound), Rows());
    TellUnread(found.unread);
  });
}

std::string CodeSearch::Preview() {
  std::vector<std::pair<const CodePlace*, std::string>> lines;
  for (const CodePlace& place : places_) {
    const CodePlace* last = lines.empty() ? nullptr : lines.back().first;
    if (!last || last->file != place.file || last->line != place.line)
      lines.push_back({&place, ""});
  }
  store::OperationOptions options;
  options.dry_run = true;
  options.inspect = [&] {
    for (auto& [place, line] : lines) line = own_.lookup.LineOf(place->file, place->line);
  };
  const store::OperationResult result =
      own_.session.add_in().EditorWindow()->operations().ReplaceInCode(
          places_, own_.pane.Replacement(), options);
  if (!result.success()) {
    own_.messages.Fail(own_.parts.Text(kTextCannotReplace),
                       own_.parts.texts.Sentence(messages::Lines(result.message, result.detail)));
    return {};
  }
  std::string text;
  for (std::size_t i = 0; i < lines.size() && i < kPreviewedLines; ++i) {
    const auto& [place, line] = lines[i];
    text += own_.parts.files.FileName(place->file) + ":" + std::to_string(place->line) + "\n- " +
            Trimmed(place->text) + "\n+ " + Trimmed(line) + "\n";
  }
  if (lines.size() > kPreviewedLines) {
    text += own_.parts.texts.Text(kTextMorePlaces,
                                  {{"<Count>", std::to_string(lines.size() - kPreviewedLines)}});
  }
  return text;
}

void CodeSearch::Replace() {
  Find();  // what is replaced is what the fields say now
  if (places_.empty()) return;
  Try([&] {
    const std::string preview = Preview();
    const bool confirmed =
        !preview.empty() &&
        ConfirmChange(wxGetTopLevelParent(&own_.pane), own_.parts.texts,
                      {own_.parts.Text(kTextReplaceTitle), CountText(kTextReplaceHeading),
                       own_.parts.Text(kTextReplaceNow), preview});
    if (!confirmed) return;
    const store::OperationResult result =
        own_.session.add_in().EditorWindow()->operations().ReplaceInCode(places_,
                                                                         own_.pane.Replacement());
    if (!result.success()) {
      return own_.messages.Fail(
          own_.parts.Text(kTextCannotReplace),
          own_.parts.texts.Sentence(messages::Lines(result.message, result.detail)));
    }
    own_.code.Refresh();
    const std::string replaced = CountText(kTextReplaced);
    places_.clear();
    own_.pane.ShowPlaces(replaced, {});
    own_.messages.Status(replaced);
  });
}

// --- Names ---

void CodeSearch::ShowUses(Subject subject) {
  Try([&] {
    if (subject == Subject::kName) {
      ShowUsesOfName();
    } else {
      ShowUsesOfSelection(subject == Subject::kRow);
    }
  });
}

void CodeSearch::ShowUsesOfSelection(bool of_row) {
  editor::frmtabgrid* editor = own_.session.add_in().EditorWindow();
  if (!editor) return;
  store::Operations& operations = editor->operations();
  // A menu of the tree may be about another node than the one that is selected.
  const std::string key = of_row ? editor->CurrentKey() : editor->ContextKey();
  const auto row = static_cast<std::int32_t>(editor->CurrentGrid().CurrentId().value_or(0));
  if (editor::IsFormulaKey(key) && of_row && row != 0) {
    if (const auto argument = operations.FindArgument(row))
      ShowFound(argument->vb_alias, operations.CodeUsesOfArgument(row));
  } else if (editor::IsFormulaKey(key)) {
    const std::int32_t id = editor::KeyNumber(key);
    if (const auto formula = operations.FindFormula(id))
      ShowFound(formula->name, operations.CodeUsesOfFormula(id));
  } else if (editor::KeyKind(key) == editor::kAliasKind && row != 0) {
    if (const auto alias = operations.FindAlias(row))
      ShowFound(alias->vb_alias, operations.CodeUsesOfAlias(row));
  } else {
    own_.messages.Status(own_.parts.Text(kTextChooseName));
  }
}

void CodeSearch::ShowFound(const std::string& name, codegen::FoundPlaces found) {
  places_ = std::move(found.places);
  const std::string title =
      own_.parts.texts.Text(places_.empty() ? kTextNotUsed : kTextUses,
                            {{"<Name>", name}, {"<Count>", std::to_string(places_.size())}});
  own_.pane.ShowPlacesAlone(title, Rows());
  own_.messages.Status(title);
  TellUnread(found.unread);
}

codegen::NameInCode CodeSearch::NameAtCaret() {
  platform::VBComponent* component = own_.code.Component();
  if (!component || !own_.code.Readable()) {
    own_.messages.Status(own_.parts.Text(kTextChooseName));
    return {};
  }
  const CodePane::Caret caret = own_.code.CaretInModule();
  if (caret.line == 0) {
    own_.messages.Status(own_.parts.Text(kTextSaveFirst));
    return {};
  }
  platform::VBE& vbe = *own_.opened.vb();
  const std::string prog_id = own_.lookup.ProgIdOf(component->FileName());
  codegen::NameInCode name = codegen::LookUpName(vbe, prog_id, caret.line, caret.column);
  if (name.name.empty() && caret.column > 1)  // right behind it
    name = codegen::LookUpName(vbe, prog_id, caret.line, caret.column - 1);
  if (name.name.empty()) own_.messages.Status(own_.parts.Text(kTextNoNameAtCaret));
  return name;
}

void CodeSearch::ShowUsesOfName() {
  codegen::NameInCode name = NameAtCaret();
  if (name.name.empty()) return;
  places_ = std::move(name.declared);
  const std::size_t declarations = places_.size();
  places_.insert(places_.end(), name.uses.begin(), name.uses.end());
  const std::string title = own_.parts.texts.Text(
      kTextUses, {{"<Name>", name.name}, {"<Count>", std::to_string(name.uses.size())}});
  own_.pane.ShowPlacesAlone(title, Rows(declarations));
  own_.messages.Status(title);
}

void CodeSearch::GoToDefinition() {
  Try([&] {
    codegen::NameInCode name = NameAtCaret();
    if (name.name.empty()) return;
    own_.messages.Status("");
    if (name.declared.size() == 1) {
      own_.lookup.GoTo(name.declared.front());
    } else if (name.declared.empty()) {
      own_.messages.Status(own_.parts.texts.Text(kTextNotDeclared, {{"<Name>", name.name}}));
    } else {
      places_ = std::move(name.declared);
      const std::string count = std::to_string(places_.size());
      own_.pane.ShowPlacesAlone(
          own_.parts.texts.Text(kTextDeclarations, {{"<Name>", name.name}, {"<Count>", count}}),
          Rows(places_.size()));
    }
  });
}

// --- Places ---

void CodeSearch::ShowNotices(const std::vector<platform::Notice>& notices) {
  Try([&] {
    std::vector<PlaceTable::Row> rows;
    places_.clear();
    for (const platform::Notice& notice : notices) {
      CodePlace place;
      place.file = notice.file;
      place.line = notice.line;
      place.column = 1;
      place.text = own_.lookup.LineOf(notice.file, notice.line);
      rows.push_back({"", own_.parts.files.FileName(notice.file), std::to_string(notice.line),
                      own_.parts.Text(kTextNotice), notice.text});
      places_.push_back(std::move(place));
    }
    const std::string count = std::to_string(places_.size());
    own_.pane.OfferPlaces(own_.parts.texts.Text(kTextNotices, {{"<Count>", count}}),
                          std::move(rows));
  });
}

void CodeSearch::LookAt(const CodePlace& place) {
  const platform::VBComponent* shown = own_.code.Component();
  if (own_.code.Modified() && shown && shown->FileName() != place.file) return;
  if (own_.lookup.ShowFile(place.file)) own_.code.SelectPlace(place);
}

bool CodeSearch::GoOn(bool backward) {
  const auto row = own_.pane.MoveOn(backward);
  if (!row) return false;
  if (own_.lookup.GoTo(CodePlace(places_[*row]))) TellPosition(*row);
  return true;
}

void CodeSearch::TellPosition(std::size_t row) {
  own_.messages.Status(own_.parts.texts.Text(
      kTextPosition,
      {{"<Number>", std::to_string(row + 1)}, {"<Count>", std::to_string(places_.size())}}));
}

std::vector<PlaceTable::Row> CodeSearch::Rows(std::size_t declarations) const {
  std::vector<PlaceTable::Row> rows;
  rows.reserve(places_.size());
  for (const CodePlace& place : places_) {
    const bool declares = rows.size() < declarations;
    const messages::TextNumber kind = declares ? kTextDeclaration : codegen::KindText(place);
    rows.push_back({place.procedure, own_.parts.files.FileName(place.file),
                    std::to_string(place.line), own_.parts.Text(kind), Trimmed(place.text)});
  }
  return rows;
}

}  // namespace desktop
