// SPDX-License-Identifier: MIT
#include "desktop/row_dropping.h"

#include <algorithm>
#include <utility>

#include "desktop/crash_log.h"
#include "editor/drag_kinds.h"
#include "editor/node_key.h"
#include "platform/error.h"
#include "platform/prog_id.h"

namespace desktop {

namespace {

std::vector<std::int32_t> IdsOf(const wx::DraggedRows& rows) {
  std::vector<std::int32_t> ids;
  for (const std::int64_t id : rows.ids) ids.push_back(static_cast<std::int32_t>(id));
  return ids;
}

// The class whose formulas stand below the node; "" when it is no such node.
std::string ClassOf(const studio::StudioNode& node) {
  const bool is_class =
      node.key == editor::kFormulasKey && node.info.find('.') != std::string::npos;
  return is_class ? node.info : std::string();
}

}  // namespace

RowDropping::RowDropping(ProjectTree& tree, studio::AddInSession& session, Move move)
    : tree_(tree), session_(session), move_(std::move(move)) {
  tree_.on_drag_over = [this](const auto& rows, const auto& node, bool copy) {
    return Effect(rows, node, copy);
  };
  tree_.on_drop = [this](const auto& rows, const auto& node, bool copy) { Drop(rows, node, copy); };
}

RowDropping::~RowDropping() { tree_.on_drag_over = nullptr, tree_.on_drop = nullptr; }

wx::DropEffect RowDropping::Effect(const wx::DraggedRows& rows, const studio::StudioNode& node,
                                   bool copy) {
  using enum wx::DropEffect;
  if (!Editor()) return kNone;
  if (rows.kind == editor::kDraggedAliases) {
    return editor::IsFormulaKey(node.key) ? kCopy : kNone;
  }
  if (rows.kind != editor::kDraggedFormulas) return kNone;
  const std::string prog_id = ClassOf(node);
  if (prog_id.empty()) {
    const bool is_one = node.key == editor::kFormulasKey && rows.ids.size() == 1;
    return copy && is_one ? kCopy : kNone;
  }
  if (copy) return kCopy;
  try {
    const bool any_elsewhere = std::ranges::any_of(IdsOf(rows), [&](std::int32_t id) {
      const auto formula = Editor()->operations().FindFormula(id);
      return formula && platform::ProgId(formula->prog_id) != platform::ProgId(prog_id);
    });
    return any_elsewhere ? kMove : kNone;
  } catch (const platform::Error&) {
    return kNone;  // the table says why
  }
}

void RowDropping::Drop(const wx::DraggedRows& rows, const studio::StudioNode& node, bool copy) {
  if (Effect(rows, node, copy) == wx::DropEffect::kNone) return;
  RememberStep("drop");
  const std::vector<std::int32_t> ids = IdsOf(rows);
  editor::ListCommands& lists = Editor()->lists();
  if (rows.kind == editor::kDraggedAliases) {
    lists.AddArguments(ids, editor::KeyNumber(node.key));
  } else if (const std::string prog_id = ClassOf(node); prog_id.empty()) {
    lists.Duplicate(ids.front());
  } else if (copy) {
    lists.CopyInto(ids, prog_id);
  } else {
    move_(ids, prog_id);
  }
}

}  // namespace desktop
