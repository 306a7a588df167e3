// SPDX-License-Identifier: MIT
// Texts of the code generator: warnings and refusals.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> CodegenRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {1100,
       "Die Klasse <Class> steht in keinem der geöffneten Projekte; ihr Code blieb, wie er war.",
       "The class <Class> is not in any of the open projects; its code was left as it was."},
      {1101, "<Class> enthält keine Sub <Name>; ihr Code blieb, wie er war.",
       "<Class> holds no Sub <Name>; its code was left as it was."},
      {1102, "<Class> enthielt keine Sub <Old>; eine leere Sub <Name> wurde angelegt.",
       "<Class> held no Sub <Old>; an empty Sub <Name> was added."},
      {1103, "<File>:<Line> verwendet noch <Name>", "<File>:<Line> still uses <Name>"},
      {1104,
       "<File>:<Line> deklariert <Name> nicht allein als öffentliche Variable; die Zeile blieb "
       "stehen.",
       "<File>:<Line> does not declare <Name> alone as a public variable; the line was left."},
      {1105,
       "<Class> enthält <Name> schon als <Kind><Where>. Wählen Sie einen "
       "anderen Namen, oder benennen Sie es in der Klasse um.",
       "<Class> already holds <Name> as <Kind><Where>. Choose another name, "
       "or rename it in the class."},
      {1106,
       "<File>:<Line> hat <Count> Zeichen; Visual Basic nimmt höchstens 1023 an. Kürzen Sie die "
       "Zeile.",
       "<File>:<Line> has <Count> characters; Visual Basic accepts 1023 at most. Shorten the "
       "line."},
      {1107,
       "<File> hat <Count> Zeilen; Visual Basic nimmt etwa 65000 an. Legen Sie weitere Formeln in "
       "einer anderen Klasse an.",
       "<File> has <Count> lines; Visual Basic accepts about 65000. Put further formulas into "
       "another class."},
      {1108, "Der mitgegebene Code enthält keine Sub <Name>; er wurde angefügt, wie er ist.",
       "The given code holds no Sub <Name>; it was added as it is."},
      {1109,
       "<Name> lässt sich in Visual Basic nicht deklarieren; <Class> blieb ohne die Deklaration.",
       "<Name> cannot be declared in Visual Basic; <Class> was left without the declaration."},
      {1110,
       "<File>:<Line>: die Sub <Name> schneidet einen #If-Block; ihre Zeilen mit # blieben stehen.",
       "<File>:<Line>: the Sub <Name> cuts an #If block; its lines with # were left as they are."},
      {1111, "Die Komponentenliste wurde nicht geändert: <Cause>",
       "The component list was not changed: <Cause>"},
      {1112,
       "<File>:<Line> deklarierte <Name>, stammt aber nicht von hier; die Zeile wurde "
       "auskommentiert.",
       "<File>:<Line> declared <Name> but was not written here; the line was commented out."},
      {1113,
       "Der Itemkatalog nennt keinen Typ für <Names>; der deklarierte blieb. Nehmen Sie die Items "
       "mit ihrem Typ in den Katalog auf, oder prüfen Sie die Deklarationen.",
       "The item catalogue has no type for <Names>; the declared one was kept. Add the items with "
       "their types to the catalogue, or check the declarations."},
      {1114,
       "<File>:<Line>: die Sub <Name> hat Parameter; der Server ruft eine Formel ohne Parameter "
       "auf. Wählen Sie einen anderen Namen, oder ändern Sie die Sub.",
       "<File>:<Line>: the Sub <Name> has parameters, and the server calls a formula without any. "
       "Choose another name, or change the Sub."},
      {1115,
       "<File>:<Line>: die Sub <Name> ist nicht öffentlich; der Server kann sie nicht aufrufen. "
       "Wählen Sie einen anderen Namen, oder ändern Sie die Sub.",
       "<File>:<Line>: the Sub <Name> is not public, so the server cannot call it. Choose another "
       "name, or change the Sub."},
      {1116,
       "<File>:<Line>: die Sub <Name> steht in einem #If-Block und fehlt vielleicht im Server. "
       "Wählen Sie einen anderen Namen, oder nehmen Sie die Sub aus dem Block.",
       "<File>:<Line>: the Sub <Name> stands in an #If block and may be missing in the server. "
       "Choose another name, or take the Sub out of the block."},
      {1117,
       "<File>:<Line>: die Sub <Name> war schon da und gehört jetzt zur Formel; ihr Code blieb, "
       "wie er war.",
       "<File>:<Line>: the Sub <Name> was there already and is the formula's now; its code was "
       "left as it was."},
      {1118,
       "<File>:<Line>: die Sub <Name> behielt ihre Parameter; der Server ruft eine Formel ohne "
       "Parameter auf. Ändern Sie die Sub.",
       "<File>:<Line>: the Sub <Name> kept its parameters, and the server calls a formula without "
       "any. Change the Sub."},
      {1119,
       "<File>:<Line> deklariert <Name>, stammt aber nicht von hier; die Zeile blieb, wie sie ist. "
       "Prüfen Sie, ob ihr Typ zum Item passt.",
       "<File>:<Line> declares <Name> but was not written here; the line was left as it is. Check "
       "whether its type suits the item."},
      {1121, "Der Name fehlt.", "The name is missing."},
      {1122, "<Name> beginnt mit einer Ziffer; Visual Basic verlangt einen Buchstaben.",
       "<Name> begins with a digit; Visual Basic requires a letter."},
      {1123,
       "<Name> enthält das Zeichen „<Character>“; Visual Basic erlaubt nur Buchstaben, Ziffern und "
       "Unterstriche.",
       "<Name> contains the character \"<Character>\"; Visual Basic allows only letters, digits "
       "and underscores."},
      {1124, "<Name> beginnt mit einem Unterstrich; Visual Basic verlangt einen Buchstaben.",
       "<Name> begins with an underscore; Visual Basic requires a letter."},
      {1125, "<Name> enthält das Zeichen „<Character>“, das für Visual Basic kein Buchstabe ist.",
       "<Name> contains the character \"<Character>\", which Visual Basic does not accept as a "
       "letter."},
      {1126, "<Name> ist ein reserviertes Wort von Visual Basic.",
       "<Name> is a reserved word of Visual Basic."},
      {1127, "<Name> ist länger als 255 Zeichen; so lange Namen nimmt Visual Basic nicht an.",
       "<Name> is longer than 255 characters, which Visual Basic does not accept."},
      {1128,
       "<Name> ist für Visual Basic kein gültiger Name und wird in keiner Klasse deklariert. "
       "Wählen Sie einen Alias mit einem Buchstaben.",
       "<Name> is not a valid name in Visual Basic and is not declared in any class. Choose an "
       "alias with a letter."},
      {1140, "Sub", "a Sub"},
      {1141, "Function", "a Function"},
      {1142, "externe Prozedur", "an external procedure"},
      {1143, "Eigenschaft", "a property"},
      {1144, "Variable", "a variable"},
      {1145, "Ereignis", "an event"},
      {1146, "Konstante", "a constant"},
      {1147, "Typ oder Aufzählung", "a type or an enumeration"},
  });
  return kRows;
}

}  // namespace texts
