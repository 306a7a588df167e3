// SPDX-License-Identifier: MIT
// The data flow and the writing of code in the window.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> CodingRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {4650, "Daten&fluss...", "Data &Flow..."},
      {4651, "Datenfluss um <Name> – Formeln: <Formulas>, Items: <Items>",
       "Data flow around <Name> – formulas: <Formulas>, items: <Items>"},
      {4652, "&Tiefe:", "&Depth:"},
      {4653, "Speichern &unter...", "Save &As..."},
      {4654, "Bild des Datenflusses; die Liste daneben sagt dasselbe",
       "Picture of the data flow; the list beside it says the same"},
      {4655,
       "Ziehen verschiebt, Mausrad oder + und - vergrößern und verkleinern, 0 zeigt alles, ein "
       "Klick "
       "führt hin. "
       "Gestrichelt: nur laut Argument. Rot und doppelt umrandet: mehrere Formeln schreiben.",
       "Drag to move, wheel or + and - to zoom, 0 to see all, click to go there. Dashed: according "
       "to the argument only. Red with a double frame: several formulas write."},
      {4656, "Wer welches Item schreibt und liest", "Who writes and reads which item"},
      {4657, "Alias", "Alias"},
      {4658, "Zugriff", "Access"},
      {4659, "Formel", "Formula"},
      {4660, "Aufruf", "Call type"},
      {4661, "Schreiber", "Writers"},
      {4662, "Wählen Sie eine Formel oder einen Alias; dann sehen Sie den Datenfluss darum herum.",
       "Select a formula or an alias to see the data flow around it."},
      {4663,
       "Für das Bild fehlt das Programm „dot“ von Graphviz. Installieren Sie das Paket graphviz "
       "und öffnen Sie den Datenfluss erneut. Die Liste sagt dasselbe wie das Bild.",
       "The picture needs Graphviz's program \"dot\". Install the package graphviz and open the "
       "data flow again. The list says the same as the picture."},
      {4664, "<Count> Verbindungen sind zu viele für ein Bild. Wählen Sie eine kleinere Tiefe.",
       "<Count> connections are too many for a picture. Choose a smaller depth."},
      {4665, "Datenfluss lesen", "Reading the data flow"},
      {4666, "Der Datenfluss wurde nicht zu Ende gelesen.",
       "The data flow was not read to the end."},
      {4667, "Der Datenfluss lässt sich nicht zeigen.", "The data flow cannot be shown."},
      {4668, "Datenfluss speichern", "Save data flow"},
      {4669, "Bild (*.svg)|*.svg|Beschreibung für Graphviz (*.dot)|*.dot",
       "Picture (*.svg)|*.svg|Description for Graphviz (*.dot)|*.dot"},
      {4670, "Der Datenfluss lässt sich nicht speichern.", "The data flow cannot be saved."},
      {4671, "Gespeichert: <File>", "Saved: <File>"},
      {4672, "Keine Formel liest oder schreibt hier etwas.",
       "No formula reads or writes anything here."},

      {4680, "Ersetzen durch", "Replace with"},
      {4681, "Ersetzen", "Replace"},
      {4682, "Alle ersetzen", "Replace All"},
      {4683, "Ersetzt: <Count>", "Replaced: <Count>"},
      {4684, "Schließen", "Close"},
      {4685, "&Suchen", "&Find"},
      {4686, "&Ersetzen", "&Replace"},
      {4687, "Ganzes Wort", "Whole word"},
      {4688, "Groß/klein", "Match case"},

      {4700, "&Vervollständigen", "Co&mplete"},
      {4701, "&Kurzinfo", "&Quick Info"},
      {4702, "&Prozedur zu- oder aufklappen", "Fold or Unfold &Procedure"},
      {4703, "&Alle Prozeduren zu- oder aufklappen", "Fold or Unfold &All Procedures"},
      {4704, "Hier lässt sich nichts vervollständigen.", "There is nothing to complete here."},
      {4705, "<Name> ist nirgends deklariert.", "<Name> is not declared anywhere."},
      {4706, "Über diese Stelle ist nichts bekannt.", "Nothing is known about this place."},
      {4707, "Übergabewert", "input value"},
      {4708, "Rückgabewert", "return value"},
  });
  return kRows;
}

}  // namespace texts
