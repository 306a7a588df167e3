// SPDX-License-Identifier: MIT
// Project, group and class files of any content: nothing crashes or hangs, what was not edited is
// not written, and edits leave the index that a fresh scan gives and, once written, the lines that
// a fresh reading gives. The first byte chooses between project files and code; for code the next
// bytes are edits.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "files/memory_file_system.h"
#include "vbfiles/environment.h"
#include "vbfiles/member_list.h"
#include "vbfiles/module_header.h"
#include "vbfiles/module_text.h"
#include "vbfiles/source_index.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void ReadProjects(const std::string& text) {
  files::MemoryFileSystem system;
  system.Put("/p/a.vbp", text);
  system.Put("/p/b.vbg", text);
  system.Put("/p/C.cls", text);
  system.Put("/p/f.frm", text);
  for (const char* path : {"/p/a.vbp", "/p/b.vbg", "/p/C.cls", "/p/f.frm"}) {
    try {
      vbfiles::Environment environment(system);
      environment.Open(path);
      for (const auto& project : environment.VBProjects()) {
        for (const auto& component : project->VBComponents()) {
          component->GetInstancing();
          if (component->Module() == nullptr || !system.Exists(component->FileName())) continue;
          component->Module()->Members();
          component->Module()->AddFromString("' added");
        }
      }
      environment.Problems();
      files::ChangeSet changes;
      environment.Collect(changes);
      for (const files::FileChange& change : changes.files) {
        Require(change.before == system.Get(change.path));
      }
    } catch (const platform::Error&) {
      // Refused with a message: as it should be.
    }
  }
}

void RequireSame(const vbfiles::SourceIndex& index, const vbfiles::SourceIndex& fresh) {
  Require(index.CountOfDeclarationLines() == fresh.CountOfDeclarationLines());
  Require(index.declarations().size() == fresh.declarations().size());
  Require(index.procedures().size() == fresh.procedures().size());
  for (std::int32_t line = 1; line <= fresh.LineCount(); ++line) {
    const vbfiles::Procedure* owner = index.OwnerOf(line);
    const vbfiles::Procedure* expected = fresh.OwnerOf(line);
    Require((owner == nullptr) == (expected == nullptr));
    Require(owner == nullptr || owner->body_line == expected->body_line);
  }
}

// What was written is what goes on: the lines that reading the file would show.
void RequireAdopts(vbfiles::ModuleText& text, const std::string& code) {
  if (text.HasZeroBytes()) return;  // no source text: it is shown without lines
  std::vector<files::KeptRange> kept;
  const std::string written = text.CurrentBytes(&kept);
  for (const files::KeptRange& range : kept) {
    Require(code.compare(range.before, range.length, written, range.after, range.length) == 0);
  }
  const std::size_t header = vbfiles::ParseModuleHeader(written, true).length;
  if (!text.Adopt(written, header)) return;
  const vbfiles::ModuleText again(written, header);
  Require(text.CurrentBytes() == written && text.LineCount() == again.LineCount());
  for (std::int32_t line = 1; line <= again.LineCount(); ++line) {
    Require(text.Line(line) == again.Line(line));
    Require(text.HiddenLines(line) == again.HiddenLines(line));
  }
}

// Takes the lines of the text themselves for what is inserted, so that edits mean something.
void EditCode(std::string_view edits, const std::string& code) {
  const auto header = vbfiles::ParseModuleHeader(code, true);
  Require(header.length <= code.size());
  vbfiles::ModuleText text(code, header.length);
  Require(text.CurrentBytes() == code);
  const vbfiles::CodePage& page =
      vbfiles::CodePage::Get(edits.size() % 2 == 0 ? vbfiles::CodePage::kWestern : 932);
  vbfiles::SourceIndex index(text, page);
  for (std::size_t i = 0; i + 2 < edits.size() && text.LineCount() > 0; i += 3) {
    const auto count = static_cast<std::size_t>(text.LineCount());
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(edits[i + at]); };
    const auto line = static_cast<std::int32_t>(byte(0) % count) + 1;
    const std::vector<std::string> lines = {
        std::string(text.Line(static_cast<std::int32_t>(byte(1) % count) + 1))};
    switch (byte(2) % 3) {
      case 0:
        text.Insert(line, lines);
        index.Update(line, 0, 1);
        break;
      case 1:
        text.Replace(line, lines);
        index.Update(line, 1, 1);
        break;
      default:
        text.Erase(line, 1);
        index.Update(line, 1, 0);
    }
    RequireSame(index, vbfiles::SourceIndex(text, page));
  }
  vbfiles::ListMembers(index);
  RequireAdopts(text, code);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string input(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (data[0] % 2 == 0) {
    ReadProjects(input);
  } else {
    const std::size_t edits = std::min<std::size_t>(input.size(), 30);
    EditCode(std::string_view(input).substr(0, edits), input.substr(edits));
  }
  return 0;
}
