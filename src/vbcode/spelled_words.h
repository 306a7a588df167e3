// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace vbcode {

// Words of the language and of its runtime library as they are written, in alphabetical order:
// those that are used in procedures.
inline constexpr auto kSpelledWords = std::to_array<std::string_view>({
    "Abs",      "And",        "As",        "Asc",       "Beep",     "Boolean", "ByRef",
    "Byte",     "ByVal",      "Call",      "Case",      "CBool",    "CByte",   "CCur",
    "CDate",    "CDbl",       "Chr",       "CInt",      "CLng",     "Const",   "Cos",
    "CSng",     "CStr",       "Currency",  "CVar",      "Date",     "DateAdd", "DateDiff",
    "DatePart", "DateSerial", "DateValue", "Day",       "Debug",    "Dim",     "Do",
    "DoEvents", "Double",     "Each",      "Else",      "ElseIf",   "Empty",   "End",
    "Err",      "Error",      "Exit",      "Exp",       "False",    "Fix",     "For",
    "Format",   "Function",   "GoSub",     "GoTo",      "Hex",      "Hour",    "If",
    "IIf",      "InStr",      "Int",       "Integer",   "Is",       "IsArray", "IsDate",
    "IsEmpty",  "IsMissing",  "IsNull",    "IsNumeric", "IsObject", "Join",    "LBound",
    "LCase",    "Left",       "Len",       "Let",       "Like",     "Log",     "Long",
    "Loop",     "LTrim",      "Me",        "Mid",       "Minute",   "Mod",     "Month",
    "MsgBox",   "New",        "Next",      "Not",       "Nothing",  "Now",     "Null",
    "Object",   "On",         "Optional",  "Or",        "Preserve", "Private", "Property",
    "Public",   "Randomize",  "ReDim",     "Replace",   "Resume",   "Right",   "Rnd",
    "Round",    "RTrim",      "Second",    "Select",    "Set",      "Sgn",     "Sin",
    "Single",   "Space",      "Split",     "Sqr",       "Static",   "Step",    "Str",
    "StrComp",  "String",     "Sub",       "Tan",       "Then",     "Time",    "Timer",
    "To",       "Trim",       "True",      "TypeName",  "TypeOf",   "UBound",  "UCase",
    "Until",    "Val",        "Variant",   "VarType",   "Weekday",  "Wend",    "While",
    "With",     "Xor",        "Year",
});

}  // namespace vbcode
