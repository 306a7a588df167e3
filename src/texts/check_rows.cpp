// SPDX-License-Identifier: MIT
// Texts of the check: what is wrong, and in the next number what to do about it.
#include "texts/rows.h"

namespace texts {

namespace {

constexpr Row kRows[] = {
    // The database.
    {3000, "Die Datenbankdatei hat Fehler (<Count>).", "The database file has faults (<Count>)."},
    {3001,
     "„ovformula db verify“ nennt jeden. Stellen Sie eine Sicherung wieder her, bevor Sie "
     "weiterarbeiten.",
     "\"ovformula db verify\" names each. Restore a backup before you go on."},
    {3002, "In der Datenbank fehlt <Name>.", "The database lacks <Name>."},
    {3003, "Ergänzen Sie Tabellen mit „ovformula new --into“ und Spalten in Access.",
     "Add tables with \"ovformula new --into\", columns in Access."},
    {3004, "In der Datenbank fehlt der Index <Name>.", "The database lacks the index <Name>."},
    {3005,
     "Ergänzen Sie ihn mit „ovformula new --into“. Ohne ihn ist vieles langsam, und gleiche "
     "Datensätze fallen nicht auf.",
     "Add it with \"ovformula new --into\". Without it much is slow, and equal rows pass "
     "unnoticed."},

    // Arguments.
    {3010,
     "Das Argument gehört zur Formel <FormulaID>, die es nicht gibt (Alias <AliasID> <Alias>, In "
     "<In>, Out <Out>).",
     "The argument belongs to the formula <FormulaID>, which does not exist (alias <AliasID> "
     "<Alias>, In <In>, Out <Out>)."},
    {3011, "Löschen Sie das Argument, oder stellen Sie die Formel wieder her.",
     "Delete the argument, or restore the formula."},
    {3012,
     "Das Argument von <Formula> meint den Alias <AliasID>, den es nicht gibt (In <In>, Out "
     "<Out>).",
     "The argument of <Formula> refers to the alias <AliasID>, which does not exist (In <In>, Out "
     "<Out>)."},
    {3013, "Löschen Sie das Argument, oder stellen Sie den Alias wieder her.",
     "Delete the argument, or restore the alias."},
    {3014, "<Formula> hat das Argument <Alias> noch einmal (#<ID>; hier In <In>, Out <Out>).",
     "<Formula> has the argument <Alias> once more (#<ID>; here In <In>, Out <Out>)."},
    {3015, "Löschen Sie eines von beiden.", "Delete one of the two."},
    {3016,
     "<Alias> ist Übergabe- und Rückgabewert zugleich; <Formula> wird bei Variablenänderung "
     "aufgerufen und riefe sich selbst.",
     "<Alias> is input and return value at once; <Formula> is called on a variable change and "
     "would call itself."},
    {3017, "Lassen Sie nur eines von beiden, oder ändern Sie den Formelaufruf.",
     "Keep only one of them, or change the call type."},

    // Formulas.
    {3020, "<Name> kann keine Formel bezeichnen. <Why>",
     "<Name> cannot be the name of a formula. <Why>"},
    {3021, "Benennen Sie die Formel um.", "Rename the formula."},
    {3022, "<Class> hat schon eine Formel <Name> (#<ID>).",
     "<Class> already has a formula <Name> (#<ID>)."},
    {3023, "Benennen Sie eine um, oder löschen Sie die überzählige.",
     "Rename one of them, or delete the surplus one."},
    {3024, "Den Formelaufruf <Type> von <Name> gibt es nicht.",
     "<Name> has the call type <Type>, which does not exist."},
    {3025, "Wählen Sie einen Formelaufruf von 0 bis 7.", "Choose a call type from 0 to 7."},
    {3026,
     "<Class> ist länger als 39 Zeichen; der Formelserver findet die Klasse von <Name> nicht.",
     "<Class> is longer than 39 characters; the formula server does not find the class of <Name>."},
    {3027, "Kürzen Sie den Namen des Projekts oder der Klasse.",
     "Shorten the name of the project or the class."},

    // Aliases and their items.
    {3030, "Dem Alias fehlt sein Name oder sein Item („<Name>“, „<Item>“).",
     "The alias lacks its name or its item (\"<Name>\", \"<Item>\")."},
    {3031, "Tragen Sie beides ein, oder löschen Sie den Alias.",
     "Fill in both, or delete the alias."},
    {3032, "<Name> kann kein Alias sein. <Why>", "<Name> cannot be an alias. <Why>"},
    {3033, "Benennen Sie den Alias um.", "Rename the alias."},
    {3034, "<Name> ist als Alias zweifelhaft. <Why>", "<Name> is a doubtful alias. <Why>"},
    {3035, "Benennen Sie den Alias um, wenn Visual Basic ihn ablehnt.",
     "Rename the alias if Visual Basic rejects it."},
    {3036, "<Name> ist für Visual Basic derselbe Name wie der Alias #<ID> (<Other>).",
     "To Visual Basic <Name> is the same name as the alias #<ID> (<Other>)."},
    {3037, "Benennen Sie einen von beiden um.", "Rename one of the two."},
    {3038, "<Item> hat schon den Alias <Other> (#<ID>), neben <Name>.",
     "<Item> already has the alias <Other> (#<ID>), beside <Name>."},
    {3039, "Benutzen Sie einen Alias, und löschen Sie den anderen.",
     "Use one alias, and delete the other."},
    {3040, "Der Itemkatalog enthält <Item> nicht, das Item von <Name>.",
     "The item catalogue lacks <Item>, the item of <Name>."},
    {3041, "Berichtigen Sie das Item des Alias, oder ergänzen Sie den Katalog.",
     "Correct the alias's item, or complete the catalogue."},

    // Classes.
    {3050, "Kein geöffnetes Projekt enthält die Klasse <Class> (Formeln: <Count>).",
     "No open project has the class <Class> (formulas: <Count>)."},
    {3051, "Nennen Sie das Projekt (--vbp DATEI), oder geben Sie den Formeln eine andere Klasse.",
     "Name the project (--vbp FILE), or give the formulas another class."},
    {3052, "<Class> kann keine Formeln enthalten (Formeln: <Count>).",
     "<Class> cannot hold formulas (formulas: <Count>)."},
    {3053,
     "Nötig ist eine Klasse mit Instancing MultiUse oder GlobalMultiUse in einem ActiveX-DLL-"
     "Projekt.",
     "It takes a class with Instancing MultiUse or GlobalMultiUse in an ActiveX DLL project."},
    {3054, "<Class> lässt sich nicht lesen (Formeln: <Count>). <Why>",
     "<Class> cannot be read (formulas: <Count>). <Why>"},
    {3055, "Stellen Sie die Datei wieder her.", "Restore the file."},

    // Procedures and their headers.
    {3060, "<Class> hat keine Prozedur <Name>.", "<Class> has no procedure <Name>."},
    {3061, "Holen Sie ihren Code zurück, oder lassen Sie eine leere anlegen.",
     "Get its code back, or have an empty one made."},
    {3062, "<Class> enthält <Name> mehr als einmal.", "<Class> holds <Name> more than once."},
    {3063, "Löschen Sie die überzählige Prozedur, oder kommentieren Sie sie aus.",
     "Delete the surplus procedure, or comment it out."},
    {3064,
     "<Name> ist in <Class> keine öffentliche Sub; der Server kann die Formel nicht aufrufen.",
     "<Name> is not a public Sub in <Class>, so the server cannot call the formula."},
    {3065, "Machen Sie sie zur „Public Sub“, oder benennen Sie die Formel um.",
     "Make it a \"Public Sub\", or rename the formula."},
    {3066, "Die Sub <Name> in <Class> hat Parameter; der Server ruft eine Formel ohne auf.",
     "The Sub <Name> in <Class> has parameters, and the server calls a formula without any."},
    {3067, "Nehmen Sie die Parameter heraus.", "Take the parameters out."},
    {3068, "Die Sub <Name> in <Class> steht in einem #If-Block und fehlt womöglich im Server.",
     "The Sub <Name> in <Class> stands in an #If block and may be missing in the server."},
    {3069, "Nehmen Sie sie aus dem Block.", "Take it out of the block."},
    {3070,
     "Die Sub <Name> in <Class> hat den Kommentarkopf einer Formel, aber keine Formel (Argumente: "
     "<Names>).",
     "The Sub <Name> in <Class> has the header of a formula, but there is no such formula "
     "(arguments: <Names>)."},
    {3071, "Lassen Sie die Formel anlegen (sie ist dann nicht aktiv), oder entfernen Sie den Kopf.",
     "Have the formula made (it is not enabled then), or remove the header."},
    {3072, "Hier steht <Name> auskommentiert, obwohl die Formel in <Class> lebt.",
     "Here <Name> stands commented out although the formula lives in <Class>."},
    {3073, "Löschen Sie die alte Fassung, wenn Sie sie nicht mehr brauchen.",
     "Delete the old version if you do not need it any more."},
    {3074, "Über der Sub <Name> in <Class> fehlt der Kommentarkopf.",
     "The Sub <Name> in <Class> lacks its header."},
    {3075, "Lassen Sie ihn schreiben.", "Have it written."},
    {3076, "Der Kommentarkopf von <Name> in <Class> stimmt nicht mit der Formel überein.",
     "The header of <Name> in <Class> does not match the formula."},
    {3077, "Lassen Sie ihn neu schreiben.", "Have it written again."},

    // Declarations of aliases.
    {3080, "<Class> deklariert <Name> nicht (Item <Item>).",
     "<Class> does not declare <Name> (item <Item>)."},
    {3081, "Lassen Sie die Deklaration schreiben.", "Have the declaration written."},
    {3082, "<Class> deklariert <Name> mehr als einmal.", "<Class> declares <Name> more than once."},
    {3083, "Löschen Sie die überzählige Zeile.", "Delete the surplus line."},
    {3084, "<Name> ist als <OldType> deklariert, sein Item <Item> ist <Type>.",
     "<Name> is declared as <OldType>, but its item <Item> is <Type>."},
    {3085, "Lassen Sie die Deklaration neu schreiben.", "Have the declaration written again."},
    {3086, "Die Deklaration von <Name> nennt <OldItem>, der Alias aber <Item>.",
     "The declaration of <Name> names <OldItem>, but the alias stands for <Item>."},
    {3087, "Lassen Sie die Deklaration neu schreiben.", "Have the declaration written again."},
    {3088, "<Class> enthält <Name> als etwas anderes als eine öffentliche Variable.",
     "<Class> holds <Name> as something else than a public variable."},
    {3089, "Benennen Sie es in der Klasse um, oder wählen Sie einen anderen Alias.",
     "Rename it in the class, or choose another alias."},
    {3090, "<Name> ist noch deklariert, obwohl keine Formel von <Class> es benutzt.",
     "<Name> is still declared although no formula of <Class> uses it."},
    {3091, "Lassen Sie die Zeile entfernen.", "Have the line removed."},
    {3092, "Die Deklaration von <Name> ist von Hand geschrieben und nennt das Item <Item> nicht.",
     "The declaration of <Name> is written by hand and does not name the item <Item>."},
    {3093, "Prüfen Sie den Typ; sonst ist nichts zu tun.",
     "Look at its type; there is nothing else to do."},

    // Files of Visual Basic projects.
    {3100, "<Why>", "<Why>"},
    {3101, "Berichtigen Sie das Projekt, oder stellen Sie die Datei wieder her.",
     "Correct the project, or restore the file."},
    {3102, "<File> ist als UTF-8 gespeichert; Visual Basic liest seine Umlaute falsch.",
     "<File> is stored as UTF-8; Visual Basic misreads its letters beyond ASCII."},
    {3103, "Speichern Sie die Datei in der Codepage 1252.", "Save the file in code page 1252."},
    {3104, "Das Modul hat <Count> Zeilen; Visual Basic nimmt etwa 65000 an.",
     "The module has <Count> lines; Visual Basic accepts about 65000."},
    {3105, "Teilen Sie es.", "Split it."},
    {3106, "Die Zeile hat <Count> Zeichen; Visual Basic nimmt höchstens 1023 an.",
     "The line has <Count> characters; Visual Basic accepts at most 1023."},
    {3107, "Kürzen Sie sie.", "Shorten it."},

    // What procedures do with aliases.
    {3110, "<Name> benutzt <Alias>, das kein Argument der Formel ist.",
     "<Name> uses <Alias>, which is not an argument of the formula."},
    {3111, "Geben Sie der Formel das Argument, sonst ist der Wert nicht der des Prozesses.",
     "Give the formula the argument, or the value is not that of the process."},
    {3112, "<Name> benutzt sein Argument <Alias> nicht.",
     "<Name> does not use its argument <Alias>."},
    {3113, "Löschen Sie das Argument, wenn es nicht mehr gebraucht wird.",
     "Delete the argument if it is not needed any more."},
    {3114, "<Name> liest seinen Übergabewert <Alias> nie.",
     "<Name> never reads its input value <Alias>."},
    {3115, "Machen Sie ihn zum Rückgabewert.", "Make it a return value."},
    {3116, "<Name> schreibt seinen Rückgabewert <Alias> nie.",
     "<Name> never writes its return value <Alias>."},
    {3117, "Machen Sie ihn zum Übergabewert, oder weisen Sie ihm einen Wert zu.",
     "Make it an input value, or assign a value to it."},

    // The command.
    {3200, "Zeigt, was in einem Projekt nicht zusammenpasst, und bringt es in Ordnung.",
     "Shows what is out of step in a project, and mends it."},
    {3201, "in Ordnung bringen, was sich von selbst in Ordnung bringen lässt; mit CODES nur dieses",
     "mend what can be mended by itself; with CODES only that"},
    {3202, "nur ab dieser Schwere: error, warning oder hint",
     "only from this severity on: error, warning or hint"},
    {3203, "-CODE unterdrückt, was dieser Code meint (mehrfach möglich)",
     "-CODE silences what that code stands for (repeatable)"},
    {3204, "Den Code <Code> gibt es nicht. Die Hilfeseite „Das Projekt prüfen“ nennt alle.",
     "There is no code <Code>. The help page \"Checking the Project\" lists all."},
    {3205, "In Ordnung gebracht: <Code> <Place>: <Text>", "Mended: <Code> <Place>: <Text>"},
    {3209, "Käme in Ordnung: <Code> <Place>: <Text>", "Would be mended: <Code> <Place>: <Text>"},
    {3206, "Fehler: <Errors>, Warnungen: <Warnings>, Hinweise: <Hints>",
     "Errors: <Errors>, warnings: <Warnings>, hints: <Hints>"},
    {3207, "Es passt alles zusammen.", "Everything is in step."},
    {3208, "Projekt in Ordnung bringen (<Count>)", "Mend the project (<Count>)"},
};

}  // namespace

std::span<const Row> CheckRows() { return kRows; }

}  // namespace texts
