// SPDX-License-Identifier: MIT
#include "com/host_vbe.h"

#include <algorithm>
#include <utility>

#include "com/failure.h"
#include "com/messages.h"
#include "platform/ado.h"
#include "platform/error.h"
#include "platform/text.h"
#include "vbfiles/code_page.h"

namespace com {

namespace {

// The environment has no name for the file of a component that was never saved.
std::string FileOf(const LateBound& component) try {
  return component.Get(L"FileNames", {Value(1)}).ToText();
} catch (const Failure&) {
  return {};
}

// One file has one spelling.
std::string Spelled(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

// What is visible of a module as bytes of its file, and back. A file ends its last line.
std::string ToBytes(const std::string& name, const std::string& text) {
  if (text.empty()) return {};
  std::string bytes = vbfiles::CodePage::Get(vbfiles::CodePage::kWestern).NameFromUtf8(text);
  if (bytes.empty()) {
    throw platform::Error(platform::ErrorKind::kRefused, platform::kErrUnspecified,
                          messages::Message(message::kNotInCodePage, {{"<Class>", name}}));
  }
  return bytes + "\r\n";
}
std::string ToText(std::string_view bytes) {
  if (bytes.ends_with("\r\n")) bytes.remove_suffix(2);
  return vbfiles::CodePage::Get(vbfiles::CodePage::kWestern).ToUtf8(bytes);
}

}  // namespace

// The modules that were asked for, by component, and whether a unit of work is open.
struct HostVbe::Modules {
  struct Entry {
    std::string name;  // "PumpServer.CPump"
    std::string file;  // "" while it was never saved
    HostModule module;
  };
  std::map<std::string, std::unique_ptr<Entry>> entries;
  bool in_unit = false;

  HostModule& Of(const std::string& name, const LateBound& component) {
    auto& entry = entries[name];
    if (entry && !in_unit) entry->module.Rebind(component.Object(L"CodeModule"));
    if (!entry) {
      entry.reset(new Entry{name, FileOf(component), HostModule(component.Object(L"CodeModule"))});
      if (in_unit) entry->module.BeginUnit();
    }
    return entry->module;
  }
};

class HostVbe::Component final : public platform::VBComponent {
 public:
  Component(std::shared_ptr<Modules> modules, const std::string& project, LateBound component)
      : modules_(std::move(modules)),
        component_(std::move(component)),
        name_(component_.Get(L"Name").ToText()),
        qualified_(project + "." + name_) {}

  std::string Name() const override { return name_; }
  platform::ComponentType Type() const override {
    return static_cast<platform::ComponentType>(component_.Get(L"Type").ToLong());
  }
  platform::Instancing GetInstancing() const override {
    // Only classes have the property, and asking others for it raises an error.
    if (Type() != platform::ComponentType::kClassModule) return platform::Instancing::kNone;
    const LateBound properties = component_.Object(L"Properties");
    const LateBound property = properties.Object(L"Item", {Value("Instancing")});
    return static_cast<platform::Instancing>(property.Get(L"Value").ToLong());
  }
  std::string FileName() const override { return FileOf(component_); }
  platform::CodeModule* Module() override {
    if (!asked_ && component_.Object(L"CodeModule"))
      module_ = &modules_->Of(qualified_, component_);
    asked_ = true;
    return module_;
  }
  void Activate() override { component_.Get(L"Activate"); }

 private:
  std::shared_ptr<Modules> modules_;
  LateBound component_;
  std::string name_;
  std::string qualified_;
  bool asked_ = false;
  HostModule* module_ = nullptr;
};

class HostVbe::Project final : public platform::VBProject {
 public:
  Project(std::shared_ptr<Modules> modules, LateBound project)
      : modules_(std::move(modules)),
        project_(std::move(project)),
        name_(project_.Get(L"Name").ToText()) {}

  std::string Name() const override { return name_; }
  platform::ProjectType Type() const override {
    return static_cast<platform::ProjectType>(project_.Get(L"Type").ToLong());
  }
  std::string FileName() const override { return project_.Get(L"FileName").ToText(); }
  std::vector<std::shared_ptr<platform::VBComponent>> VBComponents() override {
    std::vector<std::shared_ptr<platform::VBComponent>> components;
    for (LateBound& component : project_.Object(L"VBComponents").Elements()) {
      components.push_back(std::make_shared<Component>(modules_, name_, std::move(component)));
    }
    return components;
  }
  std::shared_ptr<platform::VBComponent> FindComponent(std::string_view name) override {
    for (auto& component : VBComponents()) {
      if (platform::EqualsIgnoringCase(component->Name(), name)) return component;
    }
    return nullptr;
  }

 private:
  std::shared_ptr<Modules> modules_;
  LateBound project_;
  std::string name_;
};

HostVbe::HostVbe(LateBound vbe) : vbe_(std::move(vbe)), modules_(std::make_shared<Modules>()) {}
HostVbe::~HostVbe() = default;

std::vector<std::shared_ptr<platform::VBProject>> HostVbe::VBProjects() {
  std::vector<std::shared_ptr<platform::VBProject>> projects;
  for (LateBound& project : vbe_.Object(L"VBProjects").Elements()) {
    projects.push_back(std::make_shared<Project>(modules_, std::move(project)));
  }
  return projects;
}

std::shared_ptr<platform::VBProject> HostVbe::FindProject(std::string_view name) {
  for (auto& project : VBProjects()) {
    if (platform::EqualsIgnoringCase(project->Name(), name)) return project;
  }
  return nullptr;
}

void HostVbe::Save() {
  not_restored_.clear();
  modules_->in_unit = true;
  for (auto& [name, entry] : modules_->entries) entry->module.BeginUnit();
}

void HostVbe::Committed() noexcept {
  modules_->in_unit = false;
  for (auto& [name, entry] : modules_->entries) entry->module.EndUnit();
}

void HostVbe::Restore() noexcept {
  modules_->in_unit = false;
  for (auto& [name, entry] : modules_->entries) {
    messages::Message cause;
    bool restored = false;
    try {
      restored = entry->module.Restore();
      if (!restored) cause = messages::Message(message::kChangedMeanwhile);
    } catch (const std::exception& error) {
      cause = messages::MessageOf(error);
    }
    if (!restored) {
      not_restored_.push_back({message::kCodeNotRestored, {{"<Class>", name}, {"<Cause>", cause}}});
    }
    entry->module.EndUnit();
  }
}

// --- What the history records and takes back ---

std::vector<files::FileChange> HostVbe::Changes() {
  std::vector<files::FileChange> changes;
  for (auto& [name, entry] : modules_->entries) {
    if (!entry->module.original()) continue;
    changes.push_back({entry->file.empty() ? name : entry->file,
                       ToBytes(name, *entry->module.original()),
                       ToBytes(name, entry->module.Text())});
  }
  return changes;
}

HostModule* HostVbe::FindModule(const std::string& path) {
  for (const auto& project : VBProjects()) {
    for (const auto& component : project->VBComponents()) {
      const std::string file = component->FileName();
      if (file.empty() || !platform::EqualsIgnoringCase(Spelled(file), Spelled(path))) continue;
      return static_cast<HostModule*>(component->Module());
    }
  }
  return nullptr;
}

std::optional<std::string> HostVbe::Read(const std::string& path) {
  HostModule* const module = FindModule(path);
  if (!module) return std::nullopt;
  return ToBytes(path, module->Text());
}

void HostVbe::Write(const std::string& path, const std::string& contents) {
  if (HostModule* const module = FindModule(path)) module->SetText(ToText(contents));
}

}  // namespace com
