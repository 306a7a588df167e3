// SPDX-License-Identifier: MIT
// Visual Basic project files beside a plain pass over the same bytes. All figures come from one
// run, so their ratios mean something on a noisy machine; smaller is better.
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "bench/report.h"
#include "files/file_system.h"
#include "files/memory_file_system.h"
#include "vbfiles/environment.h"
#include "vbfiles/member_list.h"
#include "vbfiles/module_header.h"
#include "vbfiles/module_text.h"
#include "vbfiles/source_index.h"

namespace {

std::atomic<std::size_t> live_bytes = 0;
constexpr std::size_t kSizeField = alignof(std::max_align_t);

}  // namespace

// Counts what is allocated: each block carries its size in front.
void* operator new(std::size_t size) {
  void* block = std::malloc(size + kSizeField);
  if (block == nullptr) throw std::bad_alloc();
  std::memcpy(block, &size, sizeof size);
  live_bytes += size;
  return static_cast<char*>(block) + kSizeField;
}
void operator delete(void* pointer) noexcept {
  if (pointer == nullptr) return;
  char* block = static_cast<char*>(pointer) - kSizeField;
  std::size_t size = 0;
  std::memcpy(&size, block, sizeof size);
  live_bytes -= size;
  std::free(block);
}
void operator delete(void* pointer, std::size_t) noexcept { operator delete(pointer); }

namespace {

using vbfiles::CodePage;
using vbfiles::ModuleText;
using vbfiles::SourceIndex;

constexpr const char* kHeader =
    "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\n  Persistable = 0  'NotPersistable\r\n"
    "  DataBindingBehavior = 0  'vbNone\r\n  DataSourceBehavior  = 0  'vbNone\r\n"
    "  MTSTransactionMode  = 0  'NotAnMTSObject\r\nEND\r\nAttribute VB_Name = \"";

// A class as engineers write them: declarations, then procedures of some thirty lines.
std::string ClassFile(const std::string& name, int lines) {
  std::string text =
      kHeader + name +
      "\"\r\nAttribute VB_GlobalNameSpace = False\r\nAttribute VB_Creatable = True\r\n"
      "Attribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = True\r\n"
      "Option Explicit\r\n\r\n";
  int count = 2;
  for (; count < lines / 20; ++count) {
    text += "Public Level" + std::to_string(count) + " As Double 'Tank" + std::to_string(count) +
            ".Level\r\n";
  }
  for (int sub = 0; count + 30 <= lines; ++sub) {
    text += "\r\n'********************************************************\r\n'Formula " +
            std::to_string(sub) + "\r\nPublic Sub Formula" + std::to_string(sub) + "()\r\n";
    for (int i = 0; i < 5; ++i) {
      text +=
          "    Dim difference As Double\r\n"
          "    difference = Level3 - Level4 * 0.25 ' litres\r\n"
          "    If difference > 10 Then\r\n"
          "        Pump.Speed = Clamp(difference, 0, 100)\r\n"
          "    End If\r\n";
    }
    text += "End Sub\r\n";
    count += 30;
  }
  for (; count < lines; ++count) text += "' end\r\n";
  return text;
}

std::size_t CountLines(const std::string& text) {
  std::size_t lines = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    const void* line_feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
    if (line_feed == nullptr) break;
    at = static_cast<const char*>(line_feed) + 1;
    ++lines;
  }
  return lines;
}

// What a loop computes goes here, so that the compiler cannot leave the loop out.
volatile std::size_t sink = 0;

// Runs both in turn and prints their shortest times.
void Compare(const std::string& what, double limit, const std::function<void()>& subject,
             const std::function<void()>& reference) {
  constexpr int kRuns = 40;
  double shortest = 1e9, shortest_reference = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const bench::Stopwatch reference_watch;
    reference();
    shortest_reference = std::min(shortest_reference, reference_watch.Seconds());
    const bench::Stopwatch watch;
    subject();
    shortest = std::min(shortest, watch.Seconds());
  }
  bench::PrintRatio(what, shortest * 1e6, shortest_reference * 1e6, "us", limit);
}

// Opening a project and listing its classes, against reading its files and counting their lines.
void ListClasses() {
  constexpr int kClasses = 350, kLines = 125000;
  namespace fs = std::filesystem;
  const fs::path folder = fs::temp_directory_path() / "bench_vbfiles";
  fs::create_directories(folder);
  std::string project = "Type=OleDll\r\n";
  std::vector<std::string> paths;
  for (int i = 0; i < kClasses; ++i) {
    const std::string name = "CTank" + std::to_string(i);
    project += "Class=" + name + "; " + name + ".cls\r\n";
    paths.push_back((folder / (name + ".cls")).string());
    std::ofstream(paths.back(), std::ios::binary) << ClassFile(name, kLines / kClasses);
  }
  const std::string project_path = (folder / "Plant.vbp").string();
  std::ofstream(project_path, std::ios::binary) << project << "Name=\"Plant\"\r\n";
  files::FileSystem& system = files::RealFileSystem();
  Compare(
      "list 350 classes of 125,000 lines", 1,
      [&] {
        vbfiles::Environment environment(system);
        environment.Open(project_path);
        std::size_t classes = 0;
        for (const auto& component : environment.FindProject("Plant")->VBComponents()) {
          if (component->GetInstancing() == platform::Instancing::kMultiUse) ++classes;
        }
        if (classes != kClasses) bench::PrintNote("a class is missing");
      },
      [&] {
        std::size_t lines = 0;
        for (const std::string& path : paths) lines += CountLines(files::ReadFile(system, path));
        sink = lines;
      });
  fs::remove_all(folder);
}

// From the bytes of a class of 30,000 lines to its members, against a search for its line ends.
void MembersOfALargeClass() {
  const std::string file = ClassFile("CLarge", 30000);
  Compare(
      "members of a class of 30,000 lines", 10,
      [&] {
        const auto header = vbfiles::ParseModuleHeader(file, true);
        const ModuleText text(file, header.length);
        const SourceIndex index(text, CodePage::Get(CodePage::kWestern));
        sink = vbfiles::ListMembers(index).size();
      },
      [&] { sink = CountLines(file); });
}

// Edits with a look-up of a member after each, in a class of 30,000 lines, against scanning all of
// it.
void EditOfALargeClass() {
  files::MemoryFileSystem system;
  system.Put("/p/P.vbp", "Name=\"P\"\r\nClass=C; C.cls\r\n");
  const std::string file = ClassFile("C", 30000);
  system.Put("/p/C.cls", file);
  vbfiles::Environment environment(system);
  environment.Open("/p/P.vbp");
  platform::CodeModule& module = *environment.FindProject("P")->FindComponent("C")->Module();
  const auto header = vbfiles::ParseModuleHeader(file, true);
  const ModuleText text(file, header.length);
  module.InsertLines(1, "' the first edit compares the file with what was read");
  std::int32_t line = 0;
  Compare(
      "ten edits of it and member look-ups, to a full scan", 1,
      [&] {
        for (int edit = 0; edit < 5; ++edit) {
          line = 1 + (line + 7919) % 29000;
          module.InsertLines(line, "    Public Sub Added()");
          sink = module.FindMember("Formula900").has_value() ? 1 : 0;
          module.DeleteLines(line);
          sink = module.FindMember("Formula900").has_value() ? 1 : 0;
        }
      },
      [&] {
        const SourceIndex index(text, CodePage::Get(CodePage::kWestern));
        sink = index.procedures().size();
      });
}

// The owner of every line of 60,000, against the same over 30,000: twice for a linear search.
void OwnersOfAllLines() {
  const std::string large = ClassFile("C", 60000), small = ClassFile("C", 30000);
  auto walk = [](const std::string& file) {
    const ModuleText text(file, vbfiles::ParseModuleHeader(file, true).length);
    const SourceIndex index(text, CodePage::Get(CodePage::kWestern));
    std::size_t owned = 0;
    for (std::int32_t line = 1; line <= index.LineCount(); ++line) {
      if (index.OwnerOf(line) != nullptr) ++owned;
    }
    sink = owned;
  };
  Compare(
      "owners of 60,000 lines, to those of 30,000", 2.5, [&] { walk(large); },
      [&] { walk(small); });
}

// Memory of a loaded class after its members were listed, against the size of its file.
void MemoryOfALargeClass() {
  files::MemoryFileSystem system;
  const std::string file = ClassFile("C", 30000);
  system.Put("/p/C.cls", file);
  const std::size_t before = live_bytes;
  vbfiles::Environment environment(system);
  environment.Open("/p/C.cls");
  environment.Projects().front()->VBComponents().front()->Module()->CountOfLines();
  bench::PrintRatio("memory of it, to its file", static_cast<double>(live_bytes - before),
                    static_cast<double>(file.size()), "bytes", 3);
}

}  // namespace

int main() {
  bench::PrintHeading("ours", "plain pass");
  ListClasses();
  MembersOfALargeClass();
  EditOfALargeClass();
  OwnersOfAllLines();
  MemoryOfALargeClass();
  return 0;
}
