// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"
#include "files/memory_file_system.h"

// The real Access files that the tests are run on.
namespace samples {

inline const std::vector<std::string>& Names() {
  static const std::vector<std::string> names = {"adox_jet4.mdb",
                                                 "compIndexTestV2000.mdb",
                                                 "delColTestV2000.mdb",
                                                 "delTestV2000.mdb",
                                                 "empty2000.mdb",
                                                 "indexTestV2000.mdb",
                                                 "overflowTestV2000.mdb",
                                                 "plant.ovs",
                                                 "test2V2000.mdb",
                                                 "testIndexPropertiesV2000.mdb",
                                                 "testUnicodeCompV2003.mdb",
                                                 "testV2003.mdb"};
  return names;
}

inline std::string Path(std::string_view name) { return OV_SAMPLES "/" + std::string(name); }

inline bool Present() { return files::RealFileSystem().Exists(Path("adox_jet4.mdb")); }

inline std::string Contents(std::string_view name) {
  return files::ReadFile(files::RealFileSystem(), Path(name));
}

// Puts a copy of the file into memory, under "/" and its name, which is returned.
inline std::string Copy(files::MemoryFileSystem& system, std::string_view name) {
  const std::string path = "/" + std::string(name);
  system.Put(path, Contents(name));
  return path;
}

}  // namespace samples

#define OV_NEED_SAMPLES() \
  if (!samples::Present()) GTEST_SKIP() << "no Access files in " OV_SAMPLES
