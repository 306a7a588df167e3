// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/vbide.h"
#include "vbfiles/environment_state.h"
#include "vbfiles/module_document.h"
#include "vbfiles/source_module.h"

namespace vbfiles {

// A component of a project. Name, type and Instancing come from the header of its file, as it
// stood when the project's components were last asked for; the code is read when it is needed.
class Component final : public platform::VBComponent {
 public:
  // `name` is the project file's copy of the name, used where the file has none.
  Component(std::shared_ptr<EnvironmentState> state, const CodePage& page,
            platform::ComponentType type, std::string name, const std::string& path);

  std::string Name() const override;
  platform::ComponentType Type() const override;
  platform::Instancing GetInstancing() const override;
  std::string FileName() const override { return File().path(); }
  platform::CodeModule* Module() override { return module_ ? &*module_ : nullptr; }
  void Activate() override;

  // Why the file cannot be used; empty when it can.
  const messages::Message& Problem() const { return File().problem(); }

  void AddTree(const std::string& folder) { document_->file().AddTree(folder); }
  void RefreshHeader() { document_->file().RefreshHeader(); }

 private:
  const ModuleFile& File() const { return document_->file(); }

  std::shared_ptr<EnvironmentState> state_;
  platform::ComponentType type_;
  std::string written_name_;
  std::shared_ptr<ModuleDocument> document_;
  std::optional<SourceModule> module_;
};

}  // namespace vbfiles
