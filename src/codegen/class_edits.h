// SPDX-License-Identifier: MIT
// The changes of one class's alias declarations, collected and then made at once.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "codegen/declaration.h"
#include "codegen/report.h"
#include "platform/vbide.h"

namespace codegen {

class ClassEdits {
 public:
  // The declaration is ours when it names one of these items; an engineer's own declaration of
  // that name is commented out instead of deleted.
  void Remove(std::string_view alias, std::vector<std::string> items) {
    removed_.push_back({std::string(alias), std::move(items)});
  }
  // With `type_kept` the type is that of an older declaration, for nobody knows the item's.
  void Declare(std::string_view alias, std::string_view item, std::string_view type,
               bool type_kept) {
    declared_.push_back({std::string(alias), std::string(item), std::string(type), type_kept});
  }

  // First the removals, then the new declarations, behind the module's declarations, unless the
  // class declares the name. A declaration that stands already is not touched. Returns the names
  // that are gone.
  std::vector<std::string> Apply(platform::VBComponent& component, platform::CodeModule& module,
                                 Report& report);
  // Of the new declarations those with a kept type; known after Apply.
  const std::vector<std::string>& kept_types() const { return kept_types_; }

 private:
  struct Declaration {
    std::string alias;
    std::string item;
    std::string type;
    bool type_kept = false;
    // Whether the line is this declaration, whatever blanks and letter case it is written with.
    bool IsWrittenIn(const VariableLine& line) const;
  };
  struct Removal {
    std::string alias;
    std::vector<std::string> items;
  };
  struct Place {
    std::string file;  // name of the component's file without its folder
    platform::CodeModule& module;
    Report& report;
  };

  // A line that goes, and how.
  struct GoneLine {
    std::int32_t line = 0;
    std::string alias;
    std::string text;
    bool ours = false;
  };

  // The line that declares the name, when it declares nothing else.
  std::optional<GoneLine> FindLine(const Place& place, const Removal& removal) const;
  // Takes away the lines of the removed names and returns those names.
  std::vector<std::string> RemoveLines(const Place& place);
  void InsertDeclarations(const Place& place);

  std::vector<Removal> removed_;
  std::vector<Declaration> declared_;
  std::vector<std::string> kept_types_;
};

// Warns of each place of the module that still uses one of the names.
void WarnOfUses(const std::vector<std::string>& names, platform::VBComponent& component,
                platform::CodeModule& module, Report& report);

// File name of a path, for messages.
std::string FileNameOf(std::string_view path);

// Warns when the module nears the limits of Visual Basic: the number of its lines, and the length
// of a line that was written.
void WarnOfLimits(std::string_view file, platform::CodeModule& module, Report& report);
void WarnOfLongLine(std::string_view file, std::int32_t line, std::string_view text,
                    Report& report);

}  // namespace codegen
