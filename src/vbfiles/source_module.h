// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/vbide.h"
#include "vbfiles/environment_state.h"
#include "vbfiles/line_encoder.h"
#include "vbfiles/module_document.h"
#include "vbfiles/pane.h"

namespace vbfiles {

// The code module of a component: the operations of the object model on its document.
class SourceModule final : public platform::CodeModule {
 public:
  SourceModule(EnvironmentState& state, ModuleDocument& document, platform::VBComponent& component)
      : state_(state), document_(document), pane_(state, component) {}

  void RequireSource() override { document_.RequireSource(); }
  std::int32_t CountOfLines() override;
  std::int32_t CountOfDeclarationLines() override;
  std::string Lines(std::int32_t start, std::int32_t count) override;
  void InsertLines(std::int32_t line, std::string_view text) override;
  void ReplaceLine(std::int32_t line, std::string_view text) override;
  void DeleteLines(std::int32_t start, std::int32_t count) override;
  void AddFromString(std::string_view text) override;
  std::int32_t ProcStartLine(std::string_view name, platform::ProcKind kind) override;
  std::int32_t ProcBodyLine(std::string_view name, platform::ProcKind kind) override;
  std::int32_t ProcCountLines(std::string_view name, platform::ProcKind kind) override;
  platform::ProcOfLineResult ProcOfLine(std::int32_t line) override;
  std::vector<platform::Member> Members() override;
  std::optional<platform::Member> FindMember(std::string_view name) override;
  std::optional<std::int32_t> Find(std::string_view text, std::int32_t start,
                                   std::int32_t end) override;
  platform::CodePane& Pane() override { return pane_; }

 private:
  void CheckLine(std::int32_t line, std::int32_t line_count) const;
  std::vector<std::string> Encode(const LinePlace& place, std::string_view text);
  const Procedure& Require(const SourceIndex& index, std::string_view name,
                           platform::ProcKind kind) const;

  EnvironmentState& state_;
  ModuleDocument& document_;
  vbfiles::Pane pane_;
};

}  // namespace vbfiles
