// SPDX-License-Identifier: MIT
// ovformula vb: any Visual Basic 6 project, group or module.
#include "cli/commands.h"
#include "cli/invocation.h"
#include "vbfiles/environment.h"

namespace cli {

namespace {

using platform::ComponentType;
using platform::Instancing;

std::string_view TypeName(ComponentType type) {
  switch (type) {
    case ComponentType::kStdModule:
      return "Module";
    case ComponentType::kClassModule:
      return "Class";
    case ComponentType::kMSForm:
      return "MSForm";
    case ComponentType::kResFile:
      return "ResFile";
    case ComponentType::kVBForm:
      return "Form";
    case ComponentType::kVBMDIForm:
      return "MDIForm";
    case ComponentType::kPropPage:
      return "PropertyPage";
    case ComponentType::kUserControl:
      return "UserControl";
    case ComponentType::kDocObject:
      return "UserDocument";
    case ComponentType::kRelatedDocument:
      return "RelatedDoc";
    case ComponentType::kActiveXDesigner:
      return "Designer";
  }
  return "";
}

std::string_view InstancingName(Instancing instancing) {
  switch (instancing) {
    case Instancing::kNone:
      return "";
    case Instancing::kPrivate:
      return "Private";
    case Instancing::kPublicNotCreatable:
      return "PublicNotCreatable";
    case Instancing::kSingleUse:
      return "SingleUse";
    case Instancing::kGlobalSingleUse:
      return "GlobalSingleUse";
    case Instancing::kMultiUse:
      return "MultiUse";
    case Instancing::kGlobalMultiUse:
      return "GlobalMultiUse";
  }
  return "";
}

std::string_view MemberTypeName(platform::MemberType type) {
  switch (type) {
    case platform::MemberType::kMethod:
      return "Method";
    case platform::MemberType::kProperty:
      return "Property";
    case platform::MemberType::kVariable:
      return "Variable";
    case platform::MemberType::kEvent:
      return "Event";
    case platform::MemberType::kConst:
      return "Const";
  }
  return "";
}

std::string_view ScopeName(platform::MemberScope scope) {
  switch (scope) {
    case platform::MemberScope::kPrivate:
      return "Private";
    case platform::MemberScope::kPublic:
      return "Public";
    case platform::MemberScope::kFriend:
      return "Friend";
  }
  return "";
}

std::unique_ptr<vbfiles::Environment> OpenFile(Invocation& invocation) {
  vbfiles::Options options;
  options.code_page = invocation.NumberOption("--code-page").value_or(options.code_page);
  auto environment = std::make_unique<vbfiles::Environment>(invocation.console().files, options);
  environment->Open(invocation.Argument("FILE"));
  for (const messages::Message& problem : environment->Problems()) {
    invocation.Warn(invocation.texts().Sentence(problem));
  }
  return environment;
}

// The components of all projects, or the one that COMPONENT names.
std::vector<std::shared_ptr<platform::VBComponent>> Components(Invocation& invocation,
                                                               vbfiles::Environment& environment) {
  const std::string wanted = invocation.Argument("COMPONENT");
  std::vector<std::shared_ptr<platform::VBComponent>> components;
  for (const auto& project : environment.VBProjects()) {
    if (wanted.empty()) {
      for (const auto& component : project->VBComponents()) components.push_back(component);
    } else if (auto component = project->FindComponent(wanted)) {
      components.push_back(component);
    }
  }
  if (!wanted.empty() && components.empty()) {
    throw CommandError(
        kRefused, invocation.Text(kTextUnknownComponent,
                                  {{"<File>", invocation.Argument("FILE")}, {"<Name>", wanted}}));
  }
  return components;
}

Cell LineCount(platform::VBComponent& component) {
  platform::CodeModule* module = component.Module();
  if (!module) return std::monostate();
  return std::int64_t{module->CountOfLines()};
}

// Says of a component that cannot be read why it shows no line; whether all can be read.
bool WarnOfUnreadable(Invocation& invocation,
                      const std::vector<std::shared_ptr<platform::VBComponent>>& components) {
  bool all = true;
  for (const auto& component : components) {
    try {
      if (component->Module()) component->Module()->RequireSource();
    } catch (const platform::Error& error) {
      invocation.Warn(invocation.texts().Sentence(error));
      all = false;
    }
  }
  return all;
}

int RunList(Invocation& invocation) {
  auto environment = OpenFile(invocation);
  RowWriter writer(invocation.console().out, invocation.ListFormat(),
                   {"Name", "Type", "Instancing", "Lines"});
  const auto components = Components(invocation, *environment);
  for (const auto& component : components) {
    writer.Write({component->Name(), std::string(TypeName(component->Type())),
                  std::string(InstancingName(component->GetInstancing())), LineCount(*component)});
  }
  writer.Finish();
  WarnOfUnreadable(invocation, components);
  return kDone;
}

int RunMembers(Invocation& invocation) {
  auto environment = OpenFile(invocation);
  RowWriter writer(invocation.console().out, invocation.ListFormat(),
                   {"Name", "Type", "Scope", "Line"});
  const auto components = Components(invocation, *environment);
  for (const auto& component : components) {
    if (!component->Module()) continue;
    for (const platform::Member& member : component->Module()->Members()) {
      writer.Write({member.name, std::string(MemberTypeName(member.type)),
                    std::string(ScopeName(member.scope)), std::int64_t{member.code_location}});
    }
  }
  writer.Finish();
  WarnOfUnreadable(invocation, components);
  return kDone;
}

int RunLines(Invocation& invocation) {
  auto environment = OpenFile(invocation);
  const auto components = Components(invocation, *environment);
  for (const auto& component : components) {
    platform::CodeModule* module = component->Module();
    if (!module || module->CountOfLines() == 0) continue;
    std::string text = module->Lines(1, module->CountOfLines());
    std::erase(text, '\r');
    invocation.console().out << text << '\n';
  }
  return WarnOfUnreadable(invocation, components) ? kDone : kFile;
}

}  // namespace

std::vector<CommandSpec> VisualBasicCommands() {
  const ArgumentSpec file{"FILE", kTextArgVbFile};
  const ArgumentSpec component{"COMPONENT", kTextArgComponent, false};
  const OptionSpec code_page{"--code-page", "NUMBER", kTextOptCodePage};
  return {
      {"vb list",
       kTextCommandVbList,
       {file},
       {kJsonOption, code_page},
       {"ovformula vb list PumpServer.vbp"},
       RunList},
      {"vb members",
       kTextCommandVbMembers,
       {file, component},
       {kJsonOption, code_page},
       {"ovformula vb members PumpServer.vbp CPump"},
       RunMembers},
      {"vb lines",
       kTextCommandVbLines,
       {file, component},
       {code_page},
       {"ovformula vb lines CPump.cls"},
       RunLines},
  };
}

}  // namespace cli
