// SPDX-License-Identifier: MIT
// make-project PATH.ovs [--formulas N] [--aliases N] [--arguments N] [--classes N]
//              [--class-lines N] [--items N]
#include <charconv>
#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <string_view>

#include "bench/make_project.h"

namespace {

constexpr const char* kUsage =
    "Usage: make-project PATH.ovs [--formulas N] [--aliases N] [--arguments N] [--classes N]\n"
    "                    [--class-lines N] [--items N]\n"
    "Makes a large project for trying things on: 10,000 formulas, 100,000 aliases and 100,000\n"
    "arguments in classes of 1,000 formulas unless other numbers are given.\n";

// Takes the options; false when there is something that is none.
bool TakeOptions(int argc, char** argv, std::string& path, bench::ProjectSize& size) {
  const std::map<std::string_view, std::size_t*> options = {
      {"--formulas", &size.formulas},       {"--aliases", &size.aliases},
      {"--arguments", &size.arguments},     {"--classes", &size.classes},
      {"--class-lines", &size.class_lines}, {"--items", &size.items},
  };
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    const auto option = options.find(word);
    if (option == options.end()) {
      if (word.starts_with('-') || !path.empty()) return false;
      path = word;
      continue;
    }
    if (++i == argc) return false;
    const std::string_view number = argv[i];
    const char* const end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, *option->second);
    if (read.ec != std::errc() || read.ptr != end) return false;
  }
  return !path.empty() && size.formulas > 0 && size.aliases > 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::string path;
  bench::ProjectSize size;
  if (!TakeOptions(argc, argv, path, size)) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  try {
    bench::MakeLargeProject(files::RealFileSystem(), path, size);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make-project: %s\n", error.what());
    return 3;
  }
  return 0;
}
