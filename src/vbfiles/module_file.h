// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/contents.h"
#include "files/file_system.h"
#include "messages/message.h"
#include "vbfiles/code_page.h"
#include "vbfiles/environment_state.h"
#include "vbfiles/module_header.h"

namespace vbfiles {

// The file of a component: where it is, what its header says, and whether it may be written.
class ModuleFile {
 public:
  ModuleFile(EnvironmentState& state, const CodePage& page, std::string path)
      : state_(state), page_(page), path_(std::move(path)) {}

  // Takes the folder for the tree of a project that the file belongs to.
  void AddTree(const std::string& folder);

  const std::string& path() const { return path_; }
  const CodePage& page() const { return page_; }
  const ModuleHeader& header() const { return header_; }
  // Why the file cannot be used, in a sentence; "" when it can.
  const messages::Message& problem() const { return problem_; }

  // Reads the header unless the file is as it was. Never raises; sets problem().
  void RefreshHeader();

  struct Version {
    files::Contents contents;
    files::FileStamp stamp;
  };
  // Reads the whole file. Raises platform::Error.
  Version Read();
  // Whether the file holds exactly these bytes. Raises platform::Error.
  bool Holds(std::string_view bytes);
  // Nothing when the file is not there.
  std::optional<files::FileStamp> Stamp() { return state_.system.Stamp(path_); }

  // Raises platform::Error (kErrModuleNotEditable) when the file is read-only or lies outside
  // the folder trees of its projects and the folders that the engineer agreed to.
  void CheckWritable();

 private:
  void ReadHeader();
  bool IsInsideTrees();
  std::string TargetFolder();  // where the file lies, links followed

  EnvironmentState& state_;
  const CodePage& page_;
  std::string path_;
  std::vector<std::string> trees_;
  ModuleHeader header_;
  std::optional<files::FileStamp> header_stamp_;
  messages::Message problem_;
};

}  // namespace vbfiles
