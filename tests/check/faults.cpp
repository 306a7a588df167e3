// SPDX-License-Identifier: MIT
#include "tests/check/faults.h"

namespace check {

using P = CheckedProject;

namespace {

constexpr const char* kHeader =
    "\r\n'********************************************************\r\n"
    "'OrvanaStudio Formula 'Mix'\r\n'Arguments:\r\n'\tLevel\r\n'\tGone\r\n"
    "'********************************************************\r\n";

std::vector<Fault> RowFaults() {
  return {
      {"ArgumentOfNoFormula",
       [](P& p) {
         p.Add("TvbfParams", {"ParentID", "AliasID", "In", "Out"}, {99, 1, true, false});
       },
       "ARG001 TvbfParams #4 ParentID\n", "-TvbfParams 4 99 1 True False\n"},
      {"ArgumentOfNoAlias",
       [](P& p) {
         p.Add("TvbfParams", {"ParentID", "AliasID", "In", "Out"}, {1, 99, true, false});
       },
       "ARG002 TvbfParams #4 AliasID\n", "-TvbfParams 4 1 99 True False\n"},
      {"InAndOutOnVariableChange",
       [](P& p) {
         p.Set("TvbfFormulas", 1, "Type", 6);
         p.Set("TvbfParams", 2, "In", true);
       },
       "ARG004 TvbfParams #2 Out\nUSE003 CPump.cls:12\n"},
      {"FormulaNameIsNone", [](P& p) { p.Set("TvbfFormulas", 2, "Name", "Dr ain"); },
       "FRM001 TvbfFormulas #2 Name\n"
       "SUB001 TvbfFormulas #2 Name\n"
       "SUB006 CTank.cls:9\n",
       "+TvbfFormulas 3 Drain PumpServer.CTank 0 0 False \n"
       "+TvbfParams 4 3 1 True False\n",
       "FRM001 TvbfFormulas #2 Name\n"
       "SUB001 TvbfFormulas #2 Name\n"},
      {"TwoFormulasOfOneName",
       [](P& p) {
         p.Add("TvbfFormulas", {"Name", "ProgID", "Type", "ScanTime", "Enabled", "Comment"},
               {"FILL", "pumpserver.CPump", 0, 0, true, "c"});
       },
       "FRM002 TvbfFormulas #3 Name\n"},
      {"NoSuchCallType", [](P& p) { p.Set("TvbfFormulas", 2, "Type", 8); },
       "FRM003 TvbfFormulas #2 Type\n"},
      {"NoClass", [](P& p) { p.Set("TvbfFormulas", 2, "ProgID", "PumpServer.CGone"); },
       "CLS001 TvbfFormulas #2 ProgID\n"
       "SUB006 CTank.cls:9\n",
       "+TvbfFormulas 3 Drain PumpServer.CTank 0 0 False \n"
       "+TvbfParams 4 3 1 True False\n",
       "CLS001 TvbfFormulas #2 ProgID\n"},
      {"NoProject", [](P& p) { p.Set("TvbfFormulas", 2, "ProgID", "None"); },
       "CLS001 TvbfFormulas #2 ProgID\n"
       "SUB006 CTank.cls:9\n",
       "+TvbfFormulas 3 Drain PumpServer.CTank 0 0 False \n"
       "+TvbfParams 4 3 1 True False\n",
       "CLS001 TvbfFormulas #2 ProgID\n"},
      {"AliasWithoutItem", [](P& p) { p.Set("TvbfAlias", 3, "ItemID", std::string(1, '\0')); },
       "ALI001 TvbfAlias #3 ItemID\n"},
      {"AliasIsAWord", [](P& p) { p.Set("TvbfAlias", 3, "VBAlias", "Next"); },
       "ALI002 TvbfAlias #3 VBAlias\n"},
      {"AliasIsNoName", [](P& p) { p.Set("TvbfAlias", 3, "VBAlias", "1.Flow"); },
       "ALI002 TvbfAlias #3 VBAlias\n"},
      {"AliasIsDoubtful", [](P& p) { p.Set("TvbfAlias", 3, "VBAlias", "_Flow"); },
       "ALI003 TvbfAlias #3 VBAlias\n"},
      {"TwoAliasesOfOneItem", [](P& p) { p.Set("TvbfAlias", 3, "ItemID", "Tank.Level"); },
       "ALI005 TvbfAlias #3 ItemID\n"},
      {"ItemNotInCatalogue", [](P& p) { p.Set("TvbfAlias", 3, "ItemID", "Tank.Gone"); },
       "ITM001 TvbfAlias #3 ItemID\n"},
  };
}

std::vector<Fault> SubFaults() {
  return {
      {"SubIsMissing",
       [](P& p) { p.project().PutCode("CTank", "Public Level As Double 'Tank.Level\r\n"); },
       "SUB001 TvbfFormulas #2 Name\n",
       "+CTank: \n"
       "+CTank: '********************************************************\n"
       "+CTank: 'OrvanaStudio Formula 'Drain'\n"
       "+CTank: 'Arguments:\n"
       "+CTank: '\tLevel\n"
       "+CTank: '********************************************************\n"
       "+CTank: Public Sub Drain()\n"
       "+CTank: \n"
       "+CTank: End Sub\n"},
      {"SubTwice", [](P& p) { p.Append("CTank", "Public Sub drain()\r\nEnd Sub\r\n"); },
       "SUB002 CTank.cls:12\n"},
      {"SubIsPrivate", [](P& p) { p.Exchange("CTank", "Public Sub Drain", "Private Sub Drain"); },
       "SUB003 CTank.cls:9\n"},
      {"SubIsAFunction",
       [](P& p) {
         p.Exchange("CTank", "Public Sub Drain()", "Public Function Drain()");
         p.Exchange("CTank", "End Sub", "End Function");
       },
       "SUB003 CTank.cls:9\n"},
      {"SubHasParameters", [](P& p) { p.Exchange("CTank", "Drain()", "Drain(ByVal x As Long)"); },
       "SUB004 CTank.cls:9\n"},
      {"SubInConditionalBlock",
       [](P& p) {
         p.Exchange("CTank", "Public Sub Drain()", "#If X Then\r\nPublic Sub Drain()");
         p.Append("CTank", "#End If\r\n");
       },
       "SUB005 CTank.cls:10\n"
       "HDR001 CTank.cls:10\n",
       "+CTank: '********************************************************\n"
       "+CTank: 'OrvanaStudio Formula 'Drain'\n"
       "+CTank: 'Arguments:\n"
       "+CTank: '\tLevel\n"
       "+CTank: '********************************************************\n"
       "+CTank: \n",
       "SUB005 CTank.cls:16\n"},
      {"SubOfNoFormula",
       [](P& p) {
         p.Append("CTank", std::string(kHeader) + "Public Sub Mix()\r\n  Level = 1\r\nEnd Sub\r\n");
       },
       "SUB006 CTank.cls:19\n",
       "-CTank: '\tGone\n"
       "+TvbfFormulas 3 Mix PumpServer.CTank 0 0 False \n"
       "+TvbfParams 4 3 1 True False\n",
       "USE003 CTank.cls:19\n"},
      {"SwitchedOffCopy", [](P& p) { p.Append("CTank", "'Public Sub Drain()\r\n'End Sub\r\n"); },
       "SUB007 CTank.cls:12\n"},
      {"HeaderIsMissing",
       [](P& p) {
         p.project().PutCode("CTank",
                             "Public Level As Double 'Tank.Level\r\n"
                             "Public Sub Drain()\r\nEnd Sub\r\n");
       },
       "HDR001 CTank.cls:2\n",
       "+CTank: \n"
       "+CTank: '********************************************************\n"
       "+CTank: 'OrvanaStudio Formula 'Drain'\n"
       "+CTank: 'Arguments:\n"
       "+CTank: '\tLevel\n"
       "+CTank: '********************************************************\n"},
      {"HeaderListsOthers", [](P& p) { p.Exchange("CTank", "'\tLevel\r\n", "'\tFlow\r\n"); },
       "HDR002 CTank.cls:9\n",
       "-CTank: '\tFlow\n"
       "+CTank: '\tLevel\n"},
      {"HeaderOfAnother", [](P& p) { p.Exchange("CTank", "Formula 'Drain'", "Formula 'Brain'"); },
       "HDR002 CTank.cls:9\n",
       "-CTank: 'OrvanaStudio Formula 'Brain'\n"
       "+CTank: 'OrvanaStudio Formula 'Drain'\n"},
  };
}

std::vector<Fault> DeclarationFaults() {
  return {
      // Both are mended at once.
      {"OtherItemInAClassWithoutFormulas",
       [](P& p) {
         p.Remove("TvbfParams", 3);
         p.Remove("TvbfFormulas", 2);
         p.Exchange("CTank", "'Tank.Level", "'Tank.Flow");
       },
       "DCL004 CTank.cls:1\nSUB006 CTank.cls:9\n",
       "-CTank: Public Level as Double 'Tank.Flow\n"
       "+TvbfFormulas 3 Drain PumpServer.CTank 0 0 False \n"
       "+TvbfParams 4 3 1 True False\n"
       "+CTank: Public Level as Double 'Tank.Level\n"},
      {"DeclarationIsMissing",
       [](P& p) { p.Exchange("CTank", "Public Level as Double 'Tank.Level\r\n", ""); },
       "DCL001 CTank.cls:1\n", "+CTank: Public Level as Double 'Tank.Level\n"},
      {"DeclaredTwice",
       [](P& p) { p.Exchange("CTank", "' mine\r\n", "Public level As Double\r\n"); },
       "DCL002 CTank.cls:2\n"},
      {"OtherType", [](P& p) { p.Exchange("CTank", "as Double", "As Long"); },
       "DCL003 CTank.cls:1\n",
       "-CTank: Public Level As Long 'Tank.Level\n"
       "+CTank: Public Level as Double 'Tank.Level\n"},
      {"OtherItem", [](P& p) { p.Exchange("CTank", "'Tank.Level", "'Tank.Flow"); },
       "DCL004 CTank.cls:1\n",
       "-CTank: Public Level as Double 'Tank.Flow\n"
       "+CTank: Public Level as Double 'Tank.Level\n"},
      {"ItemChangedInTheRow",
       [](P& p) {
         p.project().open->items.types["Tank2.Level"] = 5;
         p.Set("TvbfAlias", 1, "ItemID", "Tank2.Level");
       },
       "DCL004 CPump.cls:2\n"
       "DCL004 CTank.cls:1\n",
       "-CPump: Public Level as Double 'Tank.Level\n"
       "-CTank: Public Level as Double 'Tank.Level\n"
       "+CPump: Public Level as Double 'Tank2.Level\n"
       "+CTank: Public Level as Double 'Tank2.Level\n"},
      {"DeclarationIsPrivate", [](P& p) { p.Exchange("CTank", "Public Level", "Private Level"); },
       "DCL005 CTank.cls:1\n"},
      {"NameOfAType",
       [](P& p) {
         p.Exchange("CTank", "Public Level as Double 'Tank.Level\r\n",
                    "Private Enum Level\r\n  kA\r\nEnd Enum\r\n");
       },
       "DCL005 CTank.cls\n"},
      {"DeclarationNobodyUses",
       [](P& p) { p.Exchange("CTank", "' mine\r\n", "Public Flow As Double 'Tank.Flow\r\n"); },
       "DCL006 CTank.cls:2\n", "-CTank: Public Flow As Double 'Tank.Flow\n"},
      {"AliasRenamedInTheRow", [](P& p) { p.Set("TvbfAlias", 1, "VBAlias", "Height"); },
       "DCL001 CPump.cls:4\n"
       "DCL001 CTank.cls:2\n"
       "DCL006 CPump.cls:2\n"
       "HDR002 CPump.cls:11\n"
       "DCL006 CTank.cls:1\n"
       "HDR002 CTank.cls:9\n"
       "USE002 CPump.cls:11\n",
       "-CPump: Public Level as Double 'Tank.Level\n"
       "-CPump: '\tLevel\n"
       "-CTank: Public Level as Double 'Tank.Level\n"
       "-CTank: '\tLevel\n"
       "+CPump: 'Public Level as Double 'Tank.Level\n"
       "+CPump: Public Height as Double 'Tank.Level\n"
       "+CPump: '\tHeight\n"
       "+CTank: Public Height as Double 'Tank.Level\n"
       "+CTank: 'Public Level as Double 'Tank.Level\n"
       "+CTank: '\tHeight\n",
       "USE002 CPump.cls:12\n"},
      {"DeclaredByHand",
       [](P& p) { p.Exchange("CTank", "as Double 'Tank.Level", "As Double ' mine"); },
       "DCL007 CTank.cls:1\n"},
  };
}

std::vector<Fault> FileFaults() {
  return {
      {"ClassIsMissing", [](P& p) { p.project().system.Remove("/plant/CTank.cls"); },
       "CLS003 TvbfFormulas #2 ProgID\n"
       "VBP001 PumpServer.vbp\n"},
      {"ClassIsPrivate",
       [](P& p) {
         p.project().system.Put("/plant/CTank.cls",
                                support::ClassHeader("CTank", false) + p.Code("CTank"));
       },
       "CLS002 TvbfFormulas #2 ProgID\n"},
      {"Utf8", [](P& p) { p.Exchange("CTank", "' mine", "' f\xC3\xBCr \xC3\xB6l"); },
       "VBP002 CTank.cls\n"},
      {"LongLine", [](P& p) { p.Exchange("CTank", "' mine", "' " + std::string(1100, 'x')); },
       "VBP004 CTank.cls:2\n"},
  };
}

std::vector<Fault> BodyFaults() {
  return {
      {"AliasIsNoArgument", [](P& p) { p.Exchange("CPump", "Level > 1", "Level > Flow"); },
       "USE001 CPump.cls:12\n"},
      {"ArgumentIsUnused", [](P& p) { p.Exchange("CPump", "Level > 1", "True"); },
       "USE002 CPump.cls:11\n"},
      {"InIsOnlyWritten",
       [](P& p) { p.Exchange("CPump", "Pump = Level > 1", "Pump = 1: Level = 2"); },
       "USE003 CPump.cls:12\n"},
      {"OutIsNeverWritten",
       [](P& p) { p.Exchange("CPump", "Pump = Level > 1", "x = Pump + Level"); },
       "USE004 CPump.cls:12\n"},
  };
}

}  // namespace

std::vector<Fault> Faults() {
  std::vector<Fault> all;
  for (auto* faults : {RowFaults, SubFaults, DeclarationFaults, FileFaults, BodyFaults}) {
    for (Fault& fault : faults()) all.push_back(std::move(fault));
  }
  return all;
}

}  // namespace check
