// SPDX-License-Identifier: MIT
// Texts of lists and copies: import, export, series.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> ExchangeRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {3400, "Zeile <Line>: <Text>", "line <Line>: <Text>"},
      {3401, "Zeile <Line>, Spalte <Column>: <Text>", "line <Line>, column <Column>: <Text>"},
      {3402,
       "Das ist eine Arbeitsmappe, keine Textdatei. Speichern Sie die Tabelle darin als CSV, und "
       "lesen Sie diese Datei.",
       "This is a workbook, not a text file. Save its sheet as CSV and read that file."},
      {3403, "Hier steht ein Nullzeichen; das ist keine Textdatei.",
       "There is a zero character here; this is not a text file."},
      {3404,
       "Die Datei gibt sich als UTF-8 aus, aber dieses Zeichen ist keines. Speichern Sie sie neu.",
       "The file claims to be UTF-8, but this character is not. Save the file again."},
      {3405, "Hier bricht die UTF-16-Kodierung ab. Speichern Sie die Datei neu.",
       "The UTF-16 encoding breaks here. Save the file again."},
      {3406, "Ein Anführungszeichen wird nicht geschlossen.", "A quotation mark is never closed."},
      {3407, "Hinter dem schließenden Anführungszeichen fehlt das Trennzeichen.",
       "The separator is missing behind the closing quotation mark."},
      {3408, "Die Zeile hat mehr als <Most> Spalten.", "The line has more than <Most> columns."},
      {3409, "Die Zelle ist länger als <Most> Bytes.", "The cell is longer than <Most> bytes."},
      {3410, "Die Liste ist leer.", "The list is empty."},
      {3411,
       "Keine dieser Spalten ist bekannt: <Names>. Nötig ist eine Kopfzeile mit Item (oder "
       "Signal, Variable, Tag), oder mit Name und Klasse einer Formel.",
       "None of these columns is known: <Names>. A header with Item (or Signal, Variable, Tag) is "
       "needed, or with the Name and Class of a formula."},
      {3412, "<Name> und <Other> meinen dasselbe. Benennen Sie eine der Spalten um.",
       "<Name> and <Other> mean the same. Give one of the columns another name."},
      {3413, "Das ist an dieser Stelle kein JSON.", "This is not JSON at this place."},
      {3414, "Die JSON-Datei hört mittendrin auf.", "The JSON file ends prematurely."},
      {3415, "Das JSON ist zu tief verschachtelt.", "The JSON is nested too deeply."},
      {3416, "Das JSON enthält weder aliases noch formulas.",
       "The JSON has neither aliases nor formulas."},
      {3417, "Hier wird ein Wert von anderer Art gebraucht.",
       "A value of another kind is needed here."},
      {3418,
       "Die Zeile enthält „<Text>“. Ist das eine Tabelle, stellen Sie ihr die Kopfzeile "
       "„item,alias“ voran (mit dem Trennzeichen der Tabelle); gehört das Zeichen zum Item, "
       "schließen Sie es mit einem Tabulator ab.",
       "The line holds \"<Text>\". If this is a table, put the header \"item,alias\" in front of "
       "it (with the table's separator); if the character belongs to the item, end the item with a "
       "tab."},

      {3419,
       "Formeln und ihre Ein- oder Ausgänge sind genannt, aber keine Items. Nennen Sie deren "
       "Spalte Item, Signal, Variable oder Tag.",
       "Formulas and their inputs or outputs are named, but no items. Call their column Item, "
       "Signal, Variable or Tag."},
      {3430, "Das Steuerzeichen <Code> kann hier nicht stehen.",
       "The control character <Code> cannot stand here."},
      {3431,
       "Die Zeile hat mehr Zellen als die Kopfzeile, die <Count> hat. Steht das Trennzeichen in "
       "einem Text, gehört er in Anführungszeichen.",
       "The line has more cells than the header, which has <Count>. A text that holds the "
       "separator needs quotation marks."},
      {3432, "„<Text>“ ist weder ja noch nein.", "\"<Text>\" is neither yes nor no."},
      {3433, "„<Text>“ ist keine ganze Zahl.", "\"<Text>\" is not a whole number."},
      {3434, "„<Text>“ kann zweierlei heißen. Schreiben Sie die Zahl ohne Punkt und Komma.",
       "\"<Text>\" can be read in two ways. Write the number without point and comma."},
      {3435, "„<Text>“ ist kein Formelaufruf. Möglich sind 0 bis 7 und ihre Namen.",
       "\"<Text>\" is not a call type. Choose from 0 to 7 and their names."},
      {3436, "„<Text>“ ist keine Liste von Argumenten wie „Level:in, Pump:out“.",
       "\"<Text>\" is not a list of arguments like \"Level:in, Pump:out\"."},
      {3437, "Das Item fehlt.", "The item is missing."},
      {3438, "Der Name der Formel fehlt.", "The name of the formula is missing."},
      {3439, "Die Klasse fehlt. Möglich sind: <Choices>",
       "The class is missing. Choose from: <Choices>"},
      {3440, "Zeile <Line> sagt schon dasselbe.", "Line <Line> already says the same."},
      {3441, "Widerspricht Zeile <Line>: Dort ist das Item <Item>.",
       "Contradicts line <Line>: there the item is <Item>."},
      {3442, "<Member> ist länger als <Most> Zeichen.",
       "<Member> is longer than <Most> characters."},
      {3443, "<Name> gibt es schon, für <Item>.", "<Name> exists already, for <Item>."},
      {3444, "<Name> gibt es schon mit anderen Werten.",
       "<Name> exists already with other values."},
      {3445, "Das Argument <Name> gibt es schon mit anderen Werten.",
       "The argument <Name> exists already with other values."},
      {3446,
       "Den Alias <Name> gibt es nicht. Nehmen Sie ihn in die Liste auf, oder lassen Sie fehlende "
       "anlegen.",
       "There is no alias <Name>. Put it into the list, or have missing ones created."},
      {3447, "Der Alias <Name> wird abgelehnt: <Text>", "The alias <Name> is refused: <Text>"},
      {3448, "Das Argument <Name> wird abgelehnt: <Text>",
       "The argument <Name> is refused: <Text>"},
      {3449, "<Name> kann bei diesem Formelaufruf nicht zugleich Übergabe- und Rückgabewert sein.",
       "<Name> cannot be input and return value at the same time with this call type."},
      {3450, "Bleibt, wie er ist: <Item>", "Stays as it is: <Item>"},
      {3451, "Bleibt, wie es ist.", "Stays as it is."},
      {3452, "Hieß in der Liste <Name>.", "Was called <Name> in the list."},

      {3460, "<Text> sind mehr als <Most>.", "<Text> are more than <Most>."},
      {3461, "Die Reihen dieser Zeile sind verschieden lang.",
       "The series of this line have different lengths."},

      {3470, "Import: <Name>", "Import: <Name>"},
      {3471, "<Name> kopieren", "Copy <Name>"},
      {3472, "Reihe anlegen: <Name>", "Add series: <Name>"},

      {3500, "Schreibt Aliase und Formeln als Liste, die import wieder liest.",
       "Writes aliases and formulas as a list that import reads back."},
      {3501,
       "Liest Aliase, Formeln oder Signale aus einer Liste: CSV einer Tabellenkalkulation oder "
       "JSON.",
       "Reads aliases, formulas or signals from a list: a spreadsheet's CSV or JSON."},
      {3502, "Kopiert eine Formel mit Argumenten und Code, auch in ein anderes Projekt.",
       "Copies a formula with its arguments and code, also to another project."},
      {3503, "Datei der Liste; - liest die Standardeingabe",
       "file of the list; - reads standard input"},
      {3504, "nur die Aliase", "only the aliases"},
      {3505, "nur die Formeln mit ihren Argumenten", "only the formulas with their arguments"},
      {3506, "csv (bei --aliases oder --formulas, wenn nichts gesagt ist) oder json",
       "csv (with --aliases or --formulas unless said) or json"},
      {3507,
       "was mit dem geschieht, was es mit anderen Werten schon gibt: error (so, wenn nichts "
       "gesagt ist) lehnt ab, skip lässt es, update ändert es, rename nimmt einen freien Namen",
       "what to do with what exists already with other values: error (unless said) refuses, skip "
       "leaves it, update changes it, rename takes a free name"},
      {3508, "fehlende Aliase von Argumenten anlegen", "create missing aliases of arguments"},
      {3509,
       "abgelehnte Zeilen auslassen und mit dem Grund in diese neue Datei schreiben; nach "
       "Berichtigung lässt sie sich wieder einlesen",
       "leave out refused lines and write them with the reason to this new file; once corrected it "
       "can be read again"},
      {3510, "Klasse der Formeln, bei denen keine steht", "class of formulas that name none"},
      {3511, "Name der Kopie, auch als Reihe wie „Fill{2..8}“",
       "name of the copy, also a series like \"Fill{2..8}\""},
      {3512,
       "diesen Text in Name, Aliasen, Items, Kommentar und Code durch den anderen ersetzen; auch "
       "als Reihe wie „Tank1=Tank{2..8}“",
       "replace this text with the other one in name, aliases, items, comment and code; also a "
       "series like \"Tank1=Tank{2..8}\""},
      {3513, "in dieses Projekt kopieren", "copy to this project"},
      {3514, "Visual-Basic-Projekt des anderen Projekts", "Visual Basic project of the other one"},

      {3530, "Eine CSV-Tabelle enthält nur eines von beiden: --aliases oder --formulas.",
       "A CSV table holds only one of the two: --aliases or --formulas."},
      {3531,
       "<Count> Felder enthalten Steuerzeichen, die eine Tabelle nicht mitnimmt. --format json "
       "nimmt sie mit.",
       "<Count> fields hold control characters, which a table cannot carry. --format json can."},
      {3532, "<File> gibt es schon. Nennen Sie eine neue Datei: --skip-refused DATEI.",
       "<File> exists already. Name a new file: --skip-refused FILE."},
      {3533, "Grund", "Reason"},
      {3534, "Diese Spalten bleiben unbeachtet: <Names>", "These columns are ignored: <Names>"},
      {3535,
       "Abgelehnte Zeilen: <Count>. Es wurde nichts geändert. --skip-refused DATEI liest die "
       "übrigen, --existing POLICY sagt, was mit dem geschieht, was es schon gibt, "
       "--create-aliases "
       "legt "
       "fehlende Aliase an.",
       "Refused lines: <Count>. Nothing was changed. --skip-refused FILE reads the others, "
       "--existing POLICY says what to do with what exists, --create-aliases creates missing "
       "aliases."},
      {3536, "<Name> kann so nicht kopiert werden; es wurde nichts geändert.",
       "<Name> cannot be copied like this; nothing was changed."},
      {3537, "--replace <Word>: Es wird ALT=NEU gebraucht.",
       "--replace <Word>: OLD=NEW is needed."},
      {3538,
       "Auf <Option> folgt kein Dateiname, sondern die Option <Word>. Schreiben Sie <Option> "
       "DATEI; eine Datei, die so heißt, ist ./<Word>.",
       "<Option> is followed by no file name but by the option <Word>. Write <Option> FILE; a file "
       "that is called so is ./<Word>."},
  });
  return kRows;
}

}  // namespace texts
