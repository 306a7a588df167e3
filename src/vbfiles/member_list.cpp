// SPDX-License-Identifier: MIT
#include "vbfiles/member_list.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

namespace vbfiles {

namespace {

using platform::Member;
using platform::MemberType;

Member MemberOf(const SourceIndex& index, const Procedure& procedure) {
  return Member{
      index.page().ToUtf8(index.Name(procedure.name)),
      procedure.kind == platform::ProcKind::kProc ? MemberType::kMethod : MemberType::kProperty,
      procedure.scope, procedure.body_line};
}

Member MemberOf(const SourceIndex& index, const Declaration& declaration) {
  return Member{index.page().ToUtf8(index.Name(declaration.name)), declaration.type,
                declaration.scope, declaration.line};
}

bool IsBefore(const NamePlace& a, const NamePlace& b) {
  return std::tie(a.line, a.column) < std::tie(b.line, b.column);
}

// Names seen so far.
class NameSet {
 public:
  explicit NameSet(const SourceIndex& index) : index_(index) {}

  // False when the name was there already.
  bool Insert(const NamePlace& place) {
    const auto [first, last] = places_.equal_range(place.hash);
    for (auto i = first; i != last; ++i) {
      if (index_.IsNamed(*i->second, index_.Name(place), place.hash)) return false;
    }
    places_.emplace(place.hash, &place);
    return true;
  }

 private:
  const SourceIndex& index_;
  std::unordered_multimap<std::uint32_t, const NamePlace*> places_;
};

}  // namespace

std::vector<Member> ListMembers(const SourceIndex& index) {
  std::vector<Member> members;
  NameSet names(index);
  auto procedure = index.procedures().begin();
  auto declaration = index.declarations().begin();
  while (procedure != index.procedures().end() || declaration != index.declarations().end()) {
    const bool take_procedure =
        declaration == index.declarations().end() ||
        (procedure != index.procedures().end() && IsBefore(procedure->name, declaration->name));
    if (take_procedure) {
      if (names.Insert(procedure->name)) members.push_back(MemberOf(index, *procedure));
      ++procedure;
    } else {
      if (names.Insert(declaration->name)) members.push_back(MemberOf(index, *declaration));
      ++declaration;
    }
  }
  return members;
}

std::optional<Member> FindMember(const SourceIndex& index, std::string_view name) {
  const std::string bytes = index.page().NameFromUtf8(name);
  if (bytes.empty()) return std::nullopt;
  const std::uint32_t hash = index.page().NameHash(bytes);
  auto is_named = [&](const auto& entry) { return index.IsNamed(entry.name, bytes, hash); };
  const auto& procedures = index.procedures();
  const auto& declarations = index.declarations();
  const auto procedure = std::find_if(procedures.begin(), procedures.end(), is_named);
  const auto declaration = std::find_if(declarations.begin(), declarations.end(), is_named);
  if (declaration != declarations.end() &&
      (procedure == procedures.end() || IsBefore(declaration->name, procedure->name))) {
    return MemberOf(index, *declaration);
  }
  if (procedure == procedures.end()) return std::nullopt;
  return MemberOf(index, *procedure);
}

const Procedure* FindProcedure(const SourceIndex& index, std::string_view name,
                               platform::ProcKind kind) {
  const std::string bytes = index.page().NameFromUtf8(name);
  if (bytes.empty()) return nullptr;
  const std::uint32_t hash = index.page().NameHash(bytes);
  for (const Procedure& procedure : index.procedures()) {
    if (procedure.kind == kind && index.IsNamed(procedure.name, bytes, hash)) return &procedure;
  }
  return nullptr;
}

}  // namespace vbfiles
