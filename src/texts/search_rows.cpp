// SPDX-License-Identifier: MIT
// Texts of what the window finds in code: uses of names, texts, definitions.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    {3900, "&Code", "&Code"},
    {3901, "Im gesamten Code &suchen...", "&Find in All Code..."},
    {3902, "&Verwendungen", "Where &Used"},
    {3903, "Zur &Deklaration", "Go to &Definition"},
    {3905, "Stellen im Code", "Places in the code"},
    {3906, "Prozedur", "Procedure"},
    {3907, "Datei", "File"},
    {3908, "Zeile", "Line"},
    {3909, "Art", "Kind"},
    {3910, "Text", "Text"},
    {3917, "Deklaration", "declaration"},
    {3919, "Verwendungen von <Name>: <Count>", "Uses of <Name>: <Count>"},
    {3920, "Fundstellen von „<Text>“: <Count>, in Dateien: <Files>",
     "Places with \"<Text>\": <Count>, in files: <Files>"},
    {3921, "Der Code verwendet <Name> nicht.", "The code does not use <Name>."},
    {3922, "„<Text>“ steht nirgends im Code.", "\"<Text>\" does not occur in the code."},
    {3923, "An der Schreibmarke steht kein Name.", "There is no name at the caret."},
    {3924, "<Name> ist im Code des Projekts nicht deklariert.",
     "<Name> is not declared in the project's code."},
    {3925, "Deklarationen von <Name>: <Count>", "Declarations of <Name>: <Count>"},
    {3926, "Diese Zeile ist noch nicht gespeichert. Speichern Sie zuerst den Code (Strg+S).",
     "This line has not been saved yet. Save the code first (Ctrl+S)."},
    {3927,
     "Wählen Sie eine Formel, ein Argument oder einen Alias, oder setzen Sie die Schreibmarke im "
     "Code auf einen Namen.",
     "Select a formula, an argument or an alias, or put the caret on a name in the code."},
    {3928, "Suchen nach:", "Find:"},
    {3929, "Ersetzen durch:", "Replace with:"},
    {3930, "Nur ganze Wörter", "Whole words only"},
    {3931, "Groß- und Kleinschreibung beachten", "Match case"},
    {3932, "Suchen", "Find"},
    {3933, "Ersetzen...", "Replace..."},
    {3934, "Im gesamten Code ersetzen", "Replace in all code"},
    {3935, "Stellen: <Count>, in Dateien: <Files>. So ändern sich die Zeilen:",
     "Places: <Count>, in files: <Files>. The lines change like this:"},
    {3936, "&Ersetzen", "&Replace"},
    {3937, "... und <Count> weitere Zeilen", "... and <Count> more lines"},
    {3938, "Der Code lässt sich nicht durchsuchen.", "The code cannot be searched."},
    {3939, "Der Code lässt sich so nicht ändern.", "The code cannot be changed like this."},
    {3940, "Ersetzt: <Count>, in Dateien: <Files>", "Replaced: <Count>, in files: <Files>"},
    {3941, "Hinweis", "notice"},
    {3942, "Stellen im Code, die Sie ansehen sollten: <Count>",
     "Places in the code to look at: <Count>"},
};

}  // namespace

std::span<const Row> SearchRows() { return kRows; }

}  // namespace texts
