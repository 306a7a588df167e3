// SPDX-License-Identifier: MIT
#include "vbfiles/vb_project.h"

#include <array>
#include <map>
#include <utility>

#include "platform/text.h"
#include "vbfiles/errors.h"
#include "vbfiles/messages.h"
#include "vbfiles/path_resolver.h"

namespace vbfiles {

using platform::ComponentType;

namespace {

constexpr std::uint64_t kMaxProjectFile = std::uint64_t{1} << 24;

std::string StemOf(const std::string& file_name) {
  return file_name.substr(0, file_name.rfind('.'));
}

}  // namespace

std::optional<ComponentType> SourceTypeOf(const std::string& path) {
  static constexpr std::array<std::pair<std::string_view, ComponentType>, 7> kTypes = {{
      {".bas", ComponentType::kStdModule},
      {".cls", ComponentType::kClassModule},
      {".frm", ComponentType::kVBForm},
      {".pag", ComponentType::kPropPage},
      {".ctl", ComponentType::kUserControl},
      {".dob", ComponentType::kDocObject},
      {".dsr", ComponentType::kActiveXDesigner},
  }};
  const std::string folded = platform::FoldCase(path);
  for (const auto& [extension, type] : kTypes) {
    if (folded.ends_with(extension)) return type;
  }
  return std::nullopt;
}

VbProject::VbProject(std::shared_ptr<EnvironmentState> state, const CodePage& page,
                     std::string path, std::string tree)
    : state_(std::move(state)), page_(page), path_(std::move(path)), trees_{std::move(tree)} {
  Read();
}

void VbProject::AddTree(const std::string& folder) {
  trees_.push_back(folder);
  for (const auto& component : components_) component->AddTree(folder);
}

void VbProject::Read() {
  files::FileSystem& system = state_->system;
  ProjectFile project;
  files::FileStamp stamp;
  PathResolver resolver(system);
  const std::string folder = system.Folder(path_);
  const std::string file_name = system.FileName(path_);
  if (const auto type = SourceTypeOf(path_)) {
    project.components.push_back({*type, "", file_name});
  } else {
    try {
      stamp = system.Stamp(path_).value_or(stamp);
      project = ParseProjectFile(files::ReadFile(system, path_, kMaxProjectFile));
    } catch (const files::Error& error) {
      throw FromFileError(error);
    }
  }
  std::map<std::string, std::shared_ptr<Component>> known;  // by path
  for (const auto& component : components_) known.emplace(component->FileName(), component);
  std::vector<std::shared_ptr<Component>> components;
  for (const ComponentEntry& entry : project.components) {
    const std::string path = resolver.Resolve(folder, page_.ToUtf8(entry.path));
    const auto at = known.find(path);
    components.push_back(at != known.end() ? at->second : MakeComponent(entry, path));
  }
  components_ = std::move(components);
  name_ = project.name.empty() ? StemOf(file_name) : page_.ToUtf8(project.name);
  type_ = project.type;
  stamp_ = stamp;
}

std::shared_ptr<Component> VbProject::MakeComponent(const ComponentEntry& entry,
                                                    const std::string& path) const {
  auto component =
      std::make_shared<Component>(state_, page_, entry.type, page_.ToUtf8(entry.name), path);
  for (const std::string& tree : trees_) component->AddTree(tree);
  return component;
}

void VbProject::Refresh() {
  headers_read_ = false;
  if (SourceTypeOf(path_)) return;
  const auto stamp = state_->system.Stamp(path_);
  if (stamp != stamp_) Read();
}

void VbProject::RefreshHeaders() {
  if (headers_read_ && state_->in_unit) return;
  for (const auto& component : components_) component->RefreshHeader();
  headers_read_ = true;
}

bool VbProject::IsNamed(const Component& component, std::string_view name) const {
  return platform::EqualsIgnoringCase(component.Name(), name);
}

std::vector<std::shared_ptr<platform::VBComponent>> VbProject::VBComponents() {
  RefreshHeaders();
  return {components_.begin(), components_.end()};
}

std::shared_ptr<platform::VBComponent> VbProject::FindComponent(std::string_view name) {
  RefreshHeaders();
  for (const auto& component : components_) {
    if (IsNamed(*component, name)) return component;
  }
  return nullptr;
}

std::vector<messages::Message> VbProject::Problems() {
  RefreshHeaders();
  std::vector<messages::Message> problems;
  std::map<std::string, std::string> paths;  // by name
  for (const auto& component : components_) {
    if (!component->Problem().empty()) problems.push_back(component->Problem());
    const auto [first, is_new] =
        paths.emplace(platform::FoldCase(component->Name()), component->FileName());
    if (!is_new) {
      problems.push_back(Joined({message::kSameName,
                                 {{"<Path>", first->second},
                                  {"<Other>", component->FileName()},
                                  {"<Name>", component->Name()},
                                  {"<Project>", path_}}},
                                message::kRenameOne));
    }
  }
  return problems;
}

}  // namespace vbfiles
