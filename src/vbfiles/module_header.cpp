// SPDX-License-Identifier: MIT
#include "vbfiles/module_header.h"

#include "vbcode/source_lines.h"
#include "vbfiles/attribute_line.h"
#include "vbfiles/field_text.h"
#include "vbfiles/physical_lines.h"

namespace vbfiles {

using vbcode::IsKeyword;

namespace {

std::string_view FirstWord(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && !vbcode::IsBlank(text[end])) ++end;
  return text.substr(0, end);
}

// A longer line is no header's; it is not read to its end to find that out.
constexpr std::size_t kMaxLineLength = 65536;

class HeaderReader {
 public:
  HeaderReader(std::string_view text, bool whole) : text_(text), whole_(whole) {}

  ModuleHeader Read() {
    if (text_.starts_with(kUtf8Mark)) position_ = kUtf8Mark.size();
    header_.length = position_;
    std::string_view line;
    if (Peek(line) && IsKeyword(FirstWord(line), "version")) {
      header_.recognised = true;
      Take();
      ReadBlock();
    }
    while (Peek(line)) {
      const auto attribute = ParseAttributeLine(line);
      if (!attribute) break;
      header_.recognised = true;
      Take();
      TakeAttribute(*attribute);
    }
    header_.complete = whole_ || !ran_out_;
    return header_;
  }

 private:
  // The line at the position; false at the end of the text. A line whose end may lie outside the
  // text is not delivered.
  bool Peek(std::string_view& line) {
    if (position_ < text_.size()) {
      current_ = ReadPhysicalLine(text_, position_);
      if (whole_ || current_.next < text_.size()) {
        line = TextOf(text_, current_);
        return true;
      }
      if (text_.size() - position_ > kMaxLineLength) return false;
    }
    ran_out_ = true;
    return false;
  }

  void Take() { header_.length = position_ = current_.next; }

  // Object lines, then a block from Begin to End with blocks inside.
  void ReadBlock() {
    int depth = 0;
    std::string_view line;
    while (Peek(line)) {
      line = Trimmed(line);
      const std::string_view word = FirstWord(line);
      if (IsKeyword(word, "begin") || IsKeyword(word, "beginproperty")) {
        if (depth++ == 0) TakeObject(line.substr(word.size()));
      } else if (IsKeyword(word, "end") || IsKeyword(word, "endproperty")) {
        if (--depth <= 0) {
          Take();
          return;
        }
      } else if (depth == 0 && !IsKeyword(word, "object")) {
        return;
      } else if (depth == 1) {
        TakeSetting(line);
      }
      Take();
    }
  }

  // The rest of a Begin line: class and name of the object.
  void TakeObject(std::string_view rest) {
    rest = Trimmed(rest);
    const std::string_view type = FirstWord(rest);
    header_.mdi_form = IsKeyword(type, "vb.mdiform");
    header_.object_name = Trimmed(rest.substr(type.size()));
  }

  void TakeSetting(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return;
    if (!IsKeyword(Trimmed(line.substr(0, equals)), "multiuse")) return;
    header_.multi_use = FirstWord(Trimmed(line.substr(equals + 1))) != "0";
  }

  void TakeAttribute(const AttributeLine& attribute) {
    const bool value = IsKeyword(attribute.value, "true") || attribute.value == "-1";
    if (IsKeyword(attribute.name, "vb_name")) header_.name = Unquoted(attribute.value);
    if (IsKeyword(attribute.name, "vb_exposed")) header_.exposed = value;
    if (IsKeyword(attribute.name, "vb_creatable")) header_.creatable = value;
    if (IsKeyword(attribute.name, "vb_globalnamespace")) header_.global_name_space = value;
  }

  std::string_view text_;
  bool whole_;
  bool ran_out_ = false;
  std::size_t position_ = 0;
  PhysicalLine current_;
  ModuleHeader header_;
};

}  // namespace

ModuleHeader ParseModuleHeader(std::string_view text, bool whole) {
  return HeaderReader(text, whole).Read();
}

platform::Instancing InstancingOf(const ModuleHeader& header) {
  using platform::Instancing;
  if (!header.exposed) return Instancing::kPrivate;
  if (!header.creatable) return Instancing::kPublicNotCreatable;
  if (header.multi_use) {
    return header.global_name_space ? Instancing::kGlobalMultiUse : Instancing::kMultiUse;
  }
  return header.global_name_space ? Instancing::kGlobalSingleUse : Instancing::kSingleUse;
}

}  // namespace vbfiles
