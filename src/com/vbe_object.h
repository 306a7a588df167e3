// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "com/automation_object.h"
#include "com/vb_session.h"

namespace com {

// OVFormulaEditor.VBE: Visual Basic project files as the objects of the environment's extensibility
// model. Beyond that model it has Open, which reads a project, a group or a single source file, and
// Save, which writes what was edited; without it the edits are dropped with the object.
class VbeObject final : public Automation<VbeObject> {
 public:
  explicit VbeObject(std::shared_ptr<VbSession> session = std::make_shared<VbSession>())
      : session_(std::move(session)) {}

  static Reference<IUnknown> Create() { return Reference<IUnknown>::Take(new VbeObject); }

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.VBE";
  static const Member<VbeObject> kMembers[3];

 private:
  Value VBProjects(const Arguments& arguments);
  Value Open(const Arguments& arguments);
  Value Save(const Arguments&);

  std::shared_ptr<VbSession> session_;
};

class VbProjectObject final : public Automation<VbProjectObject> {
 public:
  VbProjectObject(std::shared_ptr<VbSession> session, std::shared_ptr<platform::VBProject> project)
      : session_(std::move(session)), project_(std::move(project)) {}

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.VBProject";
  static const Member<VbProjectObject> kMembers[4];

 private:
  Value Name(const Arguments&) { return Value(project_->Name()); }
  Value Type(const Arguments&) { return Value(static_cast<std::int32_t>(project_->Type())); }
  Value FileName(const Arguments&) { return Value(project_->FileName()); }
  Value VBComponents(const Arguments& arguments);

  std::shared_ptr<VbSession> session_;
  std::shared_ptr<platform::VBProject> project_;
};

class VbComponentObject final : public Automation<VbComponentObject> {
 public:
  VbComponentObject(std::shared_ptr<VbSession> session,
                    std::shared_ptr<platform::VBComponent> component)
      : session_(std::move(session)), component_(std::move(component)) {}

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.VBComponent";
  static const Member<VbComponentObject> kMembers[7];

 private:
  Value Name(const Arguments&) { return Value(component_->Name()); }
  Value Type(const Arguments&) { return Value(static_cast<std::int32_t>(component_->Type())); }
  Value CodeModule(const Arguments&);
  Value Properties(const Arguments& arguments);
  Value FileNames(const Arguments& arguments);
  Value FileCount(const Arguments&) { return Value(1); }
  Value Activate(const Arguments&);

  std::shared_ptr<VbSession> session_;
  std::shared_ptr<platform::VBComponent> component_;
};

}  // namespace com
