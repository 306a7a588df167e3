// SPDX-License-Identifier: MIT
#include "check/modules.h"

#include <algorithm>
#include <optional>

#include "codegen/identifier.h"
#include "codegen/source_line.h"
#include "messages/error.h"
#include "platform/text.h"
#include "store/rules.h"

namespace check {
namespace {

constexpr std::string_view kCheck = "check";
constexpr std::string_view kIgnore = ": ignore ";

// The rules that the comment names.
std::set<const Rule*> RulesIn(std::string_view codes) {
  std::set<const Rule*> rules;
  while (!codes.empty()) {
    const std::size_t end = std::min(codes.find_first_of(", \t"), codes.size());
    if (const Rule* rule = FindRule(codes.substr(0, end))) rules.insert(rule);
    codes.remove_prefix(std::min(end + 1, codes.size()));
  }
  return rules;
}

SilencedLines FindSilenced(std::string_view text) {
  SilencedLines lines;
  std::int32_t line = 1;
  std::size_t counted = 0;
  // The colon is rare in code.
  for (std::size_t at = text.find(kIgnore); at != std::string_view::npos;
       at = text.find(kIgnore, at + 1)) {
    line += static_cast<std::int32_t>(std::ranges::count(text.substr(counted, at - counted), '\n'));
    counted = at;
    const std::size_t begin = text.substr(0, at).find_last_of("\r\n") + 1;
    const std::string_view whole = text.substr(begin, text.find_first_of("\r\n", at) - begin);
    const std::size_t comment = codegen::CommentStart(whole);
    const bool is_ours = comment < at - begin && text.substr(0, at).ends_with(kCheck);
    if (!is_ours) continue;
    const auto rules = RulesIn(whole.substr(at - begin + kIgnore.size()));
    lines[line].insert(rules.begin(), rules.end());
    if (codegen::IsCommentLine(whole)) lines[line + 1].insert(rules.begin(), rules.end());
  }
  return lines;
}

// Whether text that was read by the code page 1252 is UTF-8: all its characters beyond ASCII, and
// there are some, come in the groups of bytes that UTF-8 is made of.
bool LooksLikeUtf8(std::string_view text) {
  std::size_t groups = 0;
  int expected = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (expected == 0 && static_cast<unsigned char>(text[at]) < 0x80) {
      ++at;
      continue;
    }
    const std::optional<std::uint8_t> byte =
        platform::ToWindows1252(platform::NextCodePoint(text, at));
    if (!byte) return false;
    const bool follows = (*byte & 0xC0) == 0x80;
    if (follows != (expected > 0)) return false;
    if (follows) {
      --expected;
      continue;
    }
    expected = *byte >= 0xF0 ? 3 : *byte >= 0xE0 ? 2 : *byte >= 0xC2 ? 1 : 0;
    if (expected == 0) return false;
    ++groups;
  }
  return groups > 0 && expected == 0;
}

void CheckLines(const std::string& file, std::string_view text, Findings& findings) {
  std::int32_t line = 0;
  for (std::size_t at = 0; at < text.size(); ++line) {
    const std::size_t end = std::min(text.find("\r\n", at), text.size());
    if (end - at > codegen::kMaxLineLength) {
      const std::size_t count = codegen::CharacterCount(text.substr(at, end - at));
      if (count > codegen::kMaxLineLength) {
        findings.Add({rule::kLongLine, Line(file, line + 1), {{"<Count>", count}}});
      }
    }
    at = end + 2;
  }
  if (line > codegen::kMaxModuleLines) {
    findings.Add({rule::kLongModule, Line(file, 0), {{"<Count>", line}}});
  }
  if (LooksLikeUtf8(text)) findings.Add({rule::kOtherCodePage, Line(file, 0), {{"<File>", file}}});
}

// Why a module cannot be read.
messages::Message ProblemOf(platform::VBComponent& component) {
  try {
    component.Module()->RequireSource();
    return {};
  } catch (const platform::Error& error) {
    return messages::MessageOf(error);
  }
}

}  // namespace

Modules::Modules(const Parts& parts, Findings& findings, const Progress& progress,
                 const Changed* changed)
    : changed_(changed) {
  if (!parts.code.vbe) return;
  code_ = std::make_unique<codegen::ProjectCode>(*parts.code.vbe);
  std::size_t read = 0;
  code_->LoadOf([&](const platform::VBComponent& component) {
    if (!IsWanted(component)) return false;
    if (progress) progress(read, read + 1);
    ++read;
    return true;
  });
  for (const auto& project : parts.code.vbe->VBProjects()) {
    for (const auto& component : project->VBComponents()) {
      if (!component->Module()) continue;
      Module module;
      module.component = component;
      module.prog_id = project->Name() + "." + component->Name();
      module.is_wanted = IsWanted(*component);
      if (module.is_wanted) {
        module.can_hold_formulas = store::CanHoldFormulas(*project, *component);
        module.code = code_->FindClass(module.prog_id);
        if (module.code == vbcode::kNone) module.problem = ProblemOf(*component);
      }
      modules_.push_back(std::move(module));
    }
  }
  for (std::int32_t code = 0; code < program().ModuleCount(); ++code) {
    const std::string_view text = program().module(code).lines->text();
    findings.Silence(File(code), FindSilenced(text));
    CheckLines(File(code), text, findings);
  }
}

const Modules::Module* Modules::Find(std::string_view prog_id) const {
  // What follows the class's name does not count, as when a formula's code is located.
  const std::size_t end = prog_id.find('.', prog_id.find('.') + 1);
  const std::string_view name = prog_id.substr(0, end);
  const auto found = std::ranges::find_if(modules_, [&](const Module& module) {
    return platform::EqualsIgnoringCase(module.prog_id, name);
  });
  return found == modules_.end() ? nullptr : &*found;
}

}  // namespace check
