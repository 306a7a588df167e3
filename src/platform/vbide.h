// SPDX-License-Identifier: MIT
// The development environment: the Visual Basic extensibility model's objects, as far as the
// system uses them. Lines and columns are numbered from 1. Names match without regard to case.
// Failures are platform::Error with the environment's numbers; a failed call changes nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"
#include "platform/variant.h"

namespace platform {

inline constexpr std::int32_t kErrSubscript = 9;              // unknown name, line out of range
inline constexpr std::int32_t kErrProcNotDefined = 35;        // Sub or Function not defined
inline constexpr std::int32_t kErrModuleNotEditable = 40198;  // read-only file

enum class ProjectType { kStandardExe = 0, kActiveXExe = 1, kActiveXDll = 2, kActiveXControl = 3 };

enum class ComponentType {
  kStdModule = 1,
  kClassModule = 2,
  kMSForm = 3,
  kResFile = 4,
  kVBForm = 5,
  kVBMDIForm = 6,
  kPropPage = 7,
  kUserControl = 8,
  kDocObject = 9,
  kRelatedDocument = 10,
  kActiveXDesigner = 11,
};

enum class Instancing {
  kNone = 0,  // the component has no such property
  kPrivate = 1,
  kPublicNotCreatable = 2,
  kSingleUse = 3,
  kGlobalSingleUse = 4,
  kMultiUse = 5,
  kGlobalMultiUse = 6,
};

enum class ProcKind { kProc = 0, kLet = 1, kSet = 2, kGet = 3 };
enum class MemberType { kMethod = 1, kProperty = 2, kVariable = 3, kEvent = 4, kConst = 5 };
enum class MemberScope { kPrivate = 1, kPublic = 2, kFriend = 3 };

struct Member {
  std::string name;  // as spelled in the declaration
  MemberType type = MemberType::kMethod;
  MemberScope scope = MemberScope::kPublic;
  std::int32_t code_location = 0;  // line on which the declaration statement starts
};

struct ProcOfLineResult {
  std::string name;  // as spelled in the declaration, empty when the line belongs to none
  ProcKind kind = ProcKind::kProc;
};

struct CodeSelection {
  std::int32_t start_line = 1;
  std::int32_t start_column = 1;
  std::int32_t end_line = 1;
  std::int32_t end_column = 1;
};

class CodePane {
 public:
  virtual ~CodePane() = default;
  virtual std::int32_t TopLine() const = 0;
  virtual void SetTopLine(std::int32_t line) = 0;
  virtual CodeSelection GetSelection() const = 0;
  virtual void SetSelection(const CodeSelection& selection) = 0;
  virtual void Show() = 0;
};

// The code of a component. Every edit may move procedures and members: never keep a line number
// across an edit.
class CodeModule {
 public:
  virtual ~CodeModule() = default;
  // Raises what keeps the file from being read as source text: such a module is there, but shows
  // no line and no member, which must not be taken for an empty one.
  virtual void RequireSource() = 0;
  virtual std::int32_t CountOfLines() = 0;
  virtual std::int32_t CountOfDeclarationLines() = 0;
  // `count` lines joined by CR LF; a count past the end is cut off.
  virtual std::string Lines(std::int32_t start, std::int32_t count) = 0;
  virtual void InsertLines(std::int32_t line, std::string_view text) = 0;
  virtual void ReplaceLine(std::int32_t line, std::string_view text) = 0;
  virtual void DeleteLines(std::int32_t start, std::int32_t count = 1) = 0;
  // Appends at the end of the module.
  virtual void AddFromString(std::string_view text) = 0;
  virtual std::int32_t ProcStartLine(std::string_view name, ProcKind kind) = 0;
  virtual std::int32_t ProcBodyLine(std::string_view name, ProcKind kind) = 0;
  virtual std::int32_t ProcCountLines(std::string_view name, ProcKind kind) = 0;
  virtual ProcOfLineResult ProcOfLine(std::int32_t line) = 0;
  // All members in source order, in one call.
  virtual std::vector<Member> Members() = 0;
  virtual std::optional<Member> FindMember(std::string_view name) = 0;
  // The first of the lines from `start` to `end` that holds the text as a whole word, in whatever
  // letter case and also in comments and literals; nothing when none does.
  virtual std::optional<std::int32_t> Find(std::string_view text, std::int32_t start,
                                           std::int32_t end) = 0;
  // Opens the pane in the real environment.
  virtual CodePane& Pane() = 0;
};

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  virtual std::string Name() const = 0;
  virtual ComponentType Type() const = 0;
  virtual Instancing GetInstancing() const = 0;
  virtual std::string FileName() const = 0;  // path of the component's file
  // Null for a component without code.
  virtual CodeModule* Module() = 0;
  virtual void Activate() = 0;
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  virtual std::string Name() const = 0;
  virtual ProjectType Type() const = 0;
  virtual std::string FileName() const = 0;
  virtual std::vector<std::shared_ptr<VBComponent>> VBComponents() = 0;
  // Null when there is none of that name.
  virtual std::shared_ptr<VBComponent> FindComponent(std::string_view name) = 0;
};

class VBE : public Object {
 public:
  virtual std::vector<std::shared_ptr<VBProject>> VBProjects() = 0;
  virtual std::shared_ptr<VBProject> FindProject(std::string_view name) = 0;
};

}  // namespace platform
