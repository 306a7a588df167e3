// SPDX-License-Identifier: MIT
#pragma once

#include <wx/timer.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "codegen/project_code.h"
#include "desktop/code_lookup.h"
#include "desktop/code_pane.h"
#include "desktop/project_context.h"

namespace desktop {

// Helps to write code, by reading what stands in the code pane and what the project knows:
// completes names, says what a name is, marks those that nobody declares, finds the procedures.
class CodeAssistant {
 public:
  // All of it outlives this object.
  struct Dependencies : ProjectContext {
    CodeLookup& lookup;
    CodePane& code;
  };

  explicit CodeAssistant(const Dependencies& own);
  ~CodeAssistant();
  CodeAssistant(const CodeAssistant&) = delete;
  CodeAssistant& operator=(const CodeAssistant&) = delete;

 private:
  // Reads the text as it stands now. False when there is none that can be read.
  bool Read();
  void Complete();
  // What the name at the place is, in lines; "" when nothing is known. Byte position.
  std::string Describe(int position);
  void ShowUnknown();
  void ShowProcedures();

  std::vector<std::string> NamesHere(std::string_view object);
  void AddAliases(std::vector<std::string>& names, std::int32_t procedure);
  std::string DescribeAlias(const std::string& name, std::int32_t procedure);
  // The formula whose procedure it is; nothing for other procedures.
  std::optional<store::FormulaRecord> FormulaOf(std::int32_t procedure);
  store::Operations* operations() const;

  const Dependencies own_;
  wxTimer timer_;
  std::string file_;  // whose module was read
  std::optional<codegen::ProjectCode> code_;
  std::int32_t module_ = vbcode::kNone;
  std::unordered_set<std::string> looked_up_;  // unknown names, without case
  bool is_current_ = false;                    // nothing was typed since it was read
};

}  // namespace desktop
