// SPDX-License-Identifier: MIT
// Everything that can be done to formulas, arguments and aliases, without a dialog.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "codegen/code_places.h"
#include "codegen/touched.h"
#include "messages/message.h"
#include "platform/ado.h"
#include "platform/unit_of_work.h"
#include "platform/vbide.h"
#include "store/formula_records.h"
#include "store/operation_result.h"
#include "vbcode/text_search.h"

namespace codegen {
class CVBFormulaCode;
}
namespace texts {
class TextTable;
}

namespace store {

class OperationContext;
class ProjectRows;

// Of an operation that gives something another name in the code.
struct RenameOptions : OperationOptions {
  RenameOptions(OperationOptions options = {}) : OperationOptions(std::move(options)) {}

  // The uses of the name in procedures change along. Refused, with the line, where the new name
  // would mean something else; a place that may mean the name is left, with a warning. Without it
  // the uses stay, with a warning each.
  bool with_uses = false;
  bool in_comments = false;  // with uses: also as a word in comments of the classes
  bool in_literals = false;  // the same in their literals
};

struct EditFormulaOptions : RenameOptions {
  using RenameOptions::RenameOptions;

  // A move takes the old procedure's text along; otherwise the new procedure is empty and a
  // warning says where the old code stands.
  bool with_code = false;
};

// What brings rows and code into step where neither is as an operation would have left it.
struct Mending {
  std::vector<std::int32_t> arguments;  // IDs of those to delete, whatever they refer to
  std::vector<std::pair<std::int32_t, ArgumentValues>> changed;  // In and Out of arguments, by ID
  codegen::Touched code;                                         // what the code is to follow
};

struct ClassList {
  std::vector<ClassEntry> classes;
  std::vector<messages::Message> warnings;  // text 311 when a ProgID is too long
};

// Each operation is one unit of work over database and code: either all of it is done or nothing.
// No operation raises. Objects are named by the IDs that the caller captured; what the caller
// shows meanwhile does not matter. The look-ups raise platform::Error when the database fails.
class Operations {
 public:
  // All of it is referenced and must outlive the operations. `vbe` and `code` may be null when
  // there is no development environment: operations then need with_rows_only.
  struct Parts {
    std::shared_ptr<platform::Connection> connection;  // open
    std::shared_ptr<platform::VBE> vbe;
    codegen::CVBFormulaCode* code = nullptr;  // initialised
    platform::UnitOfWork* unit = nullptr;
    const texts::TextTable* texts = nullptr;
  };
  explicit Operations(Parts parts);
  ~Operations();
  Operations(const Operations&) = delete;
  Operations& operator=(const Operations&) = delete;

  // --- Several as one ---
  // Does what `steps` do as one unit of work with one title, in which code follows once, at the
  // end. `steps` call operations of this object, whose own options and titles do not count then. A
  // call that fails has changed nothing, and the steps may go on; unless what they answer is done,
  // all of it is put back. The answer has the rows and warnings of all, each row once; those of the
  // single calls have no rows. Steps that call no operation answer with the rows themselves.
  OperationResult AsOne(const messages::Message& title,
                        const std::function<OperationResult()>& steps,
                        const OperationOptions& options = {});

  // Nothing of it is judged: the caller looked at the rows and the code.
  OperationResult Mend(const Mending& mending, const OperationOptions& options = {});

  // --- Formulas ---
  // "Formula1", "Formula2", ...: the first that no formula has. Raises platform::Error when all
  // numbers to 32767 are taken.
  std::string ProposeFormulaName();
  // Classes of the open projects that can hold formulas.
  ClassList Classes();

  OperationResult AddFormula(const FormulaValues& values, const OperationOptions& options = {});
  // The same with a procedure of that name, from declaration to end, in place of an empty one.
  // Refused when the class has one.
  OperationResult AddFormulaWithCode(const FormulaValues& values, std::string_view code,
                                     const OperationOptions& options = {});
  // A new name is carried out before a new class.
  OperationResult EditFormula(std::int32_t id, const FormulaValues& values,
                              const EditFormulaOptions& options = {});
  // With their arguments; the procedures are commented out.
  OperationResult DeleteFormulas(std::span<const std::int32_t> ids,
                                 const OperationOptions& options = {});

  // --- Arguments ---
  OperationResult AddArguments(std::int32_t formula_id, std::span<const ArgumentValues> values,
                               const OperationOptions& options = {});
  // Another alias is a new name in the formula's own procedure.
  OperationResult EditArgument(std::int32_t argument_id, const ArgumentValues& values,
                               const RenameOptions& options = {});
  OperationResult DeleteArguments(std::span<const std::int32_t> argument_ids,
                                  const OperationOptions& options = {});

  // --- Aliases ---
  // An identifier for the item that no alias other than `actual_id` has.
  std::string ProposeAlias(std::string_view item, std::int32_t actual_id = 0);
  OperationResult AddAliases(std::span<const AliasValues> values,
                             const OperationOptions& options = {});
  OperationResult EditAlias(std::int32_t id, const AliasValues& values,
                            const RenameOptions& options = {});
  // Refused as a whole when one of them is in use; a caller that wants the others deleted all
  // the same leaves out those that AliasInUse names.
  OperationResult DeleteAliases(std::span<const std::int32_t> ids,
                                const OperationOptions& options = {});
  // The formulas that have the alias as argument.
  std::vector<FormulaRecord> UsesOfAlias(std::int32_t alias_id);

  // --- Code: nothing without open projects; raise platform::Error also when a class concerned
  // cannot be read ---
  // Where procedures use the alias, and where they call the formula.
  codegen::FoundPlaces CodeUsesOfAlias(std::int32_t id);
  codegen::FoundPlaces CodeUsesOfFormula(std::int32_t id);
  // Where the argument's own formula uses its alias.
  codegen::FoundPlaces CodeUsesOfArgument(std::int32_t id);
  // Where the text stands in all code.
  codegen::FoundPlaces FindInCode(std::string_view text, const vbcode::SearchOptions& options);
  // Puts another text at places that were found, in their order. Refused when one of their lines
  // was changed since.
  OperationResult ReplaceInCode(std::span<const codegen::CodePlace> places, std::string_view text,
                                const OperationOptions& options = {});

  // What is wrong with a name that is being typed; nothing when it can be stored. The message is
  // what the operation would answer.
  OperationResult CheckFormulaName(std::string_view name);
  // What did not change of an alias that is edited is not judged.
  OperationResult CheckAlias(const AliasValues& values, std::int32_t actual_id = 0);
  OperationResult CheckScanTime(std::string_view text);

  // Calls `checks`, in which CheckFormula and CheckArgument may be asked about a list: one look at
  // the code serves all of them. Raises what `checks` raises.
  void WithChecks(const OperationOptions& options, const std::function<void()>& checks);
  // What AddFormula, or AddFormulaWithCode, would refuse.
  OperationResult CheckFormula(const FormulaValues& values, bool with_code = false);
  // What AddArguments would refuse for a formula of these values that lacks the argument.
  OperationResult CheckArgument(const FormulaValues& formula, std::string_view alias, bool in,
                                bool out);

  // --- Look-ups, in the order of ID ---
  std::optional<FormulaRecord> FindFormula(std::int32_t id);
  std::vector<FormulaRecord> FindFormulasByName(std::string_view name);
  std::optional<FormulaRecord> FindFormulaInClass(std::string_view prog_id, std::string_view name);
  std::optional<AliasRecord> FindAlias(std::int32_t id);
  std::optional<AliasRecord> FindAliasByName(std::string_view vb_alias);
  std::optional<ArgumentRecord> FindArgument(std::int32_t id);
  std::vector<ArgumentRecord> ArgumentsOf(std::int32_t formula_id);
  void ForEachFormula(const std::function<void(const FormulaRecord&)>& visit);
  void ForEachAlias(const std::function<void(const AliasRecord&)>& visit);
  // Without name and item of the alias.
  void ForEachArgument(const std::function<void(const ArgumentRecord&)>& visit);
  Statistics Count();

 private:
  // Raise a refusal, or platform::Error when the database fails.
  FormulaRecord RequireFormula(std::int32_t id);
  AliasRecord RequireAlias(std::int32_t id);
  ArgumentRecord RequireArgument(std::int32_t id);
  void RequireFormulaName(std::string_view name);
  void RequireFormulaClass(std::string_view prog_id);
  void RequireCallType(std::int32_t type);
  // Of a formula that is to be added.
  void RequireNewFormula(const FormulaValues& values, bool with_code);
  void RequireFreeInClass(std::string_view prog_id, std::string_view name,
                          std::int32_t excluded_id);
  void RequireNoInAndOut(std::int32_t formula_id);
  // Warns of one that the call type does not use.
  void RequireScanTime(const FormulaValues& values);
  void RequireItem(std::string_view item);
  void RequireAliasName(std::string_view name, std::int32_t actual_id);
  // Warns of a name that is stored although Visual Basic may not take it.
  void WarnOfAlias(std::string_view name);
  // `old` is null for a new alias.
  void RequireAliasValues(const AliasValues& values, const AliasRecord* old);
  // The class must not hold the name as anything else than an alias.
  void RequireDeclarable(std::string_view prog_id, std::string_view alias);
  // `is_there`: the formula has the alias already.
  void RequireNewArgument(const FormulaRecord& formula, const AliasRecord& alias, bool is_there);
  void RequireInOrOut(const FormulaValues& formula, const ArgumentValues& values,
                      std::string_view alias);
  // Raises platform::Error when the class cannot be read.
  bool IsFormulaClass(std::string_view prog_id);

  // Lets the uses of a name in these classes, or in one procedure, follow when that was asked for.
  void TouchUses(const RenameOptions& options, std::vector<std::string> prog_ids,
                 std::string_view old_name, std::string_view name, std::string_view procedure = {});
  // The alias of an argument that a class's formula gained or lost; without the formula's name when
  // its header follows anyway.
  void Touch(const codegen::FormulaName& formula, const ArgumentRecord& argument, bool gained,
             std::string_view moved_from = {});
  void TouchMovedArguments(const FormulaRecord& formula, const std::string& new_class);
  void DeleteFormula(std::int32_t id);

  ProjectRows& rows();

  std::unique_ptr<OperationContext> context_;
};

}  // namespace store
