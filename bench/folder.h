// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace bench {

// Files of a benchmark; removed at the end.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string File(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

}  // namespace bench
