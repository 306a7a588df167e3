// SPDX-License-Identifier: MIT
#include <vector>

#include "apps/addin_classes.h"
#include "com/classes.h"
#include "embedded/connect_class.h"

namespace apps {

std::span<const com::ServedClass> AddInClasses() {
  static const std::vector<com::ServedClass> kClasses = [] {
    std::vector<com::ServedClass> classes = {embedded::ConnectClass()};
    for (const com::ServedClass& served : com::ScriptClasses()) classes.push_back(served);
    return classes;
  }();
  return kClasses;
}

}  // namespace apps
