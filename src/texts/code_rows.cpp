// SPDX-License-Identifier: MIT
// Texts about the code between declarations: uses of names, finding, data flow.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // Uses of names.
    {3600,
     "<File>:<Line> verwendet vielleicht <Name>; die Zeile blieb, wie sie war. Prüfen Sie sie.",
     "<File>:<Line> may use <Name>; the line was left as it was. Check it."},
    {3601, "<Count> weitere Zeilen verwenden vielleicht <Name>; sie blieben, wie sie waren.",
     "<Count> more lines may use <Name>; they were left as they were."},
    {3602, "<Cause> Dort wurde nicht gesucht.", "<Cause> It was not searched."},
    {3603, "Der neue Text muss auf einer Zeile stehen.", "The new text has to stand on one line."},
    {3604, "<File>:<Line> wurde inzwischen geändert. Suchen Sie noch einmal.",
     "<File>:<Line> has been changed meanwhile. Search again."},
    // By vbcode::RenameProblem.
    {3605, "<Name> ist in Visual Basic kein gültiger Name. Wählen Sie einen anderen.",
     "<Name> is not a valid name in Visual Basic. Choose another one."},
    {3606,
     "<File>:<Line> deklariert <Name> schon; die Verwendungen von <Old> können nicht folgen. "
     "Wählen Sie einen anderen Namen, oder lassen Sie den Code, wie er ist.",
     "<File>:<Line> already declares <Name>; the uses of <Old> cannot follow. Choose another name, "
     "or leave the code as it is."},
    {3607,
     "<File>:<Line> deklariert <Name> in einer Prozedur, die <Old> verwendet. Wählen Sie einen "
     "anderen Namen, oder benennen Sie die lokale Variable um.",
     "<File>:<Line> declares <Name> in a procedure that uses <Old>. Choose another name, or rename "
     "the local variable."},
    {3608,
     "<File>:<Line> ist eine Sprungmarke <Name> in einer Prozedur, die <Old> verwendet. Wählen Sie "
     "einen anderen Namen, oder benennen Sie die Sprungmarke um.",
     "<File>:<Line> is a label <Name> in a procedure that uses <Old>. Choose another name, or "
     "rename the label."},
    {3609, "<File>:<Line> meint mit <Name> etwas anderes. Wählen Sie einen anderen Namen.",
     "<File>:<Line> means something else by <Name>. Choose another name."},
    {3610,
     "<File>:<Line> hängt durch ihren Namen an <Old>. Benennen Sie die Prozedur und <Old> im Code "
     "zusammen um.",
     "<File>:<Line> is bound to <Old> by its own name. Rename the procedure and <Old> together in "
     "the code."},
    {3611,
     "<File>:<Line> würde länger als 1023 Zeichen; so lange Zeilen nimmt Visual Basic nicht an. "
     "Teilen Sie die Zeile.",
     "<File>:<Line> would become longer than 1023 characters, which Visual Basic does not accept. "
     "Split the line."},
    {3612, "<Count> Stellen im Code ersetzen", "Replace <Count> places in the code"},

    // What stands at a place, by vbcode::UseKind, and what may be meant there.
    {3613, "liest", "reads"},
    {3614, "schreibt", "writes"},
    {3615, "liest und schreibt", "reads and writes"},
    {3616, "Aufruf", "call"},
    {3617, "unklar", "unclear"},
    {3618, "Text", "text"},
    {3619, "vielleicht", "maybe"},

    // Commands and options.
    {3620, "Sucht einen Text im gesamten Code und ersetzt ihn auf Wunsch.",
     "Finds a text in all code and replaces it on request."},
    {3621, "Listet auf, wo der Code eine Formel aufruft.", "Lists where the code calls a formula."},
    {3622, "die Stellen im Code", "the places in the code"},
    {3623, "nur als ganzes Wort", "only as a whole word"},
    {3624, "Groß- und Kleinschreibung beachten", "match upper and lower case"},
    {3625, "der Text, der an seine Stelle tritt", "the text to put in its place"},
    {3626, "auch die Verwendungen in Prozeduren ändern", "change its uses in procedures, too"},
    {3627, "mit --with-uses: auch in Kommentaren", "with --with-uses: also in comments"},
    {3628, "mit --with-uses: auch in Zeichenketten", "with --with-uses: also in literals"},
    {3629, "der gesuchte Text", "the text to find"},
    {3630, "Ersetzt: <Count>, in Dateien: <Files>", "Replaced: <Count>, in files: <Files>"},
    {3631, "Zeigt, welche Formeln welche Variablen schreiben und lesen.",
     "Shows which formulas write and read which variables."},
    {3632, "nur die Umgebung dieser Formel", "only what is around this formula"},
    {3633, "nur die Umgebung dieses Alias", "only what is around this alias"},
    {3634, "nur die Umgebung der Formeln dieser Klasse",
     "only what is around the formulas of this class"},
    {3635, "so viele Schritte weit (ohne Angabe 2)", "that many steps away (2 by default)"},
    {3636, "dot (für Graphviz), svg oder html; sonst eine Liste",
     "dot (for Graphviz), svg or html; otherwise a list"},
    {3637,
     "Das Bild hätte <Count> Verbindungen. Wählen Sie mit --formula FORMULA, --alias ALIAS oder "
     "--class CLASS einen Ausschnitt, oder nehmen Sie --format dot.",
     "The picture would have <Count> connections. Choose a part with --formula FORMULA, --alias "
     "ALIAS or "
     "--class CLASS, or use --format dot."},

    // Data flow.
    {3660, "Datenfluss", "Data flow"},
    {3661,
     "Kasten: Formel. Ellipse: Item mit seinen Aliasen. Pfeile zeigen, wohin ein Wert geht; "
     "gestrichelt, wo nur die Übergabe- und Rückgabewerte der Argumente bekannt sind. Doppelt "
     "umrandet: mehrere Formeln schreiben das Item.",
     "Box: formula. Ellipse: item with its aliases. Arrows point where a value goes; dashed where "
     "only the arguments' input and return values are known. Double frame: several formulas write "
     "the item."},
    {3662, "Item", "Item"},
    {3663, "Geschrieben von", "Written by"},
    {3664, "Gelesen von", "Read by"},
    {3665, "<Count> Formeln schreiben", "<Count> formulas write"},
    {3666, "nicht aktiv", "not enabled"},
    {3667, "de", "en"},
    {3668, "Keine Formel liest oder schreibt eine Variable.",
     "No formula reads or writes a variable."},
    {3669, "(laut Argument)", "(by its argument)"},
    {3670,
     "Das Programm „dot“ von Graphviz fehlt. Installieren Sie das Paket graphviz, oder nehmen Sie "
     "die Beschreibung (--format dot) auf einen Rechner mit, der es hat.",
     "Graphviz's program \"dot\" is missing. Install the package graphviz, or take the description "
     "(--format dot) to a computer that has it."},
    {3671, "Das Programm „dot“ von Graphviz ist gescheitert. Prüfen Sie seine Installation.",
     "Graphviz's program \"dot\" failed. Check its installation."},
    {3672, "Graphviz braucht für dieses Bild zu lange. Wählen Sie einen kleineren Ausschnitt.",
     "Graphviz takes too long for this picture. Choose a smaller part."},
    {3673, "alle <Time> ms", "every <Time> ms"},
    {3680, "Ausführung", "Execution"},
    {3681, "keine", "none"},
};

}  // namespace

std::span<const Row> CodeRows() { return kRows; }

}  // namespace texts
