// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "desktop/formula_overview.h"
#include "desktop/formula_strip.h"
#include "desktop/project_context.h"
#include "messages/message.h"
#include "store/operations.h"

namespace desktop {

// Fills the overview of formulas and the strip of one, and does to the formulas that are selected
// there what their user wants: to several of them in one operation.
class FormulaCommands {
 public:
  // All of it outlives this object.
  struct Dependencies : ProjectContext {
    FormulaOverview& overview;
    FormulaStrip& strip;
    std::function<void(const std::string& key)> select_node;
    std::function<void()> on_changed;  // formulas were changed here
  };

  explicit FormulaCommands(Dependencies own);
  // The overview does nothing any more.
  ~FormulaCommands();
  FormulaCommands(const FormulaCommands&) = delete;
  FormulaCommands& operator=(const FormulaCommands&) = delete;

  // Reads all formulas and shows them.
  void Show();
  // Shows in the strip what the formula of a node is; false for a node that is none.
  bool ShowStrip(const std::string& key);
  // Moves formulas to a class as one operation, with or without their code: it is asked for.
  void Move(const std::vector<std::int32_t>& ids, const std::string& prog_id);

 private:
  using Change = std::function<void(store::FormulaValues&)>;

  void OnKey(forms::KeyEvent& event);
  void ShowMenu();
  void Open();
  void EditField(const std::string& control);
  // A command of the tree, on the node of the key.
  void RunTreeKey(const std::string& key, std::int16_t code);
  void Edit();
  void ShowCode();
  void Delete();
  void DeleteMany(const std::vector<std::int32_t>& ids);
  void Toggle();
  void Enable(bool enabled);
  void SetCallType(std::int32_t type);
  // Asks for one scan time for those of the selected formulas that have one.
  void SetScanTime();
  // Changes those of the formulas that differ then, as one operation of that title.
  void ChangeMany(std::vector<std::int32_t> ids, const messages::Message& title,
                  const Change& change, bool with_code = false);
  store::OperationResult ChangeAll(const std::vector<std::int32_t>& ids, const Change& change,
                                   const store::EditFormulaOptions& options,
                                   store::FormulaRecord& last);
  // The selected formulas; says so when there is none.
  std::vector<std::int32_t> RequireSelected() const;
  void CopyNames() const;
  void Copy();
  void Paste();
  bool MayDelete(const std::vector<std::int32_t>& ids) const;
  void Done(messages::TextNumber text_of_one, std::size_t count);
  editor::frmtabgrid* Editor() const { return own_.session.add_in().EditorWindow(); }
  std::string Text(messages::TextNumber number) const { return own_.parts.Text(number); }

  const Dependencies own_;
  std::string strip_key_;  // of the formula in the strip
};

}  // namespace desktop
