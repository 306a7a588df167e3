// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "com/automation_object.h"
#include "com/vb_session.h"

namespace com {

// The code of a component, with the members of the extensibility model's CodeModule.
class CodeModuleObject final : public Automation<CodeModuleObject> {
 public:
  CodeModuleObject(std::shared_ptr<VbSession> session,
                   std::shared_ptr<platform::VBComponent> component)
      : session_(std::move(session)), component_(std::move(component)) {}

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.CodeModule";
  static const Member<CodeModuleObject> kMembers[14];

 private:
  platform::CodeModule& Module() const { return *component_->Module(); }
  platform::CodeModule& ModuleForEdit() const;

  Value Name(const Arguments&) { return Value(component_->Name()); }
  Value CountOfLines(const Arguments&) { return Value(Module().CountOfLines()); }
  Value CountOfDeclarationLines(const Arguments&);
  Value Lines(const Arguments& arguments);
  Value InsertLines(const Arguments& arguments);
  Value ReplaceLine(const Arguments& arguments);
  Value DeleteLines(const Arguments& arguments);
  Value AddFromString(const Arguments& arguments);
  Value ProcStartLine(const Arguments& arguments);
  Value ProcBodyLine(const Arguments& arguments);
  Value ProcCountLines(const Arguments& arguments);
  Value ProcOfLine(const Arguments& arguments);
  Value Members(const Arguments& arguments);
  Value CodePane(const Arguments&);

  std::shared_ptr<VbSession> session_;
  std::shared_ptr<platform::VBComponent> component_;
};

}  // namespace com
