// SPDX-License-Identifier: MIT
// Brings code into step with rows: code_sync.cpp classes, their declarations and headers,
// sub_sync.cpp single subs, uses_sync.cpp what stands in procedures.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "codegen/class_differences.h"
#include "codegen/code_context.h"
#include "codegen/project_code.h"
#include "codegen/report.h"
#include "codegen/sub_lines.h"
#include "codegen/touched.h"
#include "messages/text_number.h"

namespace codegen {

// The code's part of one operation. What an operation cannot do although the thing is there (a
// module that cannot be written, a database that fails, a name that is taken) is raised as a
// platform::Error; what is left out because a class or procedure is missing is a warning. Nothing
// that an engineer wrote is ever removed: text is commented out, moved or kept.
class CodeSync {
 public:
  // The context must outlive it.
  explicit CodeSync(const CodeContext& context) : context_(context) {}

  // Whether the class holds nothing of that name but a public variable, or is not there.
  bool CanDeclare(std::string_view prog_id, std::string_view alias);
  // Raise what AddSub would refuse; RequireFree a sub of the name, too.
  void RequireAddable(std::string_view prog_id, std::string_view name);
  void RequireFree(std::string_view prog_id, std::string_view name);
  // The aliases that the header of that formula lists, by the rows as they are.
  std::vector<std::string> ArgumentsOf(std::string_view prog_id, std::string_view name) const;

  // Brings everything touched into step with the rows, which are changed already. Only what was
  // touched is read. The host's component list follows with CommitComponents.
  void Follow(const Touched& touched);
  void CommitComponents();
  std::vector<messages::Message> TakeWarnings() { return report_.TakeWarnings(); }

  // The steps of Follow.
  void AddSub(std::string_view prog_id, std::string_view name, std::string_view code,
              const std::vector<std::string>& aliases);
  // The declaration becomes "Public Sub NAME()". Of a static sub only the name is exchanged, and so
  // of one with parameters, with a warning: their bodies rest on what the declaration says.
  void RenameSub(std::string_view prog_id, std::string_view old_name, std::string_view new_name,
                 const std::vector<std::string>& aliases);
  void DeleteSub(std::string_view prog_id, std::string_view name);
  void SwitchOff(std::string_view prog_id, std::string_view name);
  void RebuildHeader(std::string_view prog_id, std::string_view name,
                     const std::vector<std::string>& aliases);
  // Puts these lines in place of the header region.
  void ReplaceHeader(std::string_view prog_id, std::string_view name,
                     const std::vector<std::string>& lines);
  // One argument of the formula `leaving_id` does not count although its row is still there.
  void FollowArgument(const Touched::Argument& argument, std::int32_t leaving_id = 0);
  void FollowAlias(const Touched::Alias& alias);
  void FollowDeclaration(const Touched::Declaration& declaration);
  // Refuses what would not mean the same afterwards; warns of places that may use the name.
  void FollowUses(const Touched::Uses& uses);
  // Refuses when a line is another one since.
  void FollowReplacement(const Touched::Replacement& replacement);
  void RegisterClass(std::string_view prog_id);
  // Takes the class from the component list when no formula of it is left.
  void UnregisterClass(std::string_view prog_id);
  // What the steps left for the end: declarations, headers, and warnings of lines, which have
  // their final numbers then.
  void Finish();

 private:
  // One class's part.
  struct ClassWork {
    WantedClass wanted;
    std::unordered_set<std::string> formulas;  // names of the wanted ones, case folded
    // Warnings that name a sub and its line.
    std::vector<std::pair<messages::TextNumber, std::string>> sub_warnings;
  };

  // A place that may use a name and was left as it was.
  struct LeftUse {
    std::string prog_id;
    std::string procedure;
    platform::ProcKind kind = platform::ProcKind::kProc;
    std::int32_t line = 0;  // behind the first of the procedure, or of the module
    std::string name;
  };

  // Locate, with a warning when there is no such class.
  Place LocateOrWarn(std::string_view prog_id);
  ClassWork& WorkOn(std::string_view prog_id);
  void WantHeader(std::string_view prog_id, std::string_view name,
                  const std::vector<std::string>* aliases = nullptr);
  // The type of an unknown item is that of the old declaration.
  void WantDeclaration(std::string_view prog_id, std::string_view alias, std::string_view item,
                       std::string_view old_prog_id, std::string_view old_alias);
  void Mend(const Place& place, const Difference& difference);
  // Returns the aliases whose type is that of an older declaration.
  std::vector<std::string> FinishClass(const Place& place, const ClassWork& work);

  void FollowFormula(const Touched::Formula& formula);
  void Move(const Touched::Formula& formula, const std::vector<std::string>& aliases);
  // Warns when a move leaves a procedure's text in the old class only.
  void WarnOfCodeLeft(const Touched::Formula& formula);
  // Appends code that is to hold the sub, and gives it its first header.
  void AppendSub(const Place& place, std::string_view name, std::string_view code,
                 const std::vector<std::string>& aliases);
  void RenameDeclaration(const Place& place, const SubLocation& sub, std::string_view new_name);
  void CommentOut(const Place& place, const SubLocation& sub);
  // Whether the class may hold #If blocks; it is read for that once.
  bool MayHoldBlocks(const Place& place);
  // Refuses a sub that the server cannot call. No #If block is open in front of the first line.
  void RequireCallable(const Place& place, const SubLocation& sub, std::int32_t first_line);
  // The same; warns unless its header names one of the formulas.
  void RequireAdoptable(const Place& place, const SubLocation& sub,
                        std::initializer_list<std::string_view> formulas);
  // Refuses a name under which no sub can be added.
  void RequireFree(const Place& place, std::string_view name);
  // Whether the class has a type, enumeration or element of one of that name.
  bool IsTypeName(const Place& place, std::string_view name);
  // Whether the procedure cuts an #If block, so that its directives have to stay; with a warning.
  bool KeepsDirectives(const Place& place, const SubLocation& sub,
                       const std::vector<std::string>& lines);

  void KeepLeftUses(const ProjectCode& code, std::span<const vbcode::Use> left,
                    const Touched::Uses& uses);
  void WarnOfLeftUses();
  void WarnNoSub(std::string_view prog_id, std::string_view name);
  void WarnAt(const Place& place, messages::TextNumber text, std::int32_t line,
              std::string_view name);
  // Warn when the module nears the limits of Visual Basic.
  void WarnOfLimits(const Place& place);
  void WarnOfLongLine(const Place& place, std::int32_t line, std::string_view text);

  const CodeContext& context_;
  Report report_;
  std::map<std::string, ClassWork> classes_;  // by ProgID without case
  // Of the classes asked about, by ProgID without case. No operation changes them.
  std::map<std::string, std::unordered_set<std::string>> type_names_;
  std::map<std::string, bool> holds_blocks_;  // the same
  std::vector<LeftUse> left_uses_;
  struct ComponentChange {
    bool add = false;
    std::string prog_id;
    friend bool operator==(const ComponentChange&, const ComponentChange&) = default;
  };
  std::vector<ComponentChange> component_changes_;
};

}  // namespace codegen
