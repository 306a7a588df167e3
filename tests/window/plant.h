// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "project/project.h"
#include "tests/support/sample_plant.h"

namespace window_tests {

// The sample project with rows and code as operations make them, each of which opens and closes it.
struct Plant : support::SamplePlant {
  void AddFormulas(const std::vector<store::FormulaValues>& formulas) {
    Change([&](store::Operations& operations) {
      for (const auto& values : formulas) EXPECT_TRUE(operations.AddFormula(values).success());
    });
  }
  void AddAliases(const std::vector<store::AliasValues>& aliases) {
    Change([&](store::Operations& operations) {
      EXPECT_TRUE(operations.AddAliases(aliases).success());
    });
  }
  void AddArguments(std::int32_t formula, const std::vector<store::ArgumentValues>& arguments) {
    Change([&](store::Operations& operations) {
      EXPECT_TRUE(operations.AddArguments(formula, arguments).success());
    });
  }
  void Change(const std::function<void(store::Operations&)>& change) {
    const texts::TextTable texts(texts::Language::kEnglish);
    project::Project project(system, support::kPlantDatabase, {}, texts);
    change(project.operations());
  }
  // In the code of a class, once.
  void Replace(const std::string& class_name, const std::string& from, const std::string& to) {
    std::string text = system.Get(support::ClassPath(class_name));
    const std::size_t place = text.find(from);
    ASSERT_NE(place, std::string::npos) << from << " in\n" << text;
    system.Put(support::ClassPath(class_name), text.replace(place, from.size(), to));
  }
};

// With formulas in two classes, the last of which is disabled.
struct PlantWithFormulas : Plant {
  PlantWithFormulas() {
    AddFormulas({{"Fill10", "PumpServer.CPump", 2, 0, true, "upper tank"},
                 {"Fill2", "PumpServer.CPump", 2},
                 {"Drain", "PumpServer.CTank", 7, 500, true, "night shift"},
                 {"Alarm", "PumpServer.CTank", 6, 0, false}});
  }
};

}  // namespace window_tests
