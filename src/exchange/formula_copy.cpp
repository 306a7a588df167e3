// SPDX-License-Identifier: MIT
#include "exchange/formula_copy.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_map>

#include "exchange/series_columns.h"
#include "platform/prog_id.h"
#include "platform/text.h"

namespace exchange {
namespace {

// "Tank2" behind "Tank1", "Tank02" behind "Tank01", "Fill2" behind "Fill".
std::string NextName(const std::string& name) {
  constexpr std::size_t kMostDigits = 9;
  const std::size_t digits = name.size() - (name.find_last_not_of("0123456789") + 1);
  if (digits == 0 || digits > kMostDigits) return name + (digits == 0 ? "2" : "_2");
  const std::string next = std::to_string(std::stol(name.substr(name.size() - digits)) + 1);
  const std::size_t zeros = digits > next.size() ? digits - next.size() : 0;
  return name.substr(0, name.size() - digits) + std::string(zeros, '0') + next;
}

class Copier {
 public:
  Copier(const CopySource& source, const CopyRequest& request, store::Operations& operations,
         const ImportOptions& options)
      : source_(source), request_(request), operations_(operations), options_(options) {}

  CopyPlan Plan() {
    SeriesColumns columns{request_.name};
    for (const Replacement& replacement : request_.replacements) {
      columns.Add(replacement.from);
      columns.Add(replacement.to);
    }
    const std::size_t count = columns.Count();
    if (count == 0) throw messages::Error({{kTextSeriesLengths}});
    for (std::size_t i = 0; i < count; ++i) {
      std::vector<Replacement>& replacements = replacements_.emplace_back();
      for (std::size_t n = 0; n < request_.replacements.size(); ++n) {
        replacements.push_back({std::string(columns.At(2 * n + 1, i, copy_.contents)),
                                std::string(columns.At(2 * n + 2, i, copy_.contents))});
      }
      AddCopy(std::string(columns.At(0, i, copy_.contents)), replacements);
    }
    copy_.plan = PlanImport(copy_.contents, operations_, options_);
    for (std::size_t i = 0; i < count; ++i) WriteCode(i);
    return std::move(copy_);
  }

 private:
  void AddCopy(std::string name, const std::vector<Replacement>& replacements) {
    FormulaRow row;
    if (name.empty()) name = Replaced(source_.formula.name, replacements);
    row.prog_id =
        copy_.contents.Keep(request_.prog_id.empty() ? source_.formula.prog_id : request_.prog_id);
    row.name = copy_.contents.Keep(FreeName(name, row.prog_id));
    row.type = source_.formula.type;
    row.scan_time = source_.formula.scan_time;
    row.enabled = source_.formula.enabled;
    row.comment = copy_.contents.Keep(Replaced(source_.formula.comment, replacements));
    row.code = source_.code;
    row.all_arguments = true;
    for (const store::ArgumentRecord& argument : source_.arguments) {
      if (argument.vb_alias.empty()) continue;  // its alias is missing
      ArgumentRow copy;
      copy.in = argument.in;
      copy.out = argument.out;
      copy.alias_row = AliasRowOf(argument, replacements);
      copy.alias = copy_.contents.aliases[copy.alias_row].alias;
      copy.item = copy_.contents.aliases[copy.alias_row].item;
      row.arguments.push_back(copy);
    }
    copy_.contents.formulas.push_back(std::move(row));
  }

  // A copy that was given no other name stands beside its source under the next free number.
  std::string FreeName(const std::string& name, std::string_view prog_id) {
    const bool beside_source =
        request_.name.empty() && source_.is_of_this_project &&
        platform::EqualsIgnoringCase(name, source_.formula.name) &&
        platform::ProgId(prog_id) == platform::ProgId(source_.formula.prog_id);
    if (!beside_source) return name;
    std::string free = NextName(name);
    while (IsTaken(free, prog_id)) free = NextName(free);
    return free;
  }
  bool IsTaken(const std::string& name, std::string_view prog_id) {
    const bool is_copy = std::ranges::any_of(copy_.contents.formulas, [&](const auto& other) {
      return platform::EqualsIgnoringCase(other.name, name);
    });
    return is_copy || operations_.FindFormulaInClass(prog_id, name);
  }

  // An alias that another item needs gets another name: by the replacements, or by its item.
  std::uint32_t AliasRowOf(const store::ArgumentRecord& argument,
                           const std::vector<Replacement>& replacements) {
    const std::string item = Replaced(argument.item_id, replacements);
    std::string alias = Replaced(argument.vb_alias, replacements);
    if (item != argument.item_id && alias == argument.vb_alias) alias.clear();
    const auto [known, is_new] = alias_rows_.try_emplace(
        item + '\n' + alias, static_cast<std::uint32_t>(copy_.contents.aliases.size()));
    if (is_new) {
      copy_.contents.aliases.push_back({copy_.contents.Keep(item), copy_.contents.Keep(alias), {}});
    }
    return known->second;
  }

  void WriteCode(std::size_t index) {
    const PlannedFormula& formula = copy_.plan.formulas()[index];
    if (source_.code.empty() || formula.action == RowAction::kRefused) return;
    std::vector<std::pair<std::string, std::string>> names = {
        {source_.formula.name, formula.values.name}};
    const std::vector<ArgumentRow>& rows = copy_.contents.formulas[index].arguments;
    std::size_t n = 0;
    for (const store::ArgumentRecord& argument : source_.arguments) {
      if (argument.vb_alias.empty()) continue;
      names.emplace_back(argument.vb_alias,
                         std::string(copy_.plan.aliases().NameOf(rows[n++].alias_row)));
    }
    copy_.plan.SetCode(index, ReplacedInCode(source_.code, names, replacements_[index]));
  }

  const CopySource& source_;
  const CopyRequest& request_;
  store::Operations& operations_;
  const ImportOptions& options_;
  CopyPlan copy_;
  std::vector<std::vector<Replacement>> replacements_;  // of each copy
  std::unordered_map<std::string, std::uint32_t> alias_rows_;
};

}  // namespace

CopyPlan PlanCopies(const CopySource& source, const CopyRequest& request,
                    store::Operations& operations, ImportOptions options) {
  options.create_aliases = true;
  return Copier(source, request, operations, options).Plan();
}

}  // namespace exchange
