// SPDX-License-Identifier: MIT
// Code models put in front of the environment's: one with the documented ownership of lines, one
// whose calls fail.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/vbide.h"

namespace support {

// Forwards every call.
class ModuleWrapper : public platform::CodeModule {
 public:
  explicit ModuleWrapper(platform::CodeModule& inner) : inner_(inner) {}

  void RequireSource() override { inner_.RequireSource(); }
  std::int32_t CountOfLines() override { return inner_.CountOfLines(); }
  std::int32_t CountOfDeclarationLines() override { return inner_.CountOfDeclarationLines(); }
  std::string Lines(std::int32_t start, std::int32_t count) override {
    return inner_.Lines(start, count);
  }
  void InsertLines(std::int32_t line, std::string_view text) override {
    inner_.InsertLines(line, text);
  }
  void ReplaceLine(std::int32_t line, std::string_view text) override {
    inner_.ReplaceLine(line, text);
  }
  void DeleteLines(std::int32_t start, std::int32_t count) override {
    inner_.DeleteLines(start, count);
  }
  void AddFromString(std::string_view text) override { inner_.AddFromString(text); }
  std::int32_t ProcStartLine(std::string_view name, platform::ProcKind kind) override {
    return inner_.ProcStartLine(name, kind);
  }
  std::int32_t ProcBodyLine(std::string_view name, platform::ProcKind kind) override {
    return inner_.ProcBodyLine(name, kind);
  }
  std::int32_t ProcCountLines(std::string_view name, platform::ProcKind kind) override {
    return inner_.ProcCountLines(name, kind);
  }
  platform::ProcOfLineResult ProcOfLine(std::int32_t line) override {
    return inner_.ProcOfLine(line);
  }
  std::vector<platform::Member> Members() override { return inner_.Members(); }
  std::optional<platform::Member> FindMember(std::string_view name) override {
    return inner_.FindMember(name);
  }
  std::optional<std::int32_t> Find(std::string_view text, std::int32_t start,
                                   std::int32_t end) override {
    return inner_.Find(text, start, end);
  }
  platform::CodePane& Pane() override { return inner_.Pane(); }

 protected:
  platform::CodeModule& inner_;
};

// Procedures own every line back to the end of the procedure before, or to the declarations.
class DocumentedModule final : public ModuleWrapper {
 public:
  using ModuleWrapper::ModuleWrapper;

  std::int32_t ProcStartLine(std::string_view name, platform::ProcKind kind) override {
    const std::int32_t declarations = inner_.CountOfDeclarationLines();
    std::int32_t start = inner_.ProcStartLine(name, kind);
    while (start > declarations + 1 && inner_.ProcOfLine(start - 1).name.empty()) --start;
    return start;
  }
  std::int32_t ProcCountLines(std::string_view name, platform::ProcKind kind) override {
    return inner_.ProcCountLines(name, kind) + inner_.ProcStartLine(name, kind) -
           ProcStartLine(name, kind);
  }
  platform::ProcOfLineResult ProcOfLine(std::int32_t line) override {
    const std::int32_t count = inner_.CountOfLines();
    if (line <= inner_.CountOfDeclarationLines()) return inner_.ProcOfLine(line);
    platform::ProcOfLineResult owner = inner_.ProcOfLine(line);
    while (owner.name.empty() && ++line <= count) owner = inner_.ProcOfLine(line);
    return owner;
  }
};

// Raises before a call that edits, when `before_edit` does.
class FailingModule final : public ModuleWrapper {
 public:
  FailingModule(platform::CodeModule& inner, std::function<void()> before_edit)
      : ModuleWrapper(inner), before_edit_(std::move(before_edit)) {}

  void InsertLines(std::int32_t line, std::string_view text) override {
    before_edit_();
    ModuleWrapper::InsertLines(line, text);
  }
  void ReplaceLine(std::int32_t line, std::string_view text) override {
    before_edit_();
    ModuleWrapper::ReplaceLine(line, text);
  }
  void DeleteLines(std::int32_t start, std::int32_t count) override {
    before_edit_();
    ModuleWrapper::DeleteLines(start, count);
  }
  void AddFromString(std::string_view text) override {
    before_edit_();
    ModuleWrapper::AddFromString(text);
  }

 private:
  std::function<void()> before_edit_;
};

// An environment whose modules are made of the inner ones by a function.
class WrappedEnvironment final : public platform::VBE {
 public:
  using MakeModule =
      std::function<std::unique_ptr<platform::CodeModule>(platform::CodeModule& inner)>;

  WrappedEnvironment(std::shared_ptr<platform::VBE> inner, MakeModule make)
      : inner_(std::move(inner)), make_(std::move(make)) {}

  std::vector<std::shared_ptr<platform::VBProject>> VBProjects() override {
    std::vector<std::shared_ptr<platform::VBProject>> projects;
    for (auto& project : inner_->VBProjects()) projects.push_back(Wrap(std::move(project)));
    return projects;
  }
  std::shared_ptr<platform::VBProject> FindProject(std::string_view name) override {
    return Wrap(inner_->FindProject(name));
  }

 private:
  class Component final : public platform::VBComponent {
   public:
    Component(std::shared_ptr<platform::VBComponent> inner, const MakeModule& make)
        : inner_(std::move(inner)) {
      if (inner_->Module()) module_ = make(*inner_->Module());
    }
    std::string Name() const override { return inner_->Name(); }
    platform::ComponentType Type() const override { return inner_->Type(); }
    platform::Instancing GetInstancing() const override { return inner_->GetInstancing(); }
    std::string FileName() const override { return inner_->FileName(); }
    platform::CodeModule* Module() override { return module_.get(); }
    void Activate() override { inner_->Activate(); }

   private:
    std::shared_ptr<platform::VBComponent> inner_;
    std::unique_ptr<platform::CodeModule> module_;
  };

  class Project final : public platform::VBProject {
   public:
    Project(std::shared_ptr<platform::VBProject> inner, const MakeModule& make)
        : inner_(std::move(inner)), make_(make) {}
    std::string Name() const override { return inner_->Name(); }
    platform::ProjectType Type() const override { return inner_->Type(); }
    std::string FileName() const override { return inner_->FileName(); }
    std::vector<std::shared_ptr<platform::VBComponent>> VBComponents() override {
      std::vector<std::shared_ptr<platform::VBComponent>> components = inner_->VBComponents();
      for (auto& component : components) component = Wrap(std::move(component));
      return components;
    }
    std::shared_ptr<platform::VBComponent> FindComponent(std::string_view name) override {
      return Wrap(inner_->FindComponent(name));
    }

   private:
    std::shared_ptr<platform::VBComponent> Wrap(std::shared_ptr<platform::VBComponent> inner) {
      if (!inner) return nullptr;
      return std::make_shared<Component>(std::move(inner), make_);
    }
    std::shared_ptr<platform::VBProject> inner_;
    const MakeModule& make_;
  };

  std::shared_ptr<platform::VBProject> Wrap(std::shared_ptr<platform::VBProject> inner) {
    return inner ? std::make_shared<Project>(std::move(inner), make_) : nullptr;
  }

  std::shared_ptr<platform::VBE> inner_;
  MakeModule make_;
};

// The environment with the documented ownership of lines.
inline std::shared_ptr<platform::VBE> WithDocumentedOwnership(std::shared_ptr<platform::VBE> vbe) {
  return std::make_shared<WrappedEnvironment>(std::move(vbe), [](platform::CodeModule& inner) {
    return std::make_unique<DocumentedModule>(inner);
  });
}

}  // namespace support
