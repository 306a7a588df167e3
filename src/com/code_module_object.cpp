// SPDX-License-Identifier: MIT
#include "com/code_module_object.h"

#include <utility>
#include <vector>

#include "com/collection.h"
#include "com/values_object.h"
#include "platform/text.h"

namespace com {

namespace {

class CodePaneObject final : public Automation<CodePaneObject> {
 public:
  explicit CodePaneObject(std::shared_ptr<platform::VBComponent> component)
      : component_(std::move(component)) {}

  static constexpr wchar_t kClassName[] = L"OVFormulaEditor.CodePane";
  static const Member<CodePaneObject> kMembers[4];

 private:
  platform::CodePane& Pane() const { return component_->Module()->Pane(); }

  Value GetTopLine(const Arguments&) { return Value(Pane().TopLine()); }
  void PutTopLine(const Arguments& arguments) { Pane().SetTopLine(arguments.Long(0)); }
  Value GetSelection(const Arguments& arguments) {
    const platform::CodeSelection selection = Pane().GetSelection();
    arguments.Return(0, Value(selection.start_line));
    arguments.Return(1, Value(selection.start_column));
    arguments.Return(2, Value(selection.end_line));
    arguments.Return(3, Value(selection.end_column));
    return {};
  }
  Value SetSelection(const Arguments& arguments) {
    arguments.Demand(4);
    Pane().SetSelection(
        {arguments.Long(0), arguments.Long(1), arguments.Long(2), arguments.Long(3)});
    return {};
  }
  Value Show(const Arguments&) {
    Pane().Show();
    return {};
  }

  std::shared_ptr<platform::VBComponent> component_;
};

const Member<CodePaneObject> CodePaneObject::kMembers[4] = {
    {L"TopLine", &CodePaneObject::GetTopLine, &CodePaneObject::PutTopLine},
    {L"GetSelection", &CodePaneObject::GetSelection},
    {L"SetSelection", &CodePaneObject::SetSelection},
    {L"Show", &CodePaneObject::Show},
};

platform::ProcKind KindOf(const Arguments& arguments, std::size_t place) {
  const std::int32_t kind = arguments.Long(place);
  if (kind < 0 || kind > 3) Require(DISP_E_BADINDEX);
  return static_cast<platform::ProcKind>(kind);
}

}  // namespace

const Member<CodeModuleObject> CodeModuleObject::kMembers[14] = {
    {L"Name", &CodeModuleObject::Name},
    {L"CountOfLines", &CodeModuleObject::CountOfLines},
    {L"CountOfDeclarationLines", &CodeModuleObject::CountOfDeclarationLines},
    {L"Lines", &CodeModuleObject::Lines},
    {L"InsertLines", &CodeModuleObject::InsertLines},
    {L"ReplaceLine", &CodeModuleObject::ReplaceLine},
    {L"DeleteLines", &CodeModuleObject::DeleteLines},
    {L"AddFromString", &CodeModuleObject::AddFromString},
    {L"ProcStartLine", &CodeModuleObject::ProcStartLine},
    {L"ProcBodyLine", &CodeModuleObject::ProcBodyLine},
    {L"ProcCountLines", &CodeModuleObject::ProcCountLines},
    {L"ProcOfLine", &CodeModuleObject::ProcOfLine},
    {L"Members", &CodeModuleObject::Members},
    {L"CodePane", &CodeModuleObject::CodePane},
};

platform::CodeModule& CodeModuleObject::ModuleForEdit() const {
  session_->BeginEdit();
  return Module();
}

Value CodeModuleObject::CountOfDeclarationLines(const Arguments&) {
  return Value(Module().CountOfDeclarationLines());
}

Value CodeModuleObject::Lines(const Arguments& arguments) {
  arguments.Demand(2);
  return Value(Module().Lines(arguments.Long(0), arguments.Long(1)));
}

Value CodeModuleObject::InsertLines(const Arguments& arguments) {
  arguments.Demand(2);
  ModuleForEdit().InsertLines(arguments.Long(0), arguments.Text(1));
  return {};
}

Value CodeModuleObject::ReplaceLine(const Arguments& arguments) {
  arguments.Demand(2);
  ModuleForEdit().ReplaceLine(arguments.Long(0), arguments.Text(1));
  return {};
}

Value CodeModuleObject::DeleteLines(const Arguments& arguments) {
  arguments.Demand(1);
  ModuleForEdit().DeleteLines(arguments.Long(0), arguments.Long(1, 1));
  return {};
}

Value CodeModuleObject::AddFromString(const Arguments& arguments) {
  arguments.Demand(1);
  ModuleForEdit().AddFromString(arguments.Text(0));
  return {};
}

Value CodeModuleObject::ProcStartLine(const Arguments& arguments) {
  arguments.Demand(2);
  return Value(Module().ProcStartLine(arguments.Text(0), KindOf(arguments, 1)));
}

Value CodeModuleObject::ProcBodyLine(const Arguments& arguments) {
  arguments.Demand(2);
  return Value(Module().ProcBodyLine(arguments.Text(0), KindOf(arguments, 1)));
}

Value CodeModuleObject::ProcCountLines(const Arguments& arguments) {
  arguments.Demand(2);
  return Value(Module().ProcCountLines(arguments.Text(0), KindOf(arguments, 1)));
}

Value CodeModuleObject::ProcOfLine(const Arguments& arguments) {
  arguments.Demand(1);
  const platform::ProcOfLineResult found = Module().ProcOfLine(arguments.Long(0));
  arguments.Return(1, Value(static_cast<std::int32_t>(found.kind)));
  return Value(found.name);
}

Value CodeModuleObject::Members(const Arguments& arguments) {
  const auto members = std::make_shared<const std::vector<platform::Member>>(Module().Members());
  return Collection::Answer({[members] { return members->size(); },
                             [members](std::size_t place) {
                               const platform::Member& member = (*members)[place];
                               return Value(Make<ValuesObject>(std::vector<ValuesObject::Entry>{
                                   {L"Name", Value(member.name)},
                                   {L"Type", Value(static_cast<std::int32_t>(member.type))},
                                   {L"Scope", Value(static_cast<std::int32_t>(member.scope))},
                                   {L"CodeLocation", Value(member.code_location)}}));
                             },
                             [members](const std::string& name) {
                               std::size_t place = 0;
                               while (place < members->size() &&
                                      !platform::EqualsIgnoringCase((*members)[place].name, name)) {
                                 ++place;
                               }
                               return place;
                             },
                             1, platform::kErrSubscript},
                            arguments);
}

Value CodeModuleObject::CodePane(const Arguments&) {
  return Value(Make<CodePaneObject>(component_));
}

}  // namespace com
