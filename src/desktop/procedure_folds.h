// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

class wxStyledTextCtrl;

namespace desktop {

struct CodePalette;

// Procedures that can be folded, in a margin of the code, which shows the one with the caret as a
// bracket.
class ProcedureFolds {
 public:
  // The editor outlives it. `margin`: the number of the margin.
  ProcedureFolds(wxStyledTextCtrl& editor, int margin);

  void SetColours(const CodePalette& palette);
  struct Lines {
    std::int32_t first = 0;  // from 1
    std::int32_t last = 0;
  };
  // In the order of their lines.
  void Show(const std::vector<Lines>& procedures);
  // Folds or unfolds the procedure with the caret; all of them.
  void Toggle();
  void ToggleAll();

 private:
  wxStyledTextCtrl& editor_;
  int margin_;
};

}  // namespace desktop
