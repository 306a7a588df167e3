// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "bench/folder.h"
#include "bench/make_project.h"

namespace bench {

// A project in files that benchmarks change.
struct FileProject {
  Folder folder;
  ProjectSize size;
  std::string path = folder.File("Plant.ovs");

  explicit FileProject(const ProjectSize& project_size) : size(project_size) {
    MakeLargeProject(files::RealFileSystem(), path, size);
  }
};

// 10,000 formulas in classes of 30,000 lines; the same classes in a tenth of it; and one that
// holds ten formulas in such classes.
inline constexpr ProjectSize kLargeProject{10000, 100000, 100000, 10, 30000, 0};
inline constexpr ProjectSize kTenthProject{1000, 10000, 10000, 2, 30000, 0};
inline constexpr ProjectSize kSmallProject{10, 100, 100, 2, 30000, 0};

// The benchmarks; each prints its lines. `program` is the path of ovformula.
void CompareOperationProcesses(const std::string& program);
void CompareStart(const std::string& program, const std::string& empty);
void CompareOperationsInProcess();
void CompareHistory();

}  // namespace bench
