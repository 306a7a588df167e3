// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check/check.h"
#include "check/findings.h"
#include "platform/vbide.h"
#include "vbcode/program.h"

namespace check {

// The code of all open Visual Basic projects, each module read once.
class Modules {
 public:
  struct Module {
    std::shared_ptr<platform::VBComponent> component;
    std::string prog_id;
    bool can_hold_formulas = false;
    messages::Message problem;          // why it cannot be read; empty when it can
    std::int32_t code = vbcode::kNone;  // number in the program
  };

  // Judges files and single lines on the way.
  Modules(const Parts& parts, Findings& findings, const Progress& progress);

  const std::vector<Module>& modules() const { return modules_; }
  const vbcode::Program& program() const { return *program_; }
  // Null when no project has it.
  const Module* Find(std::string_view prog_id) const;
  std::string File(std::int32_t code) const;

 private:
  void Read(Module& module, const platform::VBProject& project, Findings& findings);

  std::vector<Module> modules_;
  std::vector<vbcode::ModuleSource> sources_;
  std::vector<std::size_t> module_of_code_;
  std::unique_ptr<vbcode::Program> program_;
};

}  // namespace check
