// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "messages/message.h"
#include "platform/vbide.h"
#include "vbfiles/component.h"
#include "vbfiles/environment_state.h"
#include "vbfiles/project_file.h"

namespace vbfiles {

// A project: a .vbp with the components that it names, or a single source file that stands for a
// project of its own.
class VbProject final : public platform::VBProject {
 public:
  // Reads the project file. `path` and `tree` are canonical; files outside the folder `tree` are
  // not written without agreement. Raises platform::Error.
  VbProject(std::shared_ptr<EnvironmentState> state, const CodePage& page, std::string path,
            std::string tree);
  // Takes another folder for one that the project may write in: that of a group naming it.
  void AddTree(const std::string& folder);

  std::string Name() const override { return name_; }
  platform::ProjectType Type() const override { return type_; }
  std::string FileName() const override { return path_; }
  std::vector<std::shared_ptr<platform::VBComponent>> VBComponents() override;
  // The first of that name when several claim it.
  std::shared_ptr<platform::VBComponent> FindComponent(std::string_view name) override;

  const std::vector<std::shared_ptr<Component>>& Components() const { return components_; }
  // What is wrong with the project's files, a sentence each: files that cannot be read, names
  // that two components claim.
  std::vector<messages::Message> Problems();

  // Reads the project file again if it changed; components of unchanged paths stay the same
  // objects. Raises platform::Error and leaves the project as it was.
  void Refresh();

 private:
  void Read();
  void RefreshHeaders();
  bool IsNamed(const Component& component, std::string_view name) const;
  std::shared_ptr<Component> MakeComponent(const ComponentEntry& entry,
                                           const std::string& path) const;

  std::shared_ptr<EnvironmentState> state_;
  const CodePage& page_;
  std::string path_;
  std::vector<std::string> trees_;
  files::FileStamp stamp_;
  std::string name_;
  platform::ProjectType type_ = platform::ProjectType::kStandardExe;
  std::vector<std::shared_ptr<Component>> components_;
  bool headers_read_ = false;  // in the unit of work that is open
};

// The component type of a source file by its extension; nothing for other files.
std::optional<platform::ComponentType> SourceTypeOf(const std::string& path);

}  // namespace vbfiles
