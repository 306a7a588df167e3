// SPDX-License-Identifier: MIT
#include "codegen/formula_code_impl.h"

#include <algorithm>

#include "codegen/declaration.h"
#include "codegen/identifier.h"
#include "codegen/source_line.h"
#include "platform/text.h"

namespace codegen {
namespace {

constexpr std::string_view kComponentKey = "FormulaComponents";

}  // namespace

CVBFormulaCode::Impl::Place CVBFormulaCode::Impl::Locate(std::string_view prog_id) {
  const std::size_t point = prog_id.find('.');
  if (!vbe_ || point == std::string_view::npos) return {};
  const std::string_view rest = prog_id.substr(point + 1);
  const std::shared_ptr<platform::VBProject> project = vbe_->FindProject(prog_id.substr(0, point));
  if (!project) return {};
  Place place;
  place.component = project->FindComponent(rest.substr(0, rest.find('.')));
  if (place.component) place.module = place.component->Module();
  if (place.module) place.module->RequireSource();
  return place;
}

CVBFormulaCode::Impl::Place CVBFormulaCode::Impl::LocateOrWarn(std::string_view prog_id) {
  Place place = Locate(prog_id);
  if (!place) report_.Warn(kTextNoClass, {{"<Class>", prog_id}});
  return place;
}

bool CVBFormulaCode::Impl::IsTypeName(const Place& place, std::string_view prog_id,
                                      std::string_view name) {
  const std::string key = platform::FoldCase(prog_id);
  auto known = type_names_.find(key);
  if (known == type_names_.end()) {
    const std::int32_t count = place.module->CountOfDeclarationLines();
    known = type_names_.try_emplace(key).first;
    // Most sections declare no types, and are large.
    if (place.module->Find("Type", 1, count) || place.module->Find("Enum", 1, count)) {
      known->second = TypeNames(SplitLines(place.module->Lines(1, count)));
    }
  }
  const bool found = known->second.contains(platform::FoldCase(name));
  // Outside of a batch anybody may change them until the next question.
  if (batch_ == 0) type_names_.clear();
  return found;
}

MemberUse CVBFormulaCode::Impl::LookUp(std::string_view prog_id, std::string_view name) {
  MemberUse use = MemberUse::kNoClass;
  report_.Step([&] {
    const Place place = Locate(prog_id);
    if (!place) return;
    const std::optional<platform::Member> member = place.module->FindMember(name);
    if (!member) {
      use = IsTypeName(place, prog_id, name) ? MemberUse::kOther : MemberUse::kFree;
    } else if (FindSub(*place.module, name)) {
      use = MemberUse::kSub;
    } else {
      use = member->type == platform::MemberType::kVariable &&
                    member->scope == platform::MemberScope::kPublic
                ? MemberUse::kVariable
                : MemberUse::kOther;
    }
  });
  return use;
}

std::string CVBFormulaCode::Impl::FunctionText(std::string_view prog_id, std::string_view name,
                                               bool with_header) {
  std::string text;
  report_.Step([&] {
    const Place place = Locate(prog_id);
    const auto sub = place ? FindSub(*place.module, name) : std::nullopt;
    if (!sub) return;
    std::vector<std::string> lines;
    if (with_header) lines = FindHeaderRegion(*place.module, *sub).lines;
    const std::vector<std::string> body = ProcedureLines(*place.module, *sub);
    lines.insert(lines.end(), body.begin(), body.end());
    text = JoinLines(lines);
  });
  return text;
}

bool CVBFormulaCode::Impl::ShowFunction(CodeWindowCaller& caller, std::string_view prog_id,
                                        std::string_view name) {
  bool shown = false;
  report_.Step([&] {
    const Place place = Locate(prog_id);
    const auto sub = place ? FindSub(*place.module, name) : std::nullopt;
    if (!sub) return;
    caller.BringCodeWindowForward();
    place.component->Activate();
    const std::string line = place.module->Lines(sub->body_line, 1);
    platform::CodePane& pane = place.module->Pane();
    pane.SetTopLine(sub->body_line);
    const auto length = static_cast<std::int32_t>(CharacterCount(line));
    pane.SetSelection({sub->body_line, 1, sub->body_line, length});
    shown = true;
  });
  return shown;
}

CVBFormulaCode::Impl::Waiting& CVBFormulaCode::Impl::WaitingFor(std::string_view prog_id) {
  Waiting& waiting = waiting_[platform::FoldCase(prog_id)];
  if (waiting.prog_id.empty()) waiting.prog_id = prog_id;
  return waiting;
}

void CVBFormulaCode::Impl::HeaderWaits(std::string_view name, std::string_view prog_id,
                                       std::int32_t formula_id) {
  Waiting& waiting = WaitingFor(prog_id);
  if (waiting.header_names.insert(platform::FoldCase(name)).second) {
    waiting.headers.push_back({std::string(name), formula_id});
  }
}

void CVBFormulaCode::Impl::HeaderIsDone(std::string_view name, std::string_view prog_id) {
  const auto found = waiting_.find(platform::FoldCase(prog_id));
  if (found == waiting_.end()) return;
  if (found->second.header_names.erase(platform::FoldCase(name)) == 0) return;
  std::erase_if(found->second.headers, [&](const Header& header) {
    return platform::EqualsIgnoringCase(header.function_name, name);
  });
}

void CVBFormulaCode::Impl::WarnOfSub(const Place& place, std::int32_t text, std::string_view name) {
  const std::optional<SubLocation> sub = FindSub(*place.module, name);
  if (!sub) return;
  report_.Warn(text, {{"<File>", place.File()},
                      {"<Line>", std::to_string(sub->body_line)},
                      {"<Name>", sub->name}});
}

void CVBFormulaCode::Impl::ApplyEdits() {
  std::map<std::string, Waiting> classes = std::exchange(waiting_, {});
  // The formulas of a renamed alias are many; one query serves them all.
  FormulaRows::ArgumentsById arguments;
  for (const std::int32_t id : std::exchange(renamed_aliases_, {})) {
    report_.Step([&] { rows_->ReadArgumentsBeside(id, arguments); });
  }
  std::vector<std::string> kept_types;
  for (auto& entry : classes) {
    Waiting& waiting = entry.second;
    Place place;
    report_.Step([&] { place = LocateOrWarn(waiting.prog_id); });
    if (!place) continue;
    const std::vector<std::string> gone =
        waiting.declarations.Apply(*place.component, *place.module, report_);
    kept_types.insert(kept_types.end(), waiting.declarations.kept_types().begin(),
                      waiting.declarations.kept_types().end());
    for (const Header& header : waiting.headers) {
      report_.Step([&] { RewriteWaitingHeader(place, header, waiting.prog_id, arguments); });
    }
    // Last, when the lines have their final numbers.
    for (const auto& [text, name] : waiting.sub_warnings) {
      report_.Step([&] { WarnOfSub(place, text, name); });
    }
    report_.Step([&] { WarnOfUses(gone, *place.component, *place.module, report_); });
  }
  std::sort(kept_types.begin(), kept_types.end());
  kept_types.erase(std::unique(kept_types.begin(), kept_types.end()), kept_types.end());
  if (!kept_types.empty()) report_.Warn(kTextTypeKept, {{"<Names>", NamesInShort(kept_types)}});
}

void CVBFormulaCode::Impl::RegisterClass(std::string_view prog_id) {
  if (components_ && !prog_id.empty()) component_changes_.push_back({true, std::string(prog_id)});
}

void CVBFormulaCode::Impl::UnregisterClass(std::string_view prog_id) {
  report_.Step([&] {
    if (!components_ || prog_id.empty() || (rows_ && rows_->HasFormulas(prog_id))) return;
    component_changes_.push_back({false, std::string(prog_id)});
  });
}

void CVBFormulaCode::Impl::CommitComponents() {
  if (component_changes_.empty()) return;
  const std::vector<ComponentChange> changes = std::exchange(component_changes_, {});
  try {
    components_->Open(project_);
    for (const ComponentChange& change : changes) {
      if (change.add) {
        components_->Add(kComponentKey, change.prog_id);
      } else {
        components_->Remove(kComponentKey, change.prog_id);
      }
    }
    components_->Commit();
  } catch (const std::exception& error) {
    // The list is no part of the operation's result; the next operation of the class mends it.
    report_.Warn(kTextComponentList, {{"<Cause>", report_.texts().Sentence(error)}});
  }
}

}  // namespace codegen
