// SPDX-License-Identifier: MIT
#include "vbfiles/component.h"

namespace vbfiles {

using platform::ComponentType;

Component::Component(std::shared_ptr<EnvironmentState> state, const CodePage& page,
                     ComponentType type, std::string name, const std::string& path)
    : state_(std::move(state)),
      type_(type),
      written_name_(std::move(name)),
      document_(OpenDocument(*state_, page, path)) {
  if (type != ComponentType::kResFile && type != ComponentType::kRelatedDocument) {
    module_.emplace(*state_, *document_, *this);
  }
}

std::string Component::Name() const {
  const CodePage& page = File().page();
  if (!File().header().name.empty()) return page.ToUtf8(File().header().name);
  if (!written_name_.empty()) return written_name_;
  if (!File().header().object_name.empty()) return page.ToUtf8(File().header().object_name);
  const std::string file_name = state_->system.FileName(File().path());
  return module_ ? file_name.substr(0, file_name.rfind('.')) : file_name;
}

ComponentType Component::Type() const {
  return type_ == ComponentType::kVBForm && File().header().mdi_form ? ComponentType::kVBMDIForm
                                                                     : type_;
}

platform::Instancing Component::GetInstancing() const {
  return type_ == ComponentType::kClassModule ? InstancingOf(File().header())
                                              : platform::Instancing::kNone;
}

void Component::Activate() {
  if (state_->options.on_pane) {
    state_->options.on_pane(PaneEvent{PaneEvent::Kind::kActivated, *this});
  }
}

}  // namespace vbfiles
