// SPDX-License-Identifier: MIT
// The code of the open projects as one program, read as far as a question needs it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "messages/message.h"
#include "platform/vbide.h"
#include "vbcode/program.h"

namespace codegen {

// A snapshot: it does not follow edits of the modules.
class ProjectCode {
 public:
  explicit ProjectCode(platform::VBE& vbe);

  // Read these classes and whatever modules they may call. Classes that no open project has are
  // left out. Raises platform::Error when one of them is there and cannot be read.
  void Load(std::span<const std::string> prog_ids);
  // The same for all that their procedures may set off, also who implements a class that they use
  // or takes an event. What cannot be read is left out.
  void LoadSetOff(std::span<const std::string> prog_ids);
  // Reads, too, every module that holds the word anywhere in its code, and what those may call.
  void LoadHolders(std::string_view word);
  // Reads, too, every module whose lines, joined by CR LF, are wanted; not what they call.
  void LoadWhere(const std::function<bool(std::string_view text)>& is_wanted);
  // Reads, too, the modules of the wanted components; not what they call.
  void LoadOf(const std::function<bool(const platform::VBComponent&)>& is_wanted);
  void LoadAll();

  // As if the module held this text, whose lines end with LF or CR LF.
  void ReplaceText(std::int32_t module, std::string text) {
    program_.Replace(module, std::move(text));
  }

  const vbcode::Program& program() const { return program_; }
  // Number of the class's module; vbcode::kNone when it is not read.
  std::int32_t FindClass(std::string_view prog_id) const;
  // "PROJECT.COMPONENT" of a module of the program.
  std::string NameOf(std::int32_t module) const;
  platform::VBComponent& ComponentOf(std::int32_t module) const { return *At(module).component; }
  // Where the module stands among all of the open projects, which is the order of their lists.
  std::size_t PositionOf(std::int32_t module) const {
    return source_of_[static_cast<std::size_t>(module)];
  }
  // What was not read because it cannot be: a sentence with the file each.
  const std::vector<messages::Message>& unread() const { return unread_; }

 private:
  struct Source {
    std::string project;
    std::string name;
    std::shared_ptr<platform::VBComponent> component;
    bool is_read = false;  // or cannot be
  };
  enum class Failure { kRaise, kKeep };

  const Source& At(std::int32_t module) const { return sources_[PositionOf(module)]; }
  void Read(Source& source, Failure failure, const std::function<bool(std::string_view)>& wanted);
  void ReadClasses(std::span<const std::string> prog_ids, Failure failure);
  // Adds what was read since the last time to the program.
  void AddRead();
  // Reads what the program's modules may call, until nothing is missing.
  void Complete();
  bool MayBeCalled(const Source& source) const;
  // Whether modules that nobody names may take part in what the program's do.
  bool SetsOffOthers(std::span<const std::string> prog_ids) const;

  std::vector<Source> sources_;         // of all projects
  std::vector<std::size_t> source_of_;  // by module
  std::vector<vbcode::ModuleSource> new_;
  vbcode::Program program_;
  std::vector<messages::Message> unread_;
};

}  // namespace codegen
