// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check/check.h"
#include "check/findings.h"
#include "codegen/project_code.h"
#include "messages/message.h"
#include "platform/vbide.h"
#include "vbcode/program.h"

namespace check {

// The code of all open Visual Basic projects, each module read once.
class Modules {
 public:
  struct Module {
    std::shared_ptr<platform::VBComponent> component;
    std::string prog_id;
    bool is_wanted = true;  // otherwise nothing below is known
    bool can_hold_formulas = false;
    std::int32_t code = vbcode::kNone;  // number in the program
    messages::Message problem;          // why it is not there
  };

  // Judges files and single lines on the way. Reads only what changed, where that is given.
  Modules(const Parts& parts, Findings& findings, const Progress& progress,
          const Changed* changed = nullptr);

  const std::vector<Module>& modules() const { return modules_; }
  // REQUIRES: there is a development environment.
  const vbcode::Program& program() const { return code_->program(); }
  // Whether all modules are wanted.
  bool AreAll() const { return !changed_ || changed_->rows; }
  // Null when no project has it.
  const Module* Find(std::string_view prog_id) const;
  std::string File(std::int32_t code) const { return code_->ComponentOf(code).FileName(); }

 private:
  bool IsWanted(const platform::VBComponent& component) const {
    return AreAll() || changed_->classes.contains(component.FileName());
  }

  const Changed* changed_;
  std::unique_ptr<codegen::ProjectCode> code_;
  std::vector<Module> modules_;
};

}  // namespace check
