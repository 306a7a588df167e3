// SPDX-License-Identifier: MIT
#include "project/report_file.h"

#include <algorithm>
#include <span>

#include "files/journal_file.h"
#include "files/replace_file.h"
#include "jet/lock_file.h"
#include "platform/text.h"
#include "project/report.h"

namespace project {

namespace {

constexpr std::size_t kHead = 1024;  // bytes in which a report says that it is one

bool IsReport(files::FileSystem& system, const std::string& path) {
  std::string head(kHead, '\0');
  const auto file = system.Open(path, files::OpenMode::kRead);
  head.resize(file->ReadAt(0, std::as_writable_bytes(std::span(head))));
  return head.empty() || head.find(kReportMark) != std::string::npos;
}

}  // namespace

std::vector<std::string> FilesOfProject(Project& opened) {
  const std::string& database = opened.path();
  std::vector<std::string> files = {database, jet::LockFile::PathFor(database),
                                    database + ".journal", opened.history().file().path(),
                                    opened.items().path()};
  const auto& vb = opened.vb();
  if (!vb) return files;
  for (const auto& project : vb->VBProjects()) {
    files.push_back(project->FileName());
    for (const auto& component : project->VBComponents()) files.push_back(component->FileName());
  }
  std::ranges::copy(vb->GroupFiles(), std::back_inserter(files));
  return files;
}

ReportPlace LookAtReportPlace(files::FileSystem& system, const std::string& path,
                              const std::vector<std::string>& project_files) {
  const std::string target = files::ResolveTarget(system, path);
  const auto stamp = system.Stamp(target);
  for (const std::string& file : project_files) {
    const auto other = system.Stamp(file);
    const bool same =
        stamp && other ? stamp->identity == other->identity
                       : platform::EqualsIgnoringCase(target, files::ResolveTarget(system, file));
    if (same) return ReportPlace::kProject;
  }
  return !stamp || IsReport(system, target) ? ReportPlace::kFree : ReportPlace::kOther;
}

}  // namespace project
