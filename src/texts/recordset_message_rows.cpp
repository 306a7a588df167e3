// SPDX-License-Identifier: MIT
// Messages of connections, recordsets and queries.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> RecordsetMessageRows() {
  static constexpr auto kRows = std::to_array<Row>({
      // Connections.
      {2600, "In der Verbindungszeichenfolge fehlt einem Wert das schließende Anführungszeichen."},
      {2601,
       "In der Verbindungszeichenfolge steht etwas hinter einem Wert in Anführungszeichen; setzen "
       "Sie ein Semikolon dazwischen."},
      {2602, "Die Verbindungszeichenfolge hat einen Teil ohne „=“."},
      {2603,
       "Die Verbindungszeichenfolge nennt den Provider „<Name>“; verfügbar ist nur <Provider>."},
      {2604, "Die Verbindungszeichenfolge nennt keine Datei; geben Sie sie als „Data Source“ an."},
      {2605, "Die Verbindung ist schon geöffnet; schließen Sie sie zuerst."},
      {2606, "Die Verbindung ist geschlossen; öffnen Sie sie zuerst."},
      {2607, "Es läuft keine Transaktion; beginnen Sie zuerst eine."},
      {2608, "Die Spalte „<Column>“ darf nicht so lang sein."},
      {2609, "Die Datenbank <Path> hat keine Tabelle „<Table>“."},
      {2610, "Die Tabelle „<Table>“ der Datenbank <Path> hat keinen Index „<Index>“."},
      // Recordsets.
      {2620,
       "Die Datensatzgruppe ist geöffnet; schließen Sie sie, bevor Sie ihre Einstellungen ändern."},
      {2621, "Die Datensatzgruppe ist geschlossen; öffnen Sie sie zuerst."},
      {2622,
       "Eine geänderte Zeile ist noch nicht gespeichert; speichern oder verwerfen Sie sie zuerst "
       "(<Action>)."},
      {2623, "Schließen"},
      {2624, "Löschen"},
      {2625, "Filtern"},
      {2626, "erneutes Lesen der Zeilen"},
      {2627, "erneutes Lesen der Zeile"},
      {2628, "Die aktuelle Zeile wurde gelöscht; gehen Sie zuerst zu einer anderen Zeile."},
      {2629, "Es gibt keine aktuelle Zeile; gehen Sie zuerst zu einer Zeile."},
      {2630,
       "Die Zeile wurde inzwischen von jemand anderem gelöscht; lesen Sie die Zeilen neu ein."},
      {2631,
       "Die Zeile wurde seit dem Lesen von jemand anderem geändert; es wurde nichts geschrieben."},
      {2632, "Lesen Sie die Zeile neu ein, und wiederholen Sie die Änderung."},
      {2633, "An Position <Position> steht keine Zeile; es sind <Count> Zeilen."},
      {2634, "Eine neue Zeile hat kein Lesezeichen, bevor sie gespeichert ist."},
      {2635,
       "Das Lesezeichen nennt keine Zeile dieser Datensatzgruppe, wie sie jetzt gefiltert ist."},
      {2636,
       "Die Datensatzgruppe hat kein Feld „<Field>“ oder mehrere; stellen Sie den Namen der "
       "Tabelle und einen Punkt voran."},
      {2637, "Die Datensatzgruppe hat kein Feld mit der Nummer <Number>."},
      {2638, "Das Feld „<Field>“ nummeriert die Datenbank selbst; es lässt sich nicht setzen."},
      {2639,
       "Die Datensatzgruppe wurde nur zum Lesen geöffnet; öffnen Sie sie mit optimistischem "
       "Sperren."},
      {2640,
       "Zeilen verknüpfter Tabellen lassen sich nicht ändern; öffnen Sie die Tabelle selbst."},
      {2641, "Eine neue Zeile braucht für jedes ihrer Felder einen Wert."},
      {2642,
       "Der Index „<Index>“ hat <Count> Spalten; geben Sie Werte für die ersten oder für alle an."},
      {2643,
       "Ein Wert dieses Typs lässt sich im Feld „<Field>“ nicht suchen; geben Sie einen vom Typ "
       "des Feldes an."},
      {2644, "Seek braucht eine Tabelle, die mit einem Index und ohne Filter geöffnet ist."},
      {2645, "Keine Zeile der Tabelle kann den gesuchten Wert enthalten."},
      {2646,
       "Das Feld „<Field>“ kann keinen Wert dieses Typs aufnehmen; geben Sie einen Wert vom Typ "
       "des Feldes an."},
      {2647, "Das Feld „<Field>“ kann keine Zahl dieser Größe aufnehmen."},
      {2648, "Das Feld „<Field>“ fasst höchstens <Limit> Zeichen; kürzen Sie den Text."},
      {2649, "Das Feld „<Field>“ hat einen Typ, der sich nicht schreiben lässt."},
      {2650, "Eine Spalte vom Datentyp <Type> lässt sich nicht anlegen."},
      // Queries and criteria.
      {2660, "Fehler in der Abfrage oder im Kriterium <Place>: <Cause>."},
      {2661, "bei Zeichen <Position> („<Excerpt>“)"},
      {2662, "bei Zeichen <Position> (am Ende)"},
      {2663,
       "eine Zahl darf nicht in einen Namen übergehen; setzen Sie einen Text in Anführungszeichen"},
      {2664, "dieses Zeichen hat hier keine Bedeutung"},
      {2665,
       "dem Text, der hier beginnt, fehlt das schließende Anführungszeichen; schreiben Sie ein "
       "Anführungszeichen im Text doppelt"},
      {2666, "ein Name in Klammern braucht Buchstaben und eine schließende Klammer"},
      {2667, "die Klammern sind zu tief geschachtelt"},
      {2668, "„<Symbol>“ wurde erwartet"},
      {2669, "<Keyword> wurde erwartet"},
      {2670, "ein Name wurde erwartet"},
      {2671, "ein Vergleich wurde erwartet"},
      {2672, "eine Spalte, ein Text oder eine Zahl wurde erwartet"},
      {2673, "der Text muss hier enden; schreiben Sie ein Anführungszeichen im Text doppelt"},
      {2674, "möglich ist nur eine Anweisung, und sie muss hier enden"},
      {2675, "ein Name darf in FROM nur einmal stehen; geben Sie der Tabelle mit AS einen anderen"},
      {2676, "nur eine Spalte lässt sich auf Null prüfen"},
      {2677,
       "ein Vergleich braucht eine Spalte; schreiben Sie ein Anführungszeichen im Text doppelt"},
      {2678, "die Zahl ist zu groß"},
      {2679, "ein Kriterium beginnt mit dem Namen einer Spalte"},
      {2680, "ein Kriterium vergleicht Spalten mit Werten"},
      {2681, "ein Suchkriterium ist genau ein Vergleich"},
      {2682, "höchstens 32 Tabellen lassen sich verknüpfen"},
      {2683, "die Datenbank <Path> hat keine Tabelle „<Table>“"},
      {2684, "die Tabelle „<Table>“ steht nicht in FROM"},
      {2685, "die Tabelle „<Table>“ hat keine Spalte „<Column>“"},
      {2686,
       "mehrere Tabellen haben eine Spalte „<Column>“; stellen Sie den Namen der Tabelle und einen "
       "Punkt voran"},
      {2687, "keine Tabelle hat eine Spalte „<Column>“; setzen Sie Texte in Anführungszeichen"},
      {2688, "die Datensatzgruppe hat kein Feld „<Field>“"},
      {2689, "ein Text ist weder wahr noch falsch; vergleichen Sie ihn mit einem Wert"},
      {2690, "für dieses „?“ ist kein Wert angegeben"},
      {2691,
       "ein Wert dieses Typs lässt sich nicht vergleichen; geben Sie einen Text, eine Zahl, ein "
       "Datum oder einen Wahrheitswert an"},
      {2692, "Spalten dieses Typs lassen sich nicht vergleichen, nur auf Null prüfen"},
      {2693,
       "ein Text wird mit einer Zahl verglichen; setzen Sie Texte in Anführungszeichen und Zahlen "
       "in keine"},
  });
  return kRows;
}

}  // namespace texts
