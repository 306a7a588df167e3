// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "files/file_system.h"

namespace bench {

// How large a project is to be made.
struct ProjectSize {
  std::size_t formulas = 10000;
  std::size_t aliases = 100000;
  std::size_t arguments = 100000;  // spread evenly over the formulas; an alias once in each
  std::size_t classes = 0;         // 0: one for every 1,000 formulas
  std::size_t class_lines = 0;     // each class is filled up with other procedures to that many
  std::size_t items = 0;           // of the item catalogue; 0: no items.csv

  std::size_t Classes() const {
    const std::size_t wanted = classes != 0 ? classes : formulas / 1000;
    return wanted == 0 ? 1 : wanted;
  }
};

// Makes a project as the studio would have it after years: database, formula server project with
// the code of every formula, and item catalogue if wanted. `path` names the database, whose folder
// exists; the other files are put beside it and replace what is there. Raises files::Error when
// the database exists.
void MakeLargeProject(files::FileSystem& system, const std::string& path, const ProjectSize& size);

// Only the database.
void MakeLargeDatabase(files::FileSystem& system, const std::string& path, const ProjectSize& size);

// Names of what is made, counted from 0; the ID of its row is one more.
std::string FormulaName(std::size_t formula);
std::string AliasName(std::size_t alias);
std::string ItemName(std::size_t alias);
inline constexpr const char* kServerName = "PlantServer";
std::string ClassName(std::size_t number);
std::size_t ArgumentsOf(std::size_t formula, const ProjectSize& size);
std::string ProgIdOf(std::size_t formula, const ProjectSize& size);
// The alias that is a formula's n-th argument.
std::size_t AliasOfArgument(std::size_t formula, std::size_t n, const ProjectSize& size);

}  // namespace bench
