// SPDX-License-Identifier: MIT
#include "desktop/chosen_file.h"

#include "files/error.h"
#include "files/messages.h"
#include "files/replace_file.h"
#include "project/report_file.h"
#include "studio/window_texts.h"

namespace desktop {

bool WriteChosen(const WindowParts& parts, const WindowMessages& messages,
                 project::Project& project, const std::string& path, const std::string& contents) {
  const auto place =
      project::LookAtReportPlace(parts.files, path, project::FilesOfProject(project));
  if (place == project::ReportPlace::kProject) {
    files::Raise(files::ErrorKind::kExists, path, files::message::kCannotBeWritten,
                 files::message::kExistsAlready);
  }
  const auto may_replace = [&] {
    return messages.Ask(parts.texts.Text(studio::kTextReplaceFile, {{"<File>", path}}), "");
  };
  if (parts.files.Exists(path) && !may_replace()) return false;
  files::ReplaceFile(parts.files, path, contents);
  return true;
}

}  // namespace desktop
