// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "editor/frmtabgrid.h"
#include "files/file_system.h"
#include "history/recorder.h"
#include "history/undo.h"
#include "messages/text_number.h"
#include "platform/studio.h"
#include "platform/unit_of_work.h"
#include "texts/text_table.h"

namespace studio {

// What an editor's project can take back and do again, as its menus say it, and doing it: rows and
// code by the history, tree and editor behind them.
class UndoSteps {
 public:
  struct Parts {
    files::FileSystem& files;
    const texts::TextTable& texts;
    platform::UnitOfWork& unit;
    std::function<history::Recorder*()> recorder;  // null: operations leave no record
    std::function<editor::frmtabgrid*()> editor;   // null: there is none yet
    std::function<history::UndoRedo(editor::frmtabgrid&)> make;
    std::function<platform::AddIn&()> studio;
  };
  // What the parts refer to outlives this object.
  explicit UndoSteps(Parts parts) : parts_(std::move(parts)) {}

  // Reads the end of the history when that is another one than at the last call. True then.
  bool Look();
  // Why the last look could not read it; "" when it could.
  const std::string& problem() const { return problem_; }
  // The menu's entry, with the operation's title where there is one.
  std::string Caption(bool undo) const;
  // Why the entry cannot be chosen; "" when it can.
  std::string WhyNot(bool undo) const;

  enum class End { kNothing, kDone, kRefused, kUnreadable };
  struct Outcome {
    End end = End::kNothing;
    std::string text;    // what was done with its warnings, or why it was not
    std::string detail;  // what stands in the way
  };
  // Takes the operation of the number, or the next one, back or does it again. What is being edited
  // is stored before.
  Outcome Run(bool undo, std::optional<std::uint64_t> number = std::nullopt);

 private:
  std::string Text(messages::TextNumber number) const { return parts_.texts.Text(number); }
  Outcome Tell(bool undo, const history::Reverted& reverted, editor::frmtabgrid& editor) const;

  Parts parts_;
  std::optional<files::FileStamp> seen_;  // of the history when it was read
  bool looked_ = false;
  std::optional<history::Candidate> undo_, redo_;
  std::string problem_;
};

}  // namespace studio
