// SPDX-License-Identifier: MIT
#include "desktop/code_lookup.h"

#include "editor/node_key.h"
#include "platform/error.h"
#include "platform/prog_id.h"
#include "studio/window_texts.h"

namespace desktop {

void CodeLookup::ShowNode(const std::string& key) {
  try {
    FindNode(key);
  } catch (const platform::Error& error) {  // a module whose file is gone, for one
    pane_.ShowReason(texts_.Sentence(error));
  }
}

void CodeLookup::FindNode(const std::string& key) {
  editor::frmtabgrid* editor = session_.add_in().EditorWindow();
  const std::int32_t id = editor::KeyNumber(key);
  if (!editor || !editor::IsFormulaKey(key) || id <= 0) return;
  const auto formula = editor->operations().FindFormula(id);
  if (!formula) return;
  const platform::ProgId named(formula->prog_id);
  const auto project =
      named.project().empty() ? nullptr : project_.vb()->FindProject(named.project());
  const auto component = project ? project->FindComponent(named.class_name()) : nullptr;
  if (!component || !component->Module()) {
    return pane_.ShowReason(
        texts_.Text(studio::kTextClassNotFound, {{"<Class>", formula->prog_id}}));
  }
  component->Module()->RequireSource();
  if (!pane_.ShowModule(component, project_.unit()) || !pane_.Readable()) return;
  const auto member = component->Module()->FindMember(formula->name);
  if (member && member->type == platform::MemberType::kMethod) {
    platform::CodeModule& module = *component->Module();
    constexpr auto kProc = platform::ProcKind::kProc;
    pane_.ShowProcedure(module.ProcStartLine(formula->name, kProc),
                        module.ProcBodyLine(formula->name, kProc));
  }
}

void CodeLookup::OnPane(const vbfiles::PaneEvent& event) {
  using Kind = vbfiles::PaneEvent::Kind;
  if (event.kind == Kind::kActivated) {
    ShowFile(event.component.FileName());
    return;
  }
  platform::CodePane& pane = event.component.Module()->Pane();
  pane_.Refresh();
  if (event.kind == Kind::kScrolled) pane_.ScrollTo(pane.TopLine());
  if (event.kind == Kind::kSelected) pane_.SelectLines(pane.GetSelection());
}

bool CodeLookup::ShowFile(const std::string& file) {
  const Found found = FindComponent(file);
  return found.component && pane_.ShowModule(found.component, project_.unit());
}

bool CodeLookup::GoTo(const codegen::CodePlace& place) {
  if (!ShowFile(place.file)) return false;
  pane_.SelectPlace(place);
  pane_.TakeKeyboard();
  return true;
}

bool CodeLookup::GoToLine(const std::string& file, std::int32_t line) {
  if (!ShowFile(file)) return false;
  pane_.ScrollTo(line);
  pane_.SelectLines({line, 1, line, 1});
  pane_.TakeKeyboard();
  return true;
}

std::string CodeLookup::ProgIdOf(const std::string& file) {
  const Found found = FindComponent(file);
  return found.component ? found.project->Name() + "." + found.component->Name() : std::string();
}

std::string CodeLookup::LineOf(const std::string& file, std::int32_t line) {
  const Found found = FindComponent(file);
  return found.component ? found.component->Module()->Lines(line, 1) : std::string();
}

CodeLookup::Found CodeLookup::FindComponent(const std::string& file) {
  for (const auto& project : project_.vb()->VBProjects()) {
    for (const auto& component : project->VBComponents()) {
      if (component->FileName() == file) return {project, component};
    }
  }
  return {};
}

}  // namespace desktop
