// SPDX-License-Identifier: MIT
// Fuzz target: any words as a call of the command line over a project in memory. The input is the
// words, each ended by a byte 0; what follows an empty word is standard input. Whatever they are,
// the call ends with one of its exit codes, and behind "--" every argument is what was typed.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "cli/parser.h"
#include "cli/run.h"
#include "files/memory_file_system.h"

namespace {

using Words = std::vector<std::string>;

void Require(bool condition) {
  if (!condition) std::abort();
}

// One call in a file system.
int Call(files::FileSystem& system, const Words& words, const std::string& input) {
  std::istringstream in(input);
  std::ostringstream out, err;
  cli::Console console{.in = in,
                       .out = out,
                       .err = err,
                       .status = err,
                       .files = system,
                       .environment = [](const std::string&) { return std::string(); },
                       .program_folder = {}};
  return cli::Run(words, console);
}

const std::map<std::string, std::string>& Project() {
  static const auto files = [] {
    files::MemoryFileSystem system;
    for (const Words& words : {Words{"new", "/Plant.ovs"},
                               {"alias", "add", "/Plant.ovs", "Tank1.Level", "Level"},
                               {"formula", "add", "/Plant.ovs", "--name", "FillTank"},
                               {"argument", "add", "/Plant.ovs", "FillTank", "Level", "--in"}}) {
      Require(Call(system, words, "") == cli::kDone);
    }
    return system.Snapshot();
  }();
  return files;
}

// Each command that takes as many arguments gets the words behind "--".
void ParseAll(const Words& words) {
  Words typed = words;
  typed.insert(typed.begin(), "--");
  for (const cli::CommandSpec& command : cli::Commands()) {
    const cli::Call call = cli::ParseCall(command, typed);
    if (call.complaint) continue;
    std::size_t next = 0;
    for (const cli::ArgumentSpec& argument : command.arguments) {
      const auto values = call.values.find(argument.name);
      if (values == call.values.end()) continue;
      for (const std::string& value : values->second) {
        Require(next < words.size() && words[next++] == value);
      }
    }
    Require(next == words.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Words words;
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  while (!rest.empty() && rest.front() != '\0') {
    const std::size_t end = rest.find('\0');
    words.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  if (!rest.empty()) rest.remove_prefix(1);
  ParseAll(words);

  files::MemoryFileSystem system;
  system.SetCapacity(std::uint64_t{1} << 24);
  for (const auto& [path, contents] : Project()) system.Put(path, contents);
  const int code = Call(system, words, std::string(rest));
  Require(code >= cli::kDone && code <= cli::kFile);
  return 0;
}
