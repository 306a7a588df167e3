// SPDX-License-Identifier: MIT
#include "addin/tree_nodes.h"

#include "editor/node_key.h"
#include "messages/text_number.h"

namespace addin {

namespace {

constexpr messages::TextNumber kRootText{121};
constexpr messages::TextNumber kAliasesText{122};
constexpr messages::TextNumber kFormulasText{123};

constexpr platform::NodeFlags kRootFlags{-1, -1, -1, 0};
constexpr platform::NodeFlags kBranchFlags{-1, 0, 0, 0};
constexpr platform::NodeFlags kLeafFlags{0, 0, 0, 0};

// What the studio calls the two numbers of a node's update after its children have gone.
constexpr std::int32_t kUpdateFirst = 10;
constexpr std::int32_t kUpdateSecond = 11;

}  // namespace

void BuildRoot(platform::AddIn& studio, const texts::TextTable& texts) {
  for (const char* picture : {"icoForEditor", "icoForFunction", "icoForAlias"}) {
    studio.RegisterPicture(picture, picture);
  }
  studio.AddNode("", texts.Text(kRootText), editor::kRootKey, "0",
                 editor::KeyIcon(editor::kRootKey), kRootFlags);
}

void BuildBranches(platform::AddIn& studio, const texts::TextTable& texts,
                   const std::vector<FormulaNode>& formulas) {
  studio.AddNode(editor::kRootKey, texts.Text(kAliasesText), editor::kAliasesKey, "",
                 editor::KeyIcon(editor::kAliasesKey), kBranchFlags);
  studio.AddNode(editor::kRootKey, texts.Text(kFormulasText), editor::kFormulasKey, "",
                 editor::KeyIcon(editor::kFormulasKey), kBranchFlags);
  for (const FormulaNode& formula : formulas) {
    const std::string key = editor::FormulaKey(formula.id);
    studio.AddNode(editor::kFormulasKey, formula.name, key, "", editor::KeyIcon(key), kLeafFlags);
  }
}

void RemoveRoot(platform::AddIn& studio) { studio.RemoveNode(editor::kRootKey); }

void RemoveBranches(platform::AddIn& studio) {
  for (const std::string& key : studio.ChildKeys(editor::kRootKey, 1)) studio.RemoveNode(key);
  studio.UpdateNode(editor::kRootKey, kUpdateFirst, kUpdateSecond);
}

}  // namespace addin
