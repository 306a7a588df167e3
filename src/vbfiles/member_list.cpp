// SPDX-License-Identifier: MIT
#include "vbfiles/member_list.h"

#include <bit>
#include <tuple>

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

// Names seen so far: a hash table with open addressing.
class NameSet {
 public:
  NameSet(const SourceIndex& index, std::size_t capacity)
      : index_(index), slots_(std::bit_ceil(2 * capacity + 1)) {}

  // False when the name was there already.
  bool Insert(const NamePlace& place) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = place.hash & mask;
    for (; slots_[slot] != nullptr; slot = (slot + 1) & mask) {
      if (index_.IsNamed(*slots_[slot], index_.Name(place), place.hash)) return false;
    }
    slots_[slot] = &place;
    return true;
  }

 private:
  const SourceIndex& index_;
  std::vector<const NamePlace*> slots_;
};

}  // namespace

std::vector<Member> ListMembers(const SourceIndex& index) {
  std::vector<Member> members;
  const std::size_t count = index.procedures().size() + index.declarations().size();
  members.reserve(count);
  NameSet names(index, count);
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
  const Procedure* procedure = index.FindProcedure(bytes, [](const Procedure&) { return true; });
  const Declaration* declaration = index.FindDeclaration(bytes);
  if (declaration != nullptr &&
      (procedure == nullptr || IsBefore(declaration->name, procedure->name))) {
    return MemberOf(index, *declaration);
  }
  if (procedure == nullptr) return std::nullopt;
  return MemberOf(index, *procedure);
}

const Procedure* FindProcedure(const SourceIndex& index, std::string_view name,
                               platform::ProcKind kind) {
  const std::string bytes = index.page().NameFromUtf8(name);
  if (bytes.empty()) return nullptr;
  return index.FindProcedure(bytes, [&](const Procedure& p) { return p.kind == kind; });
}

}  // namespace vbfiles
