// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/unit_of_work.h"
#include "platform/vbide.h"

namespace studio {

// A module's visible lines in an editor that a user types into.
class CodeDocument {
 public:
  // Both must outlive the document.
  CodeDocument(platform::UnitOfWork& unit, platform::CodeModule& module)
      : unit_(unit), module_(module) {}

  // Reads the module. Lines end with LF; the last line has no end.
  const std::string& Load();
  // Goes on with what a Load of somebody else read.
  void Resume(std::string text) { text_ = std::move(text); }
  // What Load, Save or Merge saw last.
  const std::string& text() const { return text_; }
  // What the module holds now.
  std::string Current();
  // Whether the module holds something else now than it did then.
  bool ChangedMeanwhile();

  // What the user typed together with what the module holds now, which is then the text that was
  // seen. Nothing, and no change, when both changed the same place.
  std::optional<std::string> Merge(std::string_view typed);

  // Writes the lines that differ as one unit of work; the others keep their bytes and hidden
  // lines. Raises platform::Error, changing nothing: kConflict when the module changed meanwhile.
  void Save(std::string_view text);

 private:
  platform::UnitOfWork& unit_;
  platform::CodeModule& module_;
  std::string text_;
};

}  // namespace studio
