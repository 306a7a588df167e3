// SPDX-License-Identifier: MIT
#include "codegen/project_code.h"

#include <algorithm>
#include <utility>

#include "messages/error.h"
#include "platform/prog_id.h"
#include "platform/text.h"

namespace codegen {

namespace {

bool IsStandard(platform::VBComponent& component) {
  return component.Type() == platform::ComponentType::kStdModule;
}

// What follows the class's name does not count.
std::string_view ComponentName(const platform::ProgId& prog_id) {
  return prog_id.class_name().substr(0, prog_id.class_name().find('.'));
}

}  // namespace

ProjectCode::ProjectCode(platform::VBE& vbe) : program_({}) {
  for (const auto& project : vbe.VBProjects()) {
    const std::string name = project->Name();
    for (auto& component : project->VBComponents()) {
      if (component->Module() == nullptr) continue;
      sources_.push_back({name, component->Name(), std::move(component)});
    }
  }
}

void ProjectCode::Read(Source& source, Failure failure,
                       const std::function<bool(std::string_view)>& wanted) {
  if (source.is_read) return;
  platform::CodeModule& module = *source.component->Module();
  try {
    module.RequireSource();
    const std::int32_t count = module.CountOfLines();
    std::string text = count == 0 ? std::string() : module.Lines(1, count);
    if (wanted && !wanted(text)) return;
    source.is_read = true;
    source_of_.push_back(static_cast<std::size_t>(&source - sources_.data()));
    new_.push_back(
        {source.name, source.project,
         IsStandard(*source.component) ? vbcode::ModuleKind::kStandard : vbcode::ModuleKind::kClass,
         std::move(text)});
  } catch (const platform::Error& error) {
    if (failure == Failure::kRaise) throw;
    source.is_read = true;
    unread_.push_back(messages::MessageOf(error));
  }
}

void ProjectCode::AddRead() {
  if (!new_.empty()) program_.Add(std::exchange(new_, {}));
}

void ProjectCode::ReadClasses(std::span<const std::string> prog_ids, Failure failure) {
  for (const std::string& prog_id : prog_ids) {
    const platform::ProgId wanted(prog_id);
    for (Source& source : sources_) {
      if (platform::EqualsIgnoringCase(source.name, ComponentName(wanted)) &&
          platform::EqualsIgnoringCase(source.project, wanted.project())) {
        Read(source, failure, nullptr);
      }
    }
  }
}

void ProjectCode::Load(std::span<const std::string> prog_ids) {
  ReadClasses(prog_ids, Failure::kRaise);
  Complete();
}

void ProjectCode::LoadSetOff(std::span<const std::string> prog_ids) {
  ReadClasses(prog_ids, Failure::kKeep);
  Complete();
  if (!SetsOffOthers(prog_ids)) return;
  LoadHolders("Implements");
  LoadHolders("WithEvents");
}

bool ProjectCode::SetsOffOthers(std::span<const std::string> prog_ids) const {
  for (std::int32_t m = 0; m < program_.ModuleCount(); ++m) {
    const vbcode::Program::Module& module = program_.module(m);
    const auto is_event = [](const vbcode::Declaration& declaration) {
      return declaration.kind == vbcode::DeclarationKind::kEvent;
    };
    if (std::ranges::any_of(module.code.declarations, is_event)) return true;
    const auto is_asked = [&](const std::string& prog_id) {
      return platform::ProgId(prog_id).IsNamed(NameOf(m));
    };
    // A class that others use may stand for those that implement it.
    if (module.source.kind == vbcode::ModuleKind::kClass &&
        std::ranges::none_of(prog_ids, is_asked))
      return true;
  }
  return false;
}

void ProjectCode::LoadHolders(std::string_view word) {
  for (Source& source : sources_) {
    if (source.is_read) continue;
    platform::CodeModule& module = *source.component->Module();
    try {
      module.RequireSource();
      const std::int32_t count = module.CountOfLines();
      if (count == 0 || !module.Find(word, 1, count)) continue;
    } catch (const platform::Error&) {
      // Read() says so.
    }
    Read(source, Failure::kKeep, nullptr);
  }
  Complete();
}

void ProjectCode::LoadWhere(const std::function<bool(std::string_view)>& is_wanted) {
  for (Source& source : sources_) Read(source, Failure::kKeep, is_wanted);
  AddRead();
}

void ProjectCode::LoadOf(const std::function<bool(const platform::VBComponent&)>& is_wanted) {
  for (Source& source : sources_) {
    if (is_wanted(*source.component)) Read(source, Failure::kKeep, nullptr);
  }
  AddRead();
}

void ProjectCode::LoadAll() { LoadWhere(nullptr); }

bool ProjectCode::MayBeCalled(const Source& source) const {
  // What a standard module declares needs no name in front.
  if (!IsStandard(*source.component)) {
    return program_.names().Find(source.name) != vbcode::kNoName;
  }
  return std::ranges::any_of(
      source_of_, [&](std::size_t read) { return sources_[read].project == source.project; });
}

void ProjectCode::Complete() {
  for (AddRead();; AddRead()) {
    for (Source& source : sources_) {
      if (!source.is_read && MayBeCalled(source)) Read(source, Failure::kKeep, nullptr);
    }
    if (new_.empty()) return;
  }
}

std::int32_t ProjectCode::FindClass(std::string_view prog_id) const {
  const platform::ProgId wanted(prog_id);
  return wanted.project().empty() ? vbcode::kNone
                                  : program_.FindModule(ComponentName(wanted), wanted.project());
}

std::string ProjectCode::NameOf(std::int32_t module) const {
  return At(module).project + "." + At(module).name;
}

}  // namespace codegen
