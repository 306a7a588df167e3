// SPDX-License-Identifier: MIT
// Random modules whose lines an engineer wrote, each with a tag of its own, so that a test can
// tell without knowing the language whether one of them is lost.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace store {

class TaggedModule {
 public:
  explicit TaggedModule(std::mt19937& random) : random_(random) { Build(); }

  const std::vector<std::string>& lines() const { return lines_; }
  std::string Text() const {
    std::string text;
    for (const std::string& line : lines_) text += line + "\r\n";
    return text;
  }

  // "T12T", in the order of their making over all modules.
  static std::string NextTag() { return "T" + std::to_string(++last_tag_) + "T"; }

 private:
  bool OneOf(int n) { return random_() % static_cast<unsigned>(n) == 0; }
  void Line(const std::string& text) { lines_.push_back(text + " '" + NextTag()); }
  void Comment(const std::string& indent = "") { lines_.push_back(indent + "' " + NextTag()); }

  void Build() {
    Line("Option Explicit");
    Declarations();
    const int procedures = static_cast<int>(random_() % 6);
    for (int i = 0; i < procedures; ++i) {
      Between();
      Procedure(i);
    }
    Between();
  }

  void Declarations() {
    if (OneOf(2)) Line("Private mCount As Long");
    if (OneOf(2)) Line("Public Limit As Long, High As Double");
    if (OneOf(2)) Line("Public Pressure As Double");
    if (OneOf(2)) {
      lines_.push_back("Private WithEvents mPort As CPort");
      lines_.push_back("Attribute mPort.VB_VarHelpID = -1 '" + NextTag());
    }
    if (OneOf(3)) {
      Line("#If DEBUGMODE Then");
      Line("Private mLog As Long");
      Line("#End If");
    }
    if (OneOf(3)) {
      Line("Private Type TRec");
      Line("    Sub As Long");
      Line("End Type");
    }
    if (OneOf(3)) {
      lines_.push_back("Private Const kText" + NextTag() + " = \"a' b\" & _");
      Line("    \" End Sub\"");
    }
    if (OneOf(3)) Comment();
  }

  // Comments and blank lines around procedures.
  void Between() {
    for (int i = static_cast<int>(random_() % 4); i > 0; --i) {
      switch (random_() % 6) {
        case 0:
          lines_.push_back("");
          break;
        case 1:
          lines_.push_back("' goes on " + NextTag() + " _");
          lines_.push_back("  here " + NextTag());
          break;
        case 2:
          lines_.push_back("'Public Sub Was" + NextTag() + "()");
          lines_.push_back("'End Sub '" + NextTag());
          break;
        case 3:
          lines_.push_back("");
          Comment();
          lines_.push_back("");
          break;
        case 4:
          lines_.push_back("Rem " + NextTag());
          break;
        default:
          Comment();
      }
    }
  }

  void Procedure(int number) {
    const std::string name = "Own" + std::to_string(number);
    switch (random_() % 8) {
      case 0:
        Line("Public Sub " + name + "(): x = 1: End Sub");
        break;
      case 1:
        Line("Friend Property Get " + name + "() As Long");
        Line("End Property");
        Line("Friend Property Let " + name + "(ByVal v As Long)");
        Line("End Property");
        break;
      case 2:
        lines_.push_back("Public Function " + name + "(ByVal a" + NextTag() + " As Long, _");
        Line("    ByVal b As Long) As Long");
        lines_.push_back("Attribute " + name + ".VB_Description = \"" + NextTag() + "\"");
        Line("End Function");
        break;
      case 3:
        Line("#If DEBUGMODE Then");
        Line("Public Sub " + name + "()");
        Line("End Sub");
        Line("#Else");
        Line("Public Sub " + name + "()");
        Line("End Sub");
        Line("#End If");
        break;
      case 4:
        Line("Private Static Sub " + name + "()");
        Line("    If a Then b = \"'\": GoTo Done");
        Line("Done: End Sub");
        break;
      case 5:
        lines_.push_back("Public Sub " + name + "()");
        lines_.push_back("Attribute " + name + ".VB_UserMemId = 0 '" + NextTag());
        Comment("    ");
        lines_.push_back("");
        lines_.push_back("End Sub");
        break;
      default:
        Line("Public Sub " + name + "()");
        Line("    y = Level + Pump");
        lines_.push_back("End Sub");
    }
  }

  static inline int last_tag_ = 0;
  std::mt19937& random_;
  std::vector<std::string> lines_;
};

}  // namespace store
