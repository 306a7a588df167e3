// SPDX-License-Identifier: MIT
#include "desktop/program.h"

#include "desktop/link_colour.h"
#include "project/history_setting.h"
#include "project/language.h"
#include "wx/link_colour.h"
#include "wx/native.h"

namespace desktop {

namespace {

// The name under which the add-in hooks the editor window's messages.
constexpr const char* kModule = "OVFormulaEditor.dll";

}  // namespace

Program::Program(files::FileSystem& files, const project::UserFolders& folders,
                 texts::Language language)
    : settings_(files, folders.config),
      texts_(language),
      toolkit_(texts_),
      window_system_(kModule),
      help_(texts_),
      state_(settings_, files, folders.state) {
  settings_.Override(texts::kLanguageKey, texts::kLanguageValue, project::LcidOf(language));
  project::ProjectOptions options;
  options.state_folder = folders.state;
  options.with_history = project::KeepsHistory(settings_);
  wx::SetLook(static_cast<wx::Look>(state_.look));
  wx::SetLinkColour(LinkColour());
  window_ =
      new MainWindow({files, toolkit_, window_system_, help_, settings_, texts_, state_, options});
  wx::LayOutBeforeShow(*window_);
  window_->Show();
}

Program::~Program() { delete window_.get(); }

}  // namespace desktop
