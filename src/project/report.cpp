// SPDX-License-Identifier: MIT
#include "project/report.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "codegen/data_type.h"
#include "messages/text_number.h"
#include "project/call_type.h"
#include "project/data_flow.h"
#include "project/data_flow_table.h"
#include "project/flow_texts.h"
#include "project/html.h"
#include "project/report_style.h"

namespace project {

namespace {

constexpr messages::TextNumber kTitle{1700};
constexpr messages::TextNumber kContents{1701};
constexpr messages::TextNumber kFormulasOf{1702};
constexpr messages::TextNumber kNoClass{1703};
constexpr messages::TextNumber kCallType{1704};
constexpr messages::TextNumber kScanTime{1705};
constexpr messages::TextNumber kState{1706};
constexpr messages::TextNumber kEnabled{1707};
constexpr messages::TextNumber kDisabled{1708};
constexpr messages::TextNumber kComment{1709};
constexpr messages::TextNumber kArguments{1710};
constexpr messages::TextNumber kNoArguments{1711};
constexpr messages::TextNumber kAlias{1712};
constexpr messages::TextNumber kItem{1713};
constexpr messages::TextNumber kDirection{1714};
constexpr messages::TextNumber kIn{1715};
constexpr messages::TextNumber kOut{1716};
constexpr messages::TextNumber kInOut{1717};
constexpr messages::TextNumber kNeither{1718};
constexpr messages::TextNumber kNoCode{1719};
constexpr messages::TextNumber kAliases{1720};
constexpr messages::TextNumber kType{1721};
constexpr messages::TextNumber kUses{1722};
constexpr messages::TextNumber kUnused{1723};
constexpr messages::TextNumber kNoneUnused{1724};
constexpr messages::TextNumber kFormulas{1725};
constexpr messages::TextNumber kNoFormulas{1726};
constexpr messages::TextNumber kLanguage{1727};
constexpr messages::TextNumber kNoAliases{1728};

constexpr std::int32_t kVariant = 12;  // type of an item that nobody knows

// Aliases that take as long as reading or writing a formula.
constexpr std::size_t kAliasesPerStep = 32;

struct Formula {
  store::FormulaRecord record;
  std::vector<store::ArgumentRecord> arguments;
};

class Report {
 public:
  Report(const ReportSource& source, const texts::TextTable& texts)
      : source_(source), texts_(texts) {}

  std::string Make() {
    if (!Read()) return {};
    const std::string title =
        Text(kTitle) + " " +
        EscapeHtml(source_.database_path.substr(source_.database_path.find_last_of("\\/") + 1));
    html_ = "<!DOCTYPE html>\n<html lang=\"" + Text(kLanguage) +
            "\">\n<head>\n<meta charset=\"utf-8\">\n" + kReportMark +
            "\n<meta name=\"viewport\" "
            "content=\"width=device-width\">\n<title>" +
            title + "</title>\n<style>\n" + kReportStyle + "</style>\n</head>\n<body>\n<h1>" +
            title + "</h1>\n";
    AddCounts();
    AddContents();
    for (const auto& [prog_id, formulas] : classes_) {
      if (!AddClass(prog_id, formulas)) return {};
    }
    AddExecution();
    if (!AddDataFlow()) return {};
    if (!AddAliases()) return {};
    if (!aliases_.empty()) AddUnused();
    return html_ + "</body>\n</html>\n";
  }

 private:
  std::string Text(messages::TextNumber number) const { return EscapeHtml(texts_.Text(number)); }

  // An alias or item, which may be broken where its parts meet.
  static std::string Name(std::string_view name) {
    std::string html;
    for (const char c : EscapeHtml(name)) {
      html += c;
      if (c == '.' || c == '_') html += "<wbr>";
    }
    return html;
  }

  // The references under a name: "#c2" a class, "#f17" a formula, "#a5" an alias.
  static std::string Link(char kind, std::int64_t number, const std::string& html) {
    return std::string("<a href=\"#") + kind + std::to_string(number) + "\">" + html + "</a>";
  }

  // One step more is done; false when it is to be the last.
  bool Step() {
    const std::size_t total = 3 * formulas_.size() + aliases_.size() / kAliasesPerStep;
    return !source_.progress || source_.progress(done_++, total);
  }

  bool Read() {
    store::Operations& operations = source_.operations;
    operations.ForEachFormula([&](const store::FormulaRecord& record) {
      formulas_.push_back({record, {}});
    });
    operations.ForEachAlias([&](const store::AliasRecord& alias) { aliases_.push_back(alias); });
    for (Formula& formula : formulas_) {
      if (!Step()) return false;
      formula.arguments = operations.ArgumentsOf(formula.record.id);
      for (const store::ArgumentRecord& argument : formula.arguments)
        uses_[argument.alias_id].push_back(&formula);
      classes_[formula.record.prog_id].push_back(&formula);
    }
    return true;
  }

  void AddCounts() {
    std::size_t arguments = 0;
    for (const Formula& formula : formulas_) arguments += formula.arguments.size();
    const std::size_t unused = static_cast<std::size_t>(std::count_if(
        aliases_.begin(), aliases_.end(),
        [this](const store::AliasRecord& alias) { return !uses_.contains(alias.id); }));
    html_ += "<p class=\"counts\">" + Text(kFormulas) + ": " + std::to_string(formulas_.size()) +
             " · " + Text(kArguments) + ": " + std::to_string(arguments) + " · " + Text(kAliases) +
             ": " + std::to_string(aliases_.size()) + " · " + Text(kUnused) + ": " +
             std::to_string(unused) + "</p>\n";
  }

  std::string ClassTitle(const std::string& prog_id) const {
    return prog_id.empty() ? Text(kNoClass) : EscapeHtml(prog_id);
  }

  void AddContents() {
    html_ += "<nav>\n<h2>" + Text(kContents) + "</h2>\n<ul>\n";
    if (formulas_.empty()) html_ += "<li>" + Text(kNoFormulas) + "</li>\n";
    std::int64_t number = 0;
    for (const auto& [prog_id, formulas] : classes_) {
      html_ += "<li>" + Link('c', number++, ClassTitle(prog_id)) + " <span class=\"number\">" +
               std::to_string(formulas.size()) + "</span>\n<ul class=\"names\">\n";
      for (const Formula* formula : formulas) html_ += "<li>" + Link(*formula) + "</li>\n";
      html_ += "</ul></li>\n";
    }
    for (const auto& [place, text] :
         {std::pair("execution", kExecutionTitle), {"flow", kFlowTitle}}) {
      html_ += std::string("<li><a href=\"#") + place + "\">" + Text(text) + "</a></li>\n";
    }
    html_ += "<li><a href=\"#aliases\">" + Text(kAliases) + "</a></li>\n";
    if (!aliases_.empty()) html_ += "<li><a href=\"#unused\">" + Text(kUnused) + "</a></li>\n";
    html_ += "</ul>\n</nav>\n";
  }

  static std::string Link(const Formula& formula) {
    return Link('f', formula.record.id, Name(formula.record.name));
  }

  bool AddClass(const std::string& prog_id, const std::vector<const Formula*>& formulas) {
    html_ += "<section>\n<h2 id=\"c" + std::to_string(class_number_++) + "\">" + Text(kFormulasOf) +
             " " + ClassTitle(prog_id) + "</h2>\n";
    for (const Formula* formula : formulas) {
      if (!Step()) return false;
      AddFormula(*formula);
    }
    html_ += "</section>\n";
    return true;
  }

  void AddFormula(const Formula& formula) {
    const store::FormulaRecord& record = formula.record;
    html_ += "<article" + std::string(record.enabled ? "" : " class=\"off\"") + ">\n<h3 id=\"f" +
             std::to_string(record.id) + "\">" + EscapeHtml(record.name) + "</h3>\n<dl>\n";
    AddTerm(kCallType, CallTypeName(record.type, texts_));
    if (record.type == store::kAsynchronous)
      AddTerm(kScanTime, std::to_string(record.scan_time) + " ms");
    AddTerm(kState, Text(record.enabled ? kEnabled : kDisabled));
    if (!record.comment.empty()) AddTerm(kComment, EscapeHtml(record.comment));
    html_ += "</dl>\n";
    AddArguments(formula);
    AddCode(record);
    html_ += "</article>\n";
  }

  void AddTerm(messages::TextNumber name, const std::string& value) {
    html_ += "<dt>" + Text(name) + "</dt><dd>" + value + "</dd>\n";
  }

  void AddHead(const char* table, std::initializer_list<messages::TextNumber> names) {
    html_ += "<table class=\"" + std::string(table) + "\">\n<thead><tr>";
    for (const messages::TextNumber name : names)
      html_ += "<th scope=\"col\">" + Text(name) + "</th>";
    html_ += "</tr></thead>\n<tbody>\n";
  }

  void AddArguments(const Formula& formula) {
    if (formula.arguments.empty()) {
      html_ += "<p class=\"none\">" + Text(kNoArguments) + "</p>\n";
      return;
    }
    AddHead("arguments", {kAlias, kItem, kDirection});
    for (const store::ArgumentRecord& argument : formula.arguments) {
      const messages::TextNumber direction = argument.in && argument.out ? kInOut
                                             : argument.in               ? kIn
                                             : argument.out              ? kOut
                                                                         : kNeither;
      html_ += "<tr><td>" + Link('a', argument.alias_id, Name(argument.vb_alias)) + "</td><td>" +
               Name(argument.item_id) + "</td><td>" + Text(direction) + "</td></tr>\n";
    }
    html_ += "</tbody>\n</table>\n";
  }

  void AddCode(const store::FormulaRecord& record) {
    std::string problem = Text(kNoCode);
    try {
      const std::string code = source_.code.FunctionText(record.prog_id, record.name, false);
      if (!code.empty()) {
        html_ += "<pre>" + HighlightVisualBasic(code) + "</pre>\n";
        return;
      }
    } catch (const platform::Error& error) {
      problem = EscapeHtml(texts_.Sentence(error));
    }
    html_ += "<p class=\"none\">" + problem + "</p>\n";
  }

  // Which formulas run when, in the order of their IDs.
  void AddExecution() {
    html_ += "<section>\n<h2 id=\"execution\">" + Text(kExecutionTitle) + "</h2>\n";
    for (std::int32_t type = 0; type < store::kCallTypes; ++type) {
      html_ += "<h3>" + Text(store::kFirstCallTypeText + type) + "</h3>\n";
      std::string list;
      for (const Formula& formula : formulas_) {
        if (formula.record.type == type) list += "<li>" + WhenItRuns(formula) + "</li>\n";
      }
      html_ += list.empty() ? "<p class=\"none\">" + Text(kExecutionNone) + "</p>\n"
                            : "<ol>\n" + list + "</ol>\n";
    }
    html_ += "</section>\n";
  }

  std::string WhenItRuns(const Formula& formula) const {
    const store::FormulaRecord& record = formula.record;
    std::string text = Link(formula) + " <span class=\"number\">" + ClassTitle(record.prog_id);
    if (record.type == store::kAsynchronous) {
      text += ", " + EscapeHtml(texts_.Text(kFlowScanTime,
                                            {{"<Time>", std::to_string(record.scan_time)}}));
    }
    if (!record.enabled) text += ", " + Text(kFlowDisabled);
    return text + "</span>";
  }

  bool AddDataFlow() {
    struct Stopped {};
    try {
      const DataFlow flow = ReadDataFlow(source_.operations, source_.code.context().vbe.get(),
                                         [this](std::size_t, std::size_t) {
                                           if (!Step()) throw Stopped();
                                         });
      html_ += "<section>\n<h2 id=\"flow\">" + Text(kFlowTitle) + "</h2>\n" +
               DataFlowTable(flow, texts_,
                             [](const store::FormulaRecord& record) {
                               return Link('f', record.id, Name(record.name));
                             }) +
               "</section>\n";
      return true;
    } catch (const Stopped&) {
      return false;
    }
  }

  std::string UsesOf(std::int32_t alias_id) const {
    const auto found = uses_.find(alias_id);
    if (found == uses_.end()) return {};
    std::string text;
    for (const Formula* formula : found->second)
      text += (text.empty() ? "" : ", ") + Link(*formula);
    return text;
  }

  bool AddAliases() {
    html_ += "<section>\n<h2 id=\"aliases\">" + Text(kAliases) + "</h2>\n";
    if (aliases_.empty()) {
      html_ += "<p class=\"none\">" + Text(kNoAliases) + "</p>\n</section>\n";
      return true;
    }
    AddHead("aliases", {kAlias, kItem, kType, kUses});
    for (std::size_t i = 0; i < aliases_.size(); ++i) {
      if (i % kAliasesPerStep == kAliasesPerStep - 1 && !Step()) return false;
      const store::AliasRecord& alias = aliases_[i];
      html_ += "<tr id=\"a" + std::to_string(alias.id) + "\"><td>" + Name(alias.vb_alias) +
               "</td><td>" + Name(alias.item_id) + "</td><td>" +
               std::string(codegen::GetDataType(
                   source_.items.VariantTypeOf(alias.item_id).value_or(kVariant))) +
               "</td><td>" + UsesOf(alias.id) + "</td></tr>\n";
    }
    html_ += "</tbody>\n</table>\n</section>\n";
    return true;
  }

  void AddUnused() {
    html_ += "<section>\n<h2 id=\"unused\">" + Text(kUnused) + "</h2>\n";
    std::string list;
    for (const store::AliasRecord& alias : aliases_) {
      if (uses_.contains(alias.id)) continue;
      list += "<li>" + Name(alias.vb_alias) + " <span>" + Name(alias.item_id) + "</span></li>\n";
    }
    html_ += list.empty() ? "<p class=\"none\">" + Text(kNoneUnused) + "</p>\n"
                          : "<ul class=\"unused\">\n" + list + "</ul>\n";
    html_ += "</section>\n";
  }

  const ReportSource& source_;
  const texts::TextTable& texts_;
  std::string html_;
  std::vector<Formula> formulas_;  // in the order of ID
  std::map<std::string, std::vector<const Formula*>> classes_;
  std::unordered_map<std::int32_t, std::vector<const Formula*>> uses_;  // by alias
  std::vector<store::AliasRecord> aliases_;
  std::size_t class_number_ = 0;
  std::size_t done_ = 0;  // steps
};

}  // namespace

std::string MakeReport(const ReportSource& source, const texts::TextTable& texts) {
  return Report(source, texts).Make();
}

}  // namespace project
