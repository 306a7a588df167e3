// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "codegen/code_places.h"
#include "desktop/code_lookup.h"
#include "desktop/code_pane.h"
#include "desktop/project_context.h"
#include "desktop/search_pane.h"
#include "messages/text_number.h"

namespace desktop {

// Finds names and texts in the code of the open project, and goes to where they stand.
class CodeSearch {
 public:
  // All of it outlives this object.
  struct Dependencies : ProjectContext {
    CodeLookup& lookup;
    CodePane& code;
    SearchPane& pane;
  };

  explicit CodeSearch(const Dependencies& own);
  // The pane closes.
  ~CodeSearch();
  CodeSearch(const CodeSearch&) = delete;
  CodeSearch& operator=(const CodeSearch&) = delete;

  // Opens the fields for a text.
  void OpenFind();
  // What has the keyboard: the code's name at the caret, the table's row, the tree's node.
  enum class Subject { kName, kRow, kNode };
  void ShowUses(Subject subject);
  // Goes to where the name at the caret is declared.
  void GoToDefinition();
  // Shows what an operation has to say of places of the code, to be gone through.
  void ShowNotices(const std::vector<platform::Notice>& notices);

 private:
  void Find();
  void Replace();
  // The lines as they are and as they become; empty when they cannot, which is told.
  std::string Preview();
  void ShowUsesOfName();
  void ShowUsesOfSelection(bool of_row);
  void ShowFound(const std::string& name, codegen::FoundPlaces found);
  // Tells why when there is no name.
  codegen::NameInCode NameAtCaret();
  // Of the places, the first of which are declarations.
  std::vector<PlaceTable::Row> Rows(std::size_t declarations = 0) const;
  // Shows the place, which the keyboard does not follow, unless unsaved code of another module is
  // in sight.
  void LookAt(const codegen::CodePlace& place);
  // The keyboard is in the code and stays there, at the next place or the one before; false when
  // there is none.
  bool GoOn(bool backward);
  void TellPosition(std::size_t row);
  // Carries out under the hourglass; a failure is told.
  void Try(const std::function<void()>& task);
  void TellUnread(const std::vector<messages::Message>& unread);
  std::string CountText(messages::TextNumber number) const;

  const Dependencies own_;
  std::vector<codegen::CodePlace> places_;  // that the pane shows
  std::string found_;                       // the text that stands there
};

}  // namespace desktop
