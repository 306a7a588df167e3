// SPDX-License-Identifier: MIT
// Messages of the Visual Basic files.
#include <array>

#include "texts/rows.h"

namespace texts {

std::span<const Row> SourceMessageRows() {
  static constexpr auto kRows = std::to_array<Row>({
      {2800, "Die Codepage <Number> ist unbekannt."},
      {2801, "Wählen Sie eine von 874, 932, 936, 949, 950, 1250 bis 1258."},
      {2802, "<Path> ist keine Visual-Basic-Datei."},
      {2803, "Nennen Sie eine .vbp-, eine .vbg- oder eine Quelldatei wie eine .cls."},
      {2804, "<Path> ist nicht vorhanden, obwohl <Group> sie nennt."},
      {2805, "Stellen Sie sie wieder her, oder berichtigen Sie die Gruppe."},
      {2806, "<Path> ist kein Projekt, obwohl <Group> sie nennt."},
      {2807, "Berichtigen Sie die Gruppe."},
      {2808, "<Path> und <Other> sind beide das Projekt <Name>."},
      {2809, "Nennen Sie das gemeinte (--vbp DATEI)."},
      {2810, "Das Zeichen<Character> (<Code>) für <Place> ist nicht in der Codepage <Number>."},
      {2812,
       "Nehmen Sie ein anderes Zeichen, oder öffnen Sie das Projekt mit der Codepage, in der es "
       "geschrieben ist (--code-page NUMMER)."},
      {2813,
       "Der Text für <Place> hat <Count> Zeichen; Visual Basic erlaubt 1023 in einer "
       "Zeile."},
      {2814, "Zeile <Line> von <Path>"},
      {2815, "Kürzen Sie ihn."},
      {2816, "<Path> enthält keinen Visual-Basic-Quelltext und bleibt unberührt."},
      {2817, "<Path> wurde nach dem Lesen von einem anderen Programm geändert."},
      {2818, "Darin wurde nichts geändert; wiederholen Sie den Vorgang."},
      {2819, "<Path> ist nicht vorhanden."},
      {2820, "Stellen Sie sie wieder her, oder berichtigen Sie die Projektdatei."},
      {2821, "<Path> liegt außerhalb von <Folder>, dem Ordner ihres Projekts."},
      {2823, "<Path> ist schreibgeschützt."},
      {2824,
       "Heben Sie den Schreibschutz auf, oder checken Sie die Datei aus der Versionsverwaltung "
       "aus."},
      {2825, "Die erste Zeile eines Codefensters hat die Nummer 1."},
      {2826, "Zeilen und Spalten einer Markierung beginnen bei 1."},
      {2827, "<Path> und <Other> heißen in <Project> beide <Name>; benutzt wird die erste."},
      {2828, "Benennen Sie eine davon um."},
      {2829, "Eine Zeilenzahl darf nicht negativ sein."},
      {2830, "<Path> hat keine Zeile <Line>; es sind <Count> Zeilen."},
      {2831, "<Path> deklariert keine Prozedur <Name> der gesuchten Art."},
      {2832, "<Path> ist als UTF-16 gespeichert, das Visual Basic nicht liest."},
      {2833, "Speichern Sie sie als ANSI-Text."},
      {2834, "<Path> enthält in Zeile <Line> der Datei ein Nullbyte und bleibt unberührt."},
      {2835, "Stellen Sie sie aus einer Sicherung wieder her, oder entfernen Sie das Byte."},
      // The workbench.
      {2840, "Das Modul wurde inzwischen von jemand anderem geändert."},
      {2841, "Objekterstellung durch ActiveX-Komponente nicht möglich"},
  });
  return kRows;
}

}  // namespace texts
