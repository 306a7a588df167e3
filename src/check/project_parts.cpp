// SPDX-License-Identifier: MIT
#include "check/project_parts.h"

namespace check {

Parts PartsOf(project::Project& project, const Progress& progress) {
  return PartsOf(project, project.operations(), project.code().context(), progress);
}

Parts PartsOf(project::Project& project, store::Operations& operations,
              const codegen::CodeContext& code, const Progress& progress) {
  Parts parts{project.path(), operations, code, *project.connection()};
  parts.files = project.vb().get();
  const project::ItemCatalogue& catalogue = project.items().Catalogue();
  if (catalogue.size() > 0) {
    parts.has_item = [&catalogue](std::string_view item) {
      return catalogue.Find(item).has_value();
    };
  }
  parts.count_faults = [&project, progress] {
    return project.CountFaults([&](std::uint64_t done, std::uint64_t total) {
      if (progress) progress(static_cast<std::size_t>(done), static_cast<std::size_t>(total));
    });
  };
  return parts;
}

}  // namespace check
