// SPDX-License-Identifier: MIT
#include "com/vbe_object.h"

#include <utility>
#include <vector>

#include "com/code_module_object.h"
#include "com/collection.h"
#include "com/values_object.h"
#include "platform/text.h"

namespace com {

namespace {

// A collection of the model over a list that is read at each call.
template <class Object, class Element>
Collection::Source NamedList(std::shared_ptr<VbSession> session,
                             std::function<std::vector<std::shared_ptr<Element>>()> list) {
  return {
      [list] { return list().size(); },
      [list, session](std::size_t place) { return Value(Make<Object>(session, list()[place])); },
      [list](const std::string& name) {
        const auto elements = list();
        std::size_t place = 0;
        while (place < elements.size() &&
               !platform::EqualsIgnoringCase(elements[place]->Name(), name)) {
          ++place;
        }
        return place;
      },
      1, platform::kErrSubscript};
}

}  // namespace

// --- VBE ---

const Member<VbeObject> VbeObject::kMembers[3] = {
    {L"VBProjects", &VbeObject::VBProjects},
    {L"Open", &VbeObject::Open},
    {L"Save", &VbeObject::Save},
};

Value VbeObject::VBProjects(const Arguments& arguments) {
  const std::shared_ptr<VbSession> session = session_;
  return Collection::Answer(NamedList<VbProjectObject, platform::VBProject>(
                                session, [session] { return session->environment().VBProjects(); }),
                            arguments);
}

Value VbeObject::Open(const Arguments& arguments) {
  arguments.Demand(1);
  session_->Open(arguments.Text(0));
  return {};
}

Value VbeObject::Save(const Arguments&) {
  session_->Save();
  return {};
}

// --- Project ---

const Member<VbProjectObject> VbProjectObject::kMembers[4] = {
    {L"Name", &VbProjectObject::Name},
    {L"Type", &VbProjectObject::Type},
    {L"FileName", &VbProjectObject::FileName},
    {L"VBComponents", &VbProjectObject::VBComponents},
};

Value VbProjectObject::VBComponents(const Arguments& arguments) {
  const std::shared_ptr<platform::VBProject> project = project_;
  return Collection::Answer(NamedList<VbComponentObject, platform::VBComponent>(
                                session_, [project] { return project->VBComponents(); }),
                            arguments);
}

// --- Component ---

const Member<VbComponentObject> VbComponentObject::kMembers[7] = {
    {L"Name", &VbComponentObject::Name},
    {L"Type", &VbComponentObject::Type},
    {L"CodeModule", &VbComponentObject::CodeModule},
    {L"Properties", &VbComponentObject::Properties},
    {L"FileNames", &VbComponentObject::FileNames},
    {L"FileCount", &VbComponentObject::FileCount},
    {L"Activate", &VbComponentObject::Activate},
};

Value VbComponentObject::CodeModule(const Arguments&) {
  if (!component_->Module()) return Value(static_cast<IDispatch*>(nullptr));
  return Value(Make<CodeModuleObject>(session_, component_));
}

Value VbComponentObject::Properties(const Arguments& arguments) {
  std::vector<std::pair<std::string, Value>> properties = {{"Name", Value(component_->Name())}};
  const platform::Instancing instancing = component_->GetInstancing();
  if (instancing != platform::Instancing::kNone) {
    properties.emplace_back("Instancing", Value(static_cast<std::int32_t>(instancing)));
  }
  return Collection::Answer(
      {[properties] { return properties.size(); },
       [properties](std::size_t place) {
         return Value(Make<ValuesObject>(std::vector<ValuesObject::Entry>{
             {L"Value", properties[place].second}, {L"Name", Value(properties[place].first)}}));
       },
       [properties](const std::string& name) {
         std::size_t place = 0;
         while (place < properties.size() &&
                !platform::EqualsIgnoringCase(properties[place].first, name)) {
           ++place;
         }
         return place;
       },
       1, platform::kErrSubscript},
      arguments);
}

Value VbComponentObject::FileNames(const Arguments& arguments) {
  if (arguments.Long(0, 1) != 1) Require(ResultOf(platform::kErrSubscript));
  return Value(component_->FileName());
}

Value VbComponentObject::Activate(const Arguments&) {
  component_->Activate();
  return {};
}

}  // namespace com
