// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "codegen/code_places.h"
#include "desktop/code_pane.h"
#include "project/project.h"
#include "studio/add_in_session.h"
#include "vbfiles/environment.h"

namespace desktop {

// Finds the code that belongs to a node or to a request of the development environment, and shows
// it in the code pane.
class CodeLookup {
 public:
  // All of it outlives this object.
  CodeLookup(project::Project& opened, studio::AddInSession& session, CodePane& pane,
             const texts::TextTable& texts)
      : project_(opened), session_(session), pane_(pane), texts_(texts) {}

  // The procedure of a formula is shown beside its arguments, without taking the keyboard.
  void ShowNode(const std::string& key);
  // What the development environment's own window would do.
  void OnPane(const vbfiles::PaneEvent& event);
  // Shows the module of a file. False when there is none or the user stays at another one.
  bool ShowFile(const std::string& file);
  // Goes to a place with the keyboard. False when the user stays at another one.
  bool GoTo(const codegen::CodePlace& place);
  bool GoToLine(const std::string& file, std::int32_t line);
  // "PROJECT.COMPONENT" of the file; empty when no component has it.
  std::string ProgIdOf(const std::string& file);
  // A line of the file's module, from 1.
  std::string LineOf(const std::string& file, std::int32_t line);

 private:
  void FindNode(const std::string& key);
  struct Found {
    std::shared_ptr<platform::VBProject> project;
    std::shared_ptr<platform::VBComponent> component;
  };
  // Nulls when there is none.
  Found FindComponent(const std::string& file);

  project::Project& project_;
  studio::AddInSession& session_;
  CodePane& pane_;
  const texts::TextTable& texts_;
};

}  // namespace desktop
