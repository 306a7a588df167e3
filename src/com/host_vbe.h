// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "com/host_module.h"
#include "com/late_bound.h"
#include "files/unit_of_work.h"
#include "history/open_code.h"
#include "platform/vbide.h"

namespace com {

// The development environment that the studio hands over, driven by name. In a unit of work the
// texts of edited modules are kept and put back when it fails; nothing of them goes through our
// journal, for the environment alone writes its files.
class HostVbe final : public platform::VBE, public files::Participant, public history::OpenCode {
 public:
  explicit HostVbe(LateBound vbe);
  ~HostVbe() override;

  std::vector<std::shared_ptr<platform::VBProject>> VBProjects() override;
  std::shared_ptr<platform::VBProject> FindProject(std::string_view name) override;

  void Save() override;
  void Collect(files::ChangeSet&) override {}
  void Committed() noexcept override;
  void Restore() noexcept override;
  std::vector<files::FileChange> Changes() override;
  std::optional<std::string> Read(const std::string& path) override;
  void Write(const std::string& path, const std::string& contents) override;

  // What the last Restore could not put back, a sentence each.
  const std::vector<messages::Message>& not_restored() const { return not_restored_; }

 private:
  class Component;
  class Project;
  struct Modules;

  HostModule* FindModule(const std::string& path);

  LateBound vbe_;
  std::shared_ptr<Modules> modules_;
  std::vector<messages::Message> not_restored_;
};

}  // namespace com
