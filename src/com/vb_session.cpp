// SPDX-License-Identifier: MIT
#include "com/vb_session.h"

#include "com/failure.h"
#include "platform/ado.h"
#include "project/project.h"

namespace com {

VbSession::VbSession(files::FileSystem& system)
    : system_(system), environment_(std::make_shared<vbfiles::Environment>(system)) {}

VbSession::~VbSession() {
  if (HasEdits()) unit_->Rollback();
}

void VbSession::Open(const std::string& path) {
  if (HasEdits()) Require(ResultOf(platform::kErrNotAllowedHere));
  environment_->Open(path);
  paths_.push_back(path);
  unit_.reset();
}

void VbSession::BeginEdit() {
  if (HasEdits()) return;
  if (!unit_) {
    if (paths_.empty()) Require(ResultOf(platform::kErrSubscript));
    project::ProjectOptions options;
    options.vb_files = paths_;
    unit_.emplace(system_, paths_.front(), project::ReachOf(system_, paths_.front(), options));
    unit_->Enlist(*environment_);
  }
  unit_->Begin();
}

void VbSession::Save() {
  if (HasEdits()) unit_->Commit();
}

}  // namespace com
