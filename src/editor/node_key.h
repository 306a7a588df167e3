// SPDX-License-Identifier: MIT
// The key of a node in the studio's project tree: a kind of four characters and a decimal number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {
class AddIn;
}

namespace editor {

inline constexpr std::string_view kRootKind = "FOR0";
inline constexpr std::string_view kFormulaKind = "FORF";
inline constexpr std::string_view kAliasKind = "FORA";

inline constexpr std::string_view kRootKey = "FOR0";
inline constexpr std::string_view kFormulasKey = "FORF0";
inline constexpr std::string_view kAliasesKey = "FORA0";

// First four characters of the key, the whole key when it is shorter.
std::string_view KeyKind(std::string_view key);

// Number behind the kind; -1 for a key of fewer than five characters.
std::int32_t KeyNumber(std::string_view key);

// Whether the node is one of ours; other add-ins have nodes in the same tree.
bool IsOwnKey(std::string_view key);

// Whether the key names a formula, not the folder of all formulas.
bool IsFormulaKey(std::string_view key);

// Name of the picture of a node's kind; empty for a foreign key.
std::string_view KeyIcon(std::string_view key);

// Help topic of a node's kind; 0 for a foreign key.
std::int32_t HelpTopic(std::string_view key);

// Key of the node of a formula.
std::string FormulaKey(std::int32_t id);

// The node that takes the place of a formula's that goes: the next sibling, else the previous one,
// else the folder.
std::string Neighbour(platform::AddIn& studio, const std::string& key);

}  // namespace editor
